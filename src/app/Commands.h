#pragma once
// Everything the operator can choose from the menus, the keyboard and the toolbar, one row each.

#include "app/help/ManualText.h"
#include "app/toolbar/ToolbarButtons.h"

#include <QWidget>

#include <span>
#include <string_view>
#include <vector>

namespace ocuva {

class frmOcuva;

/// What a row of the table is in the menu bar.
enum class MenuEntry {
    Menu,      ///< a menu of the bar; the rows below it belong to it
    Item,      ///< a command
    Check,     ///< a command with a mark
    Separator, ///< a line between commands
    BarItem,   ///< a command in the bar itself
};

/// One row. The menu bar, the page of keys, the toolbar, tips and explanations all follow from it. Texts are
/// marked for translation in the context "Commands", those of the button in "MainToolbar".
struct Command {
    MenuEntry entry;                    ///< its place in the menus
    const char* name;                   ///< the object name of its action or menu
    const char* text = "";              ///< in the menu, with access letter
    const char* key = "";               ///< the shortcut, as QKeySequence reads it; empty: none
    const char* tip = "";               ///< in the status bar while the entry is pointed at
    const char* explanation = "";       ///< What's This
    const char* explainedControls = ""; ///< names of further controls with that explanation, blanks between
    ToolbarButton button = {};          ///< without a key: it has none
    bool separatorAfterButton = false;  ///< in the layout that the toolbar comes with
    bool (*isInThisBuild)() = nullptr;  ///< always, if not given; grey and without effect otherwise
    bool drivesStage = false;           ///< its key is disabled while a text field has the focus
    void (*run)(frmOcuva&) = nullptr;   ///< its action, if any

    /// Whether it can be run in this build of the program, wherever it is reached from.
    bool isAvailable() const { return isInThisBuild == nullptr || isInThisBuild(); }
};

/// All rows, in the order of the menus; buttons are in this order in the toolbar's default layout.
std::span<const Command> commands();

/// The row of that name. Throws std::out_of_range if there is none.
const Command& command(std::string_view name);

/// The command of that toolbar button; null for a key that no button has.
const Command* commandOfButton(const QString& key);

/// The buttons of all commands with the separators of the default layout.
ToolbarButtons commandButtons();

/// The commands that have a key, in the order of the menus.
std::vector<KeyRow> commandKeys();

/// Gives the actions and toolbar buttons of the window their explanations. Repeat it after a change of the
/// toolbar's layout, which makes new buttons.
void explainCommands(QWidget& window);

} // namespace ocuva
