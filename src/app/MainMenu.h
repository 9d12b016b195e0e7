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
    /// Lets the commands' function keys (F1 to F9, without Shift) work while that window is the active one,
    /// but those that drive the stage not while somebody types in one of its fields. It may go before the
    /// menu does, and the other way round.
    void lendFunctionKeys(QWidget& window) const;

private:
    std::map<std::string_view, QAction*> m_actions;
};

} // namespace ocuva
