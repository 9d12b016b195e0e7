#pragma once
// The menu bar of the main window, as the table of commands says.

#include "app/Commands.h"

#include <QAction>
#include <QMenuBar>

#include <functional>
#include <map>
#include <string_view>

namespace ocuva {

/// Actions by their names; the two items of the zoom array are "mnuZoom0" and "mnuZoom1".
class MainMenu {
public:
    /// Fills the bar, which outlives it. `run` is called for each command that is chosen.
    MainMenu(QMenuBar& bar, const std::function<void(const Command&)>& run);

    /// Throws std::out_of_range for a name that no entry has.
    QAction* action(std::string_view name) const;
    /// Enables the commands' function keys (F1 to F9, without Shift) while that window is active; those
    /// that drive the stage not while one of its text fields has the focus. Window and menu may be
    /// destroyed in either order.
    void lendFunctionKeys(QWidget& window) const;

private:
    std::map<std::string_view, QAction*> m_actions;
};

} // namespace ocuva
