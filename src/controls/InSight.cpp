#include "controls/InSight.h"

#include <QApplication>
#include <QScreen>
#include <QVariant>
#include <QWindow>

namespace ocuva {

namespace {

constexpr const char* inSightProperty = "inSight";

// A dialog that is just being shown is not exposed yet, and no menu or tooltip counts.
bool isOnScreen(const QWidget& window) {
    const bool isWindow = window.windowType() == Qt::Window || window.windowType() == Qt::Dialog;
    return isWindow && window.isVisible() && window.windowHandle() != nullptr &&
           window.windowHandle()->isExposed();
}

QRect onScreen(const QWidget& widget) { return {widget.mapToGlobal(QPoint()), widget.size()}; }

} // namespace

void keepInSight(QWidget& control, InSight as) { control.setProperty(inSightProperty, static_cast<int>(as)); }

Surroundings surroundingsOf(const QWidget& mainWindow) {
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
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window != &mainWindow && isOnScreen(*window)) {
            around.dialogs.append(window->frameGeometry());
        }
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
