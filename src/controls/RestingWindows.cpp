#include "controls/RestingWindows.h"

#include <QApplication>
#include <QDialog>
#include <QWhatsThis>

#include <utility>

namespace ocuva {

namespace {

void closeMenus() {
    QWhatsThis::leaveWhatsThisMode();
    while (QWidget* popup = QApplication::activePopupWidget()) {
        if (!popup->close()) {
            popup->hide();
        }
    }
}

void refuseModalDialogs() {
    while (QWidget* modal = QApplication::activeModalWidget()) {
        if (auto* dialog = qobject_cast<QDialog*>(modal)) {
            dialog->reject();
        }
        modal->hide(); // also a dialog that cannot be cancelled
    }
}

} // namespace

void RestingWindows::layDown(const QWidget& main) {
    closeMenus();
    refuseModalDialogs();
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != &main && window->isVisible()) {
            m_windows.emplace_back(window);
            window->hide();
        }
    }
}

void RestingWindows::bringBack() {
    for (const QPointer<QWidget>& window : std::exchange(m_windows, {})) {
        if (window != nullptr) {
            window->show();
        }
    }
}

} // namespace ocuva
