#include "app/Commands.h"

#include "app/frmOcuva.h"
#include "report/Report.h"

#include <QCoreApplication>
#include <QKeySequence>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace ocuva {

namespace {

using enum MenuEntry;
using ButtonText = QLatin1StringView;

constexpr const char* zoomExplanation = QT_TRANSLATE_NOOP(
    "Commands",
    "Shows the same field at full size, one screen pixel for each camera pixel, or at half that size.");

constexpr std::array<Command, 26> rows{{
    {.entry = Menu, .name = "mnuFile", .text = QT_TRANSLATE_NOOP("Commands", "&File")},
    {.entry = Item,
     .name = "mmuOpen",
     .text = QT_TRANSLATE_NOOP("Commands", "&Open"),
     .key = "Ctrl+O",
     .tip = QT_TRANSLATE_NOOP("Commands", "Show a stored picture"),
     .explanation = QT_TRANSLATE_NOOP("Commands", "Opens a picture that was saved before."),
     .run = [](frmOcuva& window) { window.pictures().open(); }},
    {.entry = Item,
     .name = "mnuSaveAs",
     .text = QT_TRANSLATE_NOOP("Commands", "&Save As..."),
     .key = "Ctrl+S",
     .tip = QT_TRANSLATE_NOOP("Commands", "Save the image and its place"),
     .explanation = QT_TRANSLATE_NOOP("Commands", "Saves the current image, without the overlays, and next "
                                                  "to it a description of where on the stage it was taken."),
     .button = {.key = ButtonText{"Save"},
                .text = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Save")},
                .tooltip = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Save the current image to disk")}},
     .run = [](frmOcuva& window) { window.pictures().save(); }},
    {.entry = Separator, .name = "mnuSep"},
    {.entry = Item,
     .name = "mnuExit",
     .text = QT_TRANSLATE_NOOP("Commands", "&Exit"),
     .key = "Ctrl+Q",
     .tip = QT_TRANSLATE_NOOP("Commands", "End the program"),
     .explanation = QT_TRANSLATE_NOOP("Commands", "Ends the program and shuts the video board down."),
     .run = [](frmOcuva& window) { window.exitOperation(); }},

    {.entry = Menu, .name = "mnuView", .text = QT_TRANSLATE_NOOP("Commands", "&View")},
    {.entry = Check,
     .name = "mnuAcq",
     .text = QT_TRANSLATE_NOOP("Commands", "&Live"),
     .key = "F7",
     .tip = QT_TRANSLATE_NOOP("Commands", "Start or stop the live image"),
     .explanation = QT_TRANSLATE_NOOP(
         "Commands", "Starts and stops the live image. When it is stopped, the last image stays as a still."),
     .button = {.key = ButtonText{"Acq"},
                .text = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Live")},
                .tooltip = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Start/Stop continuous video")},
                .style = ButtonStyle::Check},
     .separatorAfterButton = true,
     .run = [](frmOcuva& window) { window.image().toggleLive(); }},
    {.entry = Check,
     .name = "mnuZoom0",
     .text = QT_TRANSLATE_NOOP("Commands", "&Normal (1:1)"),
     .tip = QT_TRANSLATE_NOOP("Commands", "Show every pixel of the camera"),
     .explanation = zoomExplanation,
     .button = {.key = ButtonText{"Zoom"},
                .text = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Zoom")},
                .tooltip = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Magnify image")},
                .style = ButtonStyle::Check},
     .run = [](frmOcuva& window) { window.monitor().toggleZoom(); }},
    {.entry = Check,
     .name = "mnuZoom1",
     .text = QT_TRANSLATE_NOOP("Commands", "&Zoom out (1:2)"),
     .tip = QT_TRANSLATE_NOOP("Commands", "The same field at half the size"),
     .explanation = zoomExplanation,
     .run = [](frmOcuva& window) { window.monitor().toggleZoom(); }},
    {.entry = Check,
     .name = "mnuCross",
     .text = QT_TRANSLATE_NOOP("Commands", "&Cross"),
     .key = "F9",
     .tip = QT_TRANSLATE_NOOP("Commands", "Mark the centre of the image"),
     .explanation =
         QT_TRANSLATE_NOOP("Commands", "Shows the centre of the image, where a clicked point arrives."),
     .button = {.key = ButtonText{"Cross"},
                .text = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Cross")},
                .tooltip = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Show a cross at the center")},
                .style = ButtonStyle::Check},
     .run = [](frmOcuva& window) { window.overlays().toggle("mnuCross"); }},
    {.entry = Check,
     .name = "mnuGrid",
     .text = QT_TRANSLATE_NOOP("Commands", "&Grid"),
     .key = "F5",
     .tip = QT_TRANSLATE_NOOP("Commands", "Show a grid over the image"),
     .explanation = QT_TRANSLATE_NOOP("Commands", "Shows a grid over the image for judging distances."),
     .button = {.key = ButtonText{"Grid"},
                .text = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Grid")},
                .tooltip = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Show a grid on the image")},
                .style = ButtonStyle::Check},
     .separatorAfterButton = true,
     .run = [](frmOcuva& window) { window.overlays().toggle("mnuGrid"); }},
    {.entry = Check,
     .name = "mnuMicroMarker",
     .text = QT_TRANSLATE_NOOP("Commands", "&MicroMarker"),
     .tip = QT_TRANSLATE_NOOP("Commands", "Show a bar of known length"),
     .explanation = QT_TRANSLATE_NOOP("Commands", "A bar of known length, in micrometres. It is right if the "
                                                  "magnification is that of the objective in use."),
     .explainedControls = "frMicroMarker lbMicroMarker",
     .run = [](frmOcuva& window) { window.overlays().toggle("mnuMicroMarker"); }},

    {.entry = Menu, .name = "mnuStage", .text = QT_TRANSLATE_NOOP("Commands", "&Stage")},
    {.entry = Item,
     .name = "mnuMove",
     .text = QT_TRANSLATE_NOOP("Commands", "&Move..."),
     .key = "F8",
     .tip = QT_TRANSLATE_NOOP("Commands", "Drive to a typed position"),
     .explanation = QT_TRANSLATE_NOOP(
         "Commands",
         "Drives to a position that you type. The arrow next to the button lists the standard positions."),
     .button = {.key = ButtonText{"Stage"},
                .text = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Stage")},
                .tooltip = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Enter a stage position")},
                .style = ButtonStyle::Dropdown},
     .run = [](frmOcuva& window) { window.standards().openMoveDialog(); }},
    {.entry = Item,
     .name = "mmuBckl",
     .text = QT_TRANSLATE_NOOP("Commands", "&Backlash"),
     .key = "F6",
     .tip = QT_TRANSLATE_NOOP("Commands", "Take up the play of the drives"),
     .explanation = QT_TRANSLATE_NOOP("Commands", "Moves every axis a little away and back again, so that "
                                                  "play in the drive is taken up from the usual side."),
     .drivesStage = true,
     .run = [](frmOcuva& window) { window.stage().takeUpBacklash(); }},
    {.entry = Item,
     .name = "mnuStandard",
     .text = QT_TRANSLATE_NOOP("Commands", "&Standard"),
     .tip = QT_TRANSLATE_NOOP("Commands", "The arrow next to Stage lists them"),
     .explanation = QT_TRANSLATE_NOOP(
         "Commands",
         "Has no function of its own. Standard positions are in the list next to the button Stage."),
     .button = {.key = ButtonText{"Standard"},
                .text = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Standard")}}},
    {.entry = Item,
     .name = "mnuFocus",
     .text = QT_TRANSLATE_NOOP("Commands", "&Autofocus"),
     .key = "F4",
     .tip = QT_TRANSLATE_NOOP("Commands", "Find the sharpest Z"),
     .explanation = QT_TRANSLATE_NOOP(
         "Commands", "Lets the host search for the sharpest image by moving Z within the configured range."),
     .button = {.key = ButtonText{"Focus"},
                .text = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Autofocus")},
                .tooltip = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Compute and apply the autofocus")}},
     .separatorAfterButton = true,
     .drivesStage = true,
     .run = [](frmOcuva& window) { window.mnuFocus_Click(); }},
    {.entry = Item,
     .name = "Picture",
     .text = QT_TRANSLATE_NOOP("Commands", "&Picture"),
     .key = "F3",
     .tip = QT_TRANSLATE_NOOP("Commands", "Tie the picture to stage positions"),
     .explanation =
         QT_TRANSLATE_NOOP("Commands", "Ties a picture to stage positions by two or three points."),
     .run = [](frmOcuva& window) { window.pictureOnStage().openDialog(); }},

    {.entry = BarItem,
     .name = "mnuSetup",
     .text = QT_TRANSLATE_NOOP("Commands", "Se&tup..."),
     .tip = QT_TRANSLATE_NOOP("Commands", "Change the settings"),
     .explanation = QT_TRANSLATE_NOOP("Commands", "Opens the settings. They take effect at once."),
     .button = {.key = ButtonText{"Setup"},
                .text = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Setup")},
                .tooltip = ButtonText{QT_TRANSLATE_NOOP("MainToolbar", "Popup the setup window")}},
     .separatorAfterButton = true,
     .run = [](frmOcuva& window) { window.setup().open(); }},
    {.entry = BarItem,
     .name = "mnuAbout",
     .text = QT_TRANSLATE_NOOP("Commands", "&About..."),
     .tip = QT_TRANSLATE_NOOP("Commands", "Show the version"),
     .explanation = QT_TRANSLATE_NOOP("Commands", "Shows the version of the program."),
     .run = [](frmOcuva& window) { window.mnuAbout_Click(); }},

    {.entry = Menu, .name = "mnuHelp", .text = QT_TRANSLATE_NOOP("Commands", "&Help")},
    {.entry = Item,
     .name = "mnuManual",
     .text = QT_TRANSLATE_NOOP("Commands", "&Manual"),
     .key = "F1",
     .tip = QT_TRANSLATE_NOOP("Commands", "Open the manual"),
     .explanation = QT_TRANSLATE_NOOP("Commands", "Opens the manual."),
     .run = [](frmOcuva& window) { window.help().openManual(); }},
    {.entry = Item,
     .name = "mnuKeys",
     .text = QT_TRANSLATE_NOOP("Commands", "&Keys"),
     .tip = QT_TRANSLATE_NOOP("Commands", "List the keys of the commands"),
     .explanation = QT_TRANSLATE_NOOP("Commands", "Opens the manual at the list of all keys."),
     .run = [](frmOcuva& window) { window.help().openKeys(); }},
    {.entry = Item,
     .name = "mnuWhatsThis",
     .text = QT_TRANSLATE_NOOP("Commands", "&What's This?"),
     .key = "Shift+F1",
     .tip = QT_TRANSLATE_NOOP("Commands", "Click something to have it explained"),
     .explanation = QT_TRANSLATE_NOOP("Commands", "Explains the next item that you click."),
     .run = [](frmOcuva& window) { window.help().explain(); }},
    {.entry = Separator, .name = "mnuHelpSep"},
    {.entry = Item,
     .name = "mnuPackReport",
     .text = QT_TRANSLATE_NOOP("Commands", "&Pack Report..."),
     .tip = QT_TRANSLATE_NOOP("Commands", "Pack log and settings for a helper"),
     .explanation = QT_TRANSLATE_NOOP(
         "Commands",
         "Packs the log, the journal and the settings into one file, to be sent when you ask for help."),
     .isInThisBuild = &canPackReports,
     .run = [](frmOcuva& window) { window.help().packReport(); }},
}};

QString translated(const char* text) { return QCoreApplication::translate("Commands", text); }

QString plain(const char* text) { return translated(text).remove(u'&').remove(QStringLiteral("...")); }

bool hasButton(const Command& row) { return !row.button.key.isEmpty(); }

std::vector<ToolbarButton> buttonsWithSeparators() {
    static constexpr std::array separatorKeys{ButtonText{"Sep1"}, ButtonText{"Sep2"}, ButtonText{"Sep3"},
                                              ButtonText{"Sep4"}};
    std::vector<ToolbarButton> buttons;
    std::size_t separators = 0;
    for (const Command& row : rows) {
        if (hasButton(row)) {
            buttons.push_back(row.button);
        }
        if (row.separatorAfterButton) {
            buttons.push_back({separatorKeys.at(separators++), separatorText, {}, ButtonStyle::Separator});
        }
    }
    return buttons;
}

} // namespace

std::span<const Command> commands() { return rows; }

const Command& command(std::string_view name) {
    const auto* const found =
        std::find_if(rows.begin(), rows.end(), [name](const Command& row) { return name == row.name; });
    if (found == rows.end()) {
        throw std::out_of_range("there is no command \"" + std::string(name) + '"');
    }
    return *found;
}

const Command* commandOfButton(const QString& key) {
    const auto* const found = std::find_if(rows.begin(), rows.end(), [&key](const Command& row) {
        return hasButton(row) && key == row.button.key;
    });
    return found == rows.end() ? nullptr : &*found;
}

ToolbarButtons commandButtons() {
    static const std::vector<ToolbarButton> buttons = buttonsWithSeparators();
    return ToolbarButtons(buttons);
}

std::vector<KeyRow> commandKeys() {
    std::vector<KeyRow> keys;
    QString menu;
    for (const Command& row : rows) {
        if (row.entry == Menu) {
            menu = plain(row.text);
        } else if (*row.key != '\0') {
            const QKeySequence key(QString::fromLatin1(row.key));
            keys.push_back({key.toString(QKeySequence::NativeText), plain(row.text), menu});
        }
    }
    return keys;
}

void explainCommands(QWidget& window) {
    for (const Command& row : rows) {
        if (*row.explanation == '\0') {
            continue;
        }
        const QString text = translated(row.explanation);
        for (QAction* const action : window.findChildren<QAction*>(QString::fromLatin1(row.name))) {
            action->setWhatsThis(text);
        }
        QStringList controls = QString::fromLatin1(row.explainedControls).split(u' ', Qt::SkipEmptyParts);
        if (hasButton(row)) {
            controls.append(row.button.key);
        }
        for (const QString& name : controls) {
            for (QWidget* const control : window.findChildren<QWidget*>(name)) {
                control->setWhatsThis(text);
            }
        }
    }
}

} // namespace ocuva
