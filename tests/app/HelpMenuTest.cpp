#include "app/help/WhatsThis.h"
#include "report/Report.h"
#include "tests/support/WindowRig.h"

#include <QWhatsThis>

namespace ocuva {

namespace {

struct HelpMenuOfTheWindow : WindowRig {
    HelpMenuOfTheWindow() { start("-client"); }
};

} // namespace

TEST_F(HelpMenuOfTheWindow, OpensTheManualNextToTheWindowByItsKeyAndClosesItWithTheProgram) {
    action("mnuManual")->trigger();
    HelpWindow* const manual = window().help().manualWindow();
    ASSERT_NE(manual, nullptr);
    EXPECT_TRUE(manual->isVisible());
    EXPECT_FALSE(manual->isModal());
    action("mnuManual")->trigger();
    EXPECT_EQ(window().help().manualWindow(), manual);
    action("mnuExit")->trigger();
    EXPECT_FALSE(manual->isVisible());
}

TEST_F(HelpMenuOfTheWindow, ListsExactlyTheKeysThatTheCommandsHave) {
    std::vector<std::string> listed;
    for (const KeyRow& row : commandKeys()) {
        listed.push_back(row.key.toStdString());
    }
    std::vector<std::string> had;
    for (const QAction* command : window().menuBar()->findChildren<QAction*>()) {
        if (!command->shortcut().isEmpty()) {
            had.push_back(command->shortcut().toString(QKeySequence::NativeText).toStdString());
        }
    }
    EXPECT_THAT(listed, testing::UnorderedElementsAreArray(had));
    EXPECT_THAT(listed, testing::IsSupersetOf({"F1", "F4", "F7", "Ctrl+Q"}));
}

TEST_F(HelpMenuOfTheWindow, ListsCommandsByNameWithoutAccessKeysAndDots) {
    for (const KeyRow& row : commandKeys()) {
        EXPECT_FALSE(row.command.contains(u'&') || row.command.contains(u'.')) << row.command.toStdString();
        EXPECT_FALSE(row.menu.isEmpty());
    }
}

TEST_F(HelpMenuOfTheWindow, ExplainsEveryCommandAndEveryButton) {
    action("mnuWhatsThis")->trigger();
    EXPECT_TRUE(QWhatsThis::inWhatsThisMode());
    QWhatsThis::leaveWhatsThisMode();
    for (const QAction* command : window().menuBar()->findChildren<QAction*>()) {
        if (command->menu() == nullptr && !command->isSeparator() && !command->objectName().isEmpty()) {
            EXPECT_FALSE(command->whatsThis().isEmpty()) << command->objectName().toStdString();
        }
    }
    for (const char* key : {"Save", "Acq", "Zoom", "Cross", "Grid", "Stage", "Focus", "Setup"}) {
        EXPECT_FALSE(window().tbMain->button(QString::fromLatin1(key))->whatsThis().isEmpty()) << key;
    }
    for (const char* name : {"milDisp", "frUpDown", "X", "Y", "Z", "Info", "frMonitor"}) {
        ASSERT_NE(child<QWidget>(name), nullptr) << name;
        EXPECT_FALSE(child<QWidget>(name)->whatsThis().isEmpty()) << name;
    }
}

TEST_F(HelpMenuOfTheWindow, OffersAReportWhereTheProgramCanPackOne) {
    EXPECT_EQ(action("mnuPackReport")->isEnabled(), canPackReports());
}

} // namespace ocuva
