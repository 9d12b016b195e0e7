#pragma once
// The menu bar of the main window as one table: caption, shortcut, command.

#include "app/help/ManualText.h"

#include <QAction>
#include <QMenuBar>

#include <array>
#include <functional>
#include <map>
#include <string_view>
#include <vector>

namespace ocuva {

/// What a menu item, its shortcut and its toolbar key do; one entry each, so that all three have the same
/// effect.
enum class Command {
    None,
    Open,
    SaveAs,
    Exit,
    Acquire,
    Zoom,
    Cross,
    Grid,
    MicroMarker,
    Move,
    Backlash,
    Focus,
    Picture,
    Setup,
    About,
    Manual,
    Keys,
    WhatsThis,
    PackReport,
};

/// Actions by their names; the two items of the zoom array are "mnuZoom0" and "mnuZoom1".
class MainMenu {
public:
    /// Fills the bar, which outlives it. `run` is called for each entry that is chosen, with Command::None
    /// for one that does nothing.
    MainMenu(QMenuBar& bar, const std::function<void(Command)>& run);

    /// Throws std::out_of_range for a name that no entry has.
    QAction* action(std::string_view name) const;
    /// Lets the commands' function keys (F1 to F9, without Shift) work while that window is the active one,
    /// but those that drive the stage not while somebody types in one of its fields. It may go before the
    /// menu does, and the other way round.
    void lendFunctionKeys(QWidget& window) const;
    /// Whether the command can be run in this build of the program, wherever it is reached from.
    static bool isAvailable(Command command);
    /// The commands that have a key, in the order of the menus.
    static std::vector<KeyRow> keys();

private:
    std::map<std::string_view, QAction*> m_actions;
};

} // namespace ocuva
