#include "controls/InSight.h"

#include <QScreen>
#include <QVariant>

namespace ocuva {

namespace {

constexpr const char* inSightProperty = "inSight";

QRect onScreen(const QWidget& widget) { return {widget.mapToGlobal(QPoint()), widget.size()}; }

} // namespace

void keepInSight(QWidget& control, InSight as) { control.setProperty(inSightProperty, static_cast<int>(as)); }

Surroundings surroundingsOf(const QWidget& mainWindow, const QWidget* opener) {
    Surroundings around;
    around.screen = mainWindow.screen()->availableGeometry();
    if (!mainWindow.isVisible() || mainWindow.isMinimized()) {
        return around;
    }
    around.mainWindow = mainWindow.frameGeometry();
    for (const QWidget* control : mainWindow.findChildren<QWidget*>()) {
        const QVariant as = control->property(inSightProperty);
        if (!as.isValid() || !control->isVisible()) {
            continue;
        }
        if (as.toInt() == static_cast<int>(InSight::Watched)) {
            around.watched.append(onScreen(*control));
        } else {
            around.hint = onScreen(*control);
        }
    }
    if (opener != nullptr && opener != &mainWindow && opener->isVisible()) {
        around.owner = opener->frameGeometry();
    }
    return around;
}

const QWidget& outermost(const QWidget& widget) {
    const QWidget* window = widget.window();
    while (window->parentWidget() != nullptr) {
        window = window->parentWidget()->window();
    }
    return *window;
}

} // namespace ocuva
