#include "app/MainMenu.h"

#include "report/Report.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QLineEdit>

namespace ocuva {

namespace {

enum class Kind { Menu, Item, Check, Separator, BarItem };

struct Row {
    Kind kind;
    const char* name;
    const char* caption;
    const char* shortcut;
    Command command;
    const char* tip; // shown in the status bar while the entry is pointed at
};

// An item belongs to the menu above it.
constexpr std::array<Row, 26> menuRows{{
    {Kind::Menu, "mnuFile", QT_TRANSLATE_NOOP("MainMenu", "&File"), "", Command::None, ""},
    {Kind::Item, "mmuOpen", QT_TRANSLATE_NOOP("MainMenu", "&Open"), "Ctrl+O", Command::Open,
     QT_TRANSLATE_NOOP("MainMenu", "Show a stored picture")},
    {Kind::Item, "mnuSaveAs", QT_TRANSLATE_NOOP("MainMenu", "&Save As..."), "Ctrl+S", Command::SaveAs,
     QT_TRANSLATE_NOOP("MainMenu", "Save the image and its place")},
    {Kind::Separator, "mnuSep", "", "", Command::None, ""},
    {Kind::Item, "mnuExit", QT_TRANSLATE_NOOP("MainMenu", "&Exit"), "Ctrl+Q", Command::Exit,
     QT_TRANSLATE_NOOP("MainMenu", "End the program")},
    {Kind::Menu, "mnuView", QT_TRANSLATE_NOOP("MainMenu", "&View"), "", Command::None, ""},
    {Kind::Check, "mnuAcq", QT_TRANSLATE_NOOP("MainMenu", "&Live"), "F7", Command::Acquire,
     QT_TRANSLATE_NOOP("MainMenu", "Start or stop the live image")},
    {Kind::Check, "mnuZoom0", QT_TRANSLATE_NOOP("MainMenu", "&Normal (1:1)"), "", Command::Zoom,
     QT_TRANSLATE_NOOP("MainMenu", "Show every pixel of the camera")},
    {Kind::Check, "mnuZoom1", QT_TRANSLATE_NOOP("MainMenu", "&Zoom out (1:2)"), "", Command::Zoom,
     QT_TRANSLATE_NOOP("MainMenu", "The same field at half the size")},
    {Kind::Check, "mnuCross", QT_TRANSLATE_NOOP("MainMenu", "&Cross"), "F9", Command::Cross,
     QT_TRANSLATE_NOOP("MainMenu", "Mark the centre of the image")},
    {Kind::Check, "mnuGrid", QT_TRANSLATE_NOOP("MainMenu", "&Grid"), "F5", Command::Grid,
     QT_TRANSLATE_NOOP("MainMenu", "Show a grid over the image")},
    {Kind::Check, "mnuMicroMarker", QT_TRANSLATE_NOOP("MainMenu", "&MicroMarker"), "", Command::MicroMarker,
     QT_TRANSLATE_NOOP("MainMenu", "Show a bar of known length")},
    {Kind::Menu, "mnuStage", QT_TRANSLATE_NOOP("MainMenu", "&Stage"), "", Command::None, ""},
    {Kind::Item, "mnuMove", QT_TRANSLATE_NOOP("MainMenu", "&Move..."), "F8", Command::Move,
     QT_TRANSLATE_NOOP("MainMenu", "Drive to a typed position")},
    {Kind::Item, "mmuBckl", QT_TRANSLATE_NOOP("MainMenu", "&Backlash"), "F6", Command::Backlash,
     QT_TRANSLATE_NOOP("MainMenu", "Take up the play of the drives")},
    {Kind::Item, "mnuStandard", QT_TRANSLATE_NOOP("MainMenu", "&Standard"), "", Command::None,
     QT_TRANSLATE_NOOP("MainMenu", "The arrow beside Stage lists them")},
    {Kind::Item, "mnuFocus", QT_TRANSLATE_NOOP("MainMenu", "&Autofocus"), "F4", Command::Focus,
     QT_TRANSLATE_NOOP("MainMenu", "Find the sharpest Z")},
    {Kind::Item, "Picture", QT_TRANSLATE_NOOP("MainMenu", "&Picture"), "F3", Command::Picture,
     QT_TRANSLATE_NOOP("MainMenu", "Tie the picture to stage positions")},
    {Kind::BarItem, "mnuSetup", QT_TRANSLATE_NOOP("MainMenu", "Se&tup..."), "", Command::Setup,
     QT_TRANSLATE_NOOP("MainMenu", "Change the settings")},
    {Kind::BarItem, "mnuAbout", QT_TRANSLATE_NOOP("MainMenu", "&About..."), "", Command::About,
     QT_TRANSLATE_NOOP("MainMenu", "Show the version")},
    {Kind::Menu, "mnuHelp", QT_TRANSLATE_NOOP("MainMenu", "&Help"), "", Command::None, ""},
    {Kind::Item, "mnuManual", QT_TRANSLATE_NOOP("MainMenu", "&Manual"), "F1", Command::Manual,
     QT_TRANSLATE_NOOP("MainMenu", "Open the manual")},
    {Kind::Item, "mnuKeys", QT_TRANSLATE_NOOP("MainMenu", "&Keys"), "", Command::Keys,
     QT_TRANSLATE_NOOP("MainMenu", "List the keys of the commands")},
    {Kind::Item, "mnuWhatsThis", QT_TRANSLATE_NOOP("MainMenu", "&What's This?"), "Shift+F1",
     Command::WhatsThis, QT_TRANSLATE_NOOP("MainMenu", "Click something to have it explained")},
    {Kind::Separator, "mnuHelpSep", "", "", Command::None, ""},
    {Kind::Item, "mnuPackReport", QT_TRANSLATE_NOOP("MainMenu", "&Pack Report..."), "", Command::PackReport,
     QT_TRANSLATE_NOOP("MainMenu", "Pack log and settings for a helper")},
}};

QAction* addItem(QMenuBar& bar, QMenu* menu, Kind kind, const QString& caption) {
    if (menu == nullptr || kind == Kind::BarItem) {
        return bar.addAction(caption);
    }
    return kind == Kind::Separator ? menu->addSeparator() : menu->addAction(caption);
}

bool drives(Command command) { return command == Command::Backlash || command == Command::Focus; }

bool somebodyTypes() {
    const QWidget* const focused = QApplication::focusWidget();
    return qobject_cast<const QLineEdit*>(focused) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(focused) != nullptr;
}

} // namespace

bool MainMenu::isAvailable(Command command) { return command != Command::PackReport || canPackReports(); }

MainMenu::MainMenu(QMenuBar& bar, const std::function<void(Command)>& run) {
    QMenu* menu = nullptr;
    for (const Row& row : menuRows) {
        const QString caption = QCoreApplication::translate("MainMenu", row.caption);
        if (row.kind == Kind::Menu) {
            menu = bar.addMenu(caption);
            menu->setObjectName(QString::fromLatin1(row.name));
            continue;
        }
        QAction* action = addItem(bar, menu, row.kind, caption);
        action->setObjectName(QString::fromLatin1(row.name));
        action->setCheckable(row.kind == Kind::Check);
        action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
        action->setAutoRepeat(false);
        action->setEnabled(isAvailable(row.command));
        if (*row.tip != '\0') {
            action->setStatusTip(QCoreApplication::translate("MainMenu", row.tip));
        }
        QObject::connect(action, &QAction::triggered, &bar, [run, command = row.command] {
            if (!drives(command) || !somebodyTypes()) {
                run(command);
            }
        });
        m_actions[row.name] = action;
    }
}

std::vector<KeyRow> MainMenu::keys() {
    const auto plain = [](const char* caption) {
        return QCoreApplication::translate("MainMenu", caption).remove(u'&').remove(QStringLiteral("..."));
    };
    std::vector<KeyRow> keys;
    QString menu;
    for (const Row& row : menuRows) {
        if (row.kind == Kind::Menu) {
            menu = plain(row.caption);
        } else if (*row.shortcut != '\0') {
            const QKeySequence key(QString::fromLatin1(row.shortcut));
            keys.push_back({key.toString(QKeySequence::NativeText), plain(row.caption), menu});
        }
    }
    return keys;
}

void MainMenu::lendFunctionKeys(QWidget& window) const {
    for (const auto& [name, action] : m_actions) {
        const QKeySequence key = action->shortcut();
        if (!key.isEmpty() && key[0].keyboardModifiers() == Qt::NoModifier) {
            window.addAction(action);
        }
    }
}

QAction* MainMenu::action(std::string_view name) const { return m_actions.at(name); }

} // namespace ocuva
