#include "controls/DialogPlaces.h"

#include "controls/InSight.h"
#include "controls/WindowPlace.h"

#include <QCoreApplication>
#include <QDialog>
#include <QEvent>
#include <QFileDialog>

namespace ocuva {

namespace {

// A file dialog can be made this small and still shows names and buttons.
constexpr QSize smallestFileDialog{480, 320};

} // namespace

DialogPlaces::DialogPlaces(QWidget& mainWindow)
    : QObject(&mainWindow)
    , m_mainWindow(mainWindow) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool DialogPlaces::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show || event->spontaneous()) {
        return false;
    }
    auto* const dialog = qobject_cast<QDialog*>(watched);
    if (dialog == nullptr || !isToBePlaced(*dialog)) {
        return false;
    }
    // A message box settles its size, and any dialog its first place, only while it handles the event.
    watched->event(event);
    place(*dialog);
    return true;
}

bool DialogPlaces::isToBePlaced(const QWidget& dialog) const {
    return dialog.isWindow() && m_mainWindow.isVisible() &&
           dialog.findChild<WindowPlace*>(QString(), Qt::FindDirectChildrenOnly) == nullptr;
}

void DialogPlaces::place(QWidget& dialog) const {
    const QSize margins = frameMargins(dialog);
    const QSize smallest =
        qobject_cast<QFileDialog*>(&dialog) != nullptr ? smallestFileDialog + margins : QSize();
    const Surroundings around = surroundingsOf(m_mainWindow);
    placeFrame(dialog, dialogPlace(around, dialog.size() + margins, smallest), true);
}

} // namespace ocuva
