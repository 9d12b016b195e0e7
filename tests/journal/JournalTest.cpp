#include "journal/Journal.h"

#include "autofocus/DoFocus.h"
#include "hostlink/modServer.h"
#include "journal/JournalLine.h"
#include "tests/support/StubHost.h"
#include "tests/support/TempFolder.h"
#include "video/CTnVideoImage.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct SilentWindow : StageWatchView {
    Long monitorColour() const override { return 0; }
    void setMonitorColour(Long) override {}
    void enableMoveTimer(bool) override {}
    void showPosition(Integer, const std::string&) override {}
};

struct DeafWindow : ServerWindow {
    void applyWindowState(State) override {}
    void showModeless() override {}
    void hideWindow() override {}
    void enableIdleTimer(bool) override {}
    void DoFocus() override {}
    void exitProgram() override {}
};

/// The lines that what happens on the stage would leave.
struct StageJournal : testing::Test {
    StubHost host;
    SilentWindow window;
    std::vector<std::string> lines;
    CTnStage stage{host.tn_lib_proxy(), host.tn_micro_proxy()};
    std::optional<StageWatch> watch;

    StageJournal() {
        watch.emplace(stage, window,
                      [this](const JournalEntry& entry) { lines.push_back(journalLine("t", entry)); });
        stage.MoveEnd = [this](Integer) { watch->moveEnded(); };
    }
};

struct JournalFile : testing::Test {
    TempFolder folder;
    std::vector<std::string> complaints;

    Journal open(const std::string& name, const FileLimit& limit = {}) {
        return {folder / name, [] { return std::string("now"); },
                [this](const std::string& trouble) { complaints.push_back(trouble); }, limit};
    }
};

const JournalEntry aMove{"move", StagePosition{1, 2, 3}, StagePosition{-4, 5, 6}, "ended"};

} // namespace

TEST(JournalLine, IsTimeWhatFromToAndResult) {
    EXPECT_EQ(journalLine("2026-11-21T07:00:00.125+01:00", aMove),
              "2026-11-21T07:00:00.125+01:00,move,1,2,3,-4,5,6,ended\n");
}

TEST(JournalLine, HasAsManyFieldsAsTheHeaderEvenIfSomeAreUnknown) {
    const auto commas = [](std::string_view line) { return std::count(line.begin(), line.end(), ','); };
    EXPECT_EQ(commas(journalLine("t", {"request", {}, {}, "OCUVA_WAKEUP"})), commas(journalHeader));
    EXPECT_EQ(journalLine("t", {"request", {}, {}, "OCUVA_WAKEUP"}), "t,request,,,,,,,OCUVA_WAKEUP\n");
}

TEST(JournalLine, PutsTextsThatWouldBreakItInQuotationMarks) {
    EXPECT_THAT(journalLine("t", {"picture", {}, {}, "/home/a,b/\"new\".tif"}),
                HasSubstr(R"(,"/home/a,b/""new"".tif")"));
    EXPECT_THAT(journalLine("t", {"picture", {}, {}, " blank"}), HasSubstr(R"(," blank")"));
}

TEST(JournalLine, IsOneLineForAnyText) {
    EXPECT_EQ(journalLine("t", {"picture", {}, {}, "a\r\nb"}), "t,picture,,,,,,,a  b\n");
}

TEST_F(JournalFile, BeginsWithTheHeaderOnce) {
    open("journal.csv").write(aMove);
    open("journal.csv").write(aMove);
    EXPECT_EQ(folder.read("journal.csv"),
              std::string(journalHeader) + journalLine("now", aMove) + journalLine("now", aMove));
}

TEST_F(JournalFile, HasTheHeaderInEachFileAfterARotation) {
    Journal journal = open("journal.csv", {200, 2});
    for (int i = 0; i < 20; ++i) {
        journal.write(aMove);
    }
    for (const char* name : {"journal.csv", "journal.csv.1", "journal.csv.2"}) {
        ASSERT_TRUE(folder.has(name)) << name;
        EXPECT_EQ(folder.read(name).rfind(journalHeader, 0), 0u) << name;
        EXPECT_LE(folder.read(name).size(), 200 + journalHeader.size()) << name;
    }
}

TEST_F(JournalFile, ThatCannotBeOpenedIsReportedOnce) {
    Journal journal = open("nowhere/journal.csv");
    journal.write(aMove);
    journal.write(aMove);
    ASSERT_EQ(complaints.size(), 1u);
    EXPECT_THAT(complaints.front(), HasSubstr("journal.csv cannot be opened"));
}

TEST_F(JournalFile, ContinuesWhenItsFolderIsBackAndReportsTheNextFailure) {
    std::filesystem::create_directory(folder / "sub");
    Journal journal = open("sub/journal.csv");
    journal.write(aMove);
    for (int trouble = 1; trouble <= 2; ++trouble) {
        std::filesystem::rename(folder / "sub", folder / "away");
        journal.write(aMove);
        journal.write(aMove);
        EXPECT_EQ(complaints.size(), static_cast<std::size_t>(trouble));
        std::filesystem::rename(folder / "away", folder / "sub");
        journal.write(aMove);
    }
    EXPECT_EQ(folder.lines("sub/journal.csv").size(), 1u + 3u)
        << "the header, and a line before and after each";
}

#ifdef __linux__
TEST(JournalInADevice, IsNotWrittenAndReportedOnce) {
    std::vector<std::string> complaints;
    Journal journal(
        "/dev/full", [] { return std::string("now"); },
        [&](const std::string& trouble) { complaints.push_back(trouble); });
    journal.write(aMove);
    journal.write(aMove);
    ASSERT_EQ(complaints.size(), 1u);
    EXPECT_THAT(complaints.front(), HasSubstr("/dev/full cannot be opened (It is not a regular file)"));
}
#endif

TEST_F(StageJournal, RecordsAMoveFromTheShownPositionToItsEnd) {
    watch->UpdateStagePos();
    host.position[axisX] = 100;
    watch->SyncStageMove(axisAll);
    watch->tick();
    EXPECT_THAT(lines, ElementsAre("t,move,0,0,0,100,0,0,ended\n"));
}

TEST_F(StageJournal, LeavesOutWhereAMoveBeganWhenThatWasNeverRead) {
    watch->SyncStageMove(axisAll);
    watch->tick();
    EXPECT_THAT(lines, ElementsAre("t,move,,,,0,0,0,ended\n"));
}

TEST_F(StageJournal, DoesNotRecordPositionsThatWereOnlyRead) {
    watch->UpdateStagePos();
    watch->moveEnded();
    EXPECT_THAT(lines, IsEmpty());
}

TEST_F(StageJournal, RecordsAMoveThatWasStillRunningAtTheProgramsEnd) {
    host.status[axisX] = {1};
    watch->SyncStageMove(axisAll);
    watch->tick();
    watch.reset();
    EXPECT_THAT(lines, ElementsAre("t,move,,,,,,,not ended when the program ended\n"));
}

TEST_F(StageJournal, CausesNoHostCalls) {
    watch->SyncStageMove(axisAll);
    watch->tick();
    EXPECT_THAT(host.calls, ElementsAre("TarnStartStage(0)", "TarnReadStageStatus(1, 0)",
                                        "TarnReadStageStatus(2, 0)", "TarnReadStageStatus(3, 0)",
                                        "TarnReadStagePos(1)", "TarnReadStagePos(2)", "TarnReadStagePos(3)"));
}

TEST_F(StageJournal, RecordsOnlyTheHostsResultOfAFocusSearch) {
    NoAutomation automation;
    CTnVideoBoard board{host.tn_video()};
    const CTnVideoImage image{host.tn_video(), host.tn_vduti(), automation};
    for (const Long answer : {TARN_FOCUS_FOUND, TARN_FOCUS_EDGE, TARN_FOCUS_NONE}) {
        host.results["TarnAutoFocusExt"] = answer;
        doFocus(stage, *watch, board, image);
    }
    EXPECT_THAT(lines, ElementsAre("t,focus,,,,0,0,0,found\n", "t,focus,0,0,0,0,0,0,edge of the range\n",
                                   "t,focus,0,0,0,0,0,0,the host reported no focus\n"));
    lines.clear();
    for (const Long answer : {1, -1}) { // of a host that says nothing about where the search ended
        host.results["TarnAutoFocusExt"] = answer;
        doFocus(stage, *watch, board, image);
    }
    EXPECT_THAT(lines, ElementsAre("t,focus,0,0,0,0,0,0,searched\n", "t,focus,0,0,0,0,0,0,searched\n"));
}

TEST(RequestJournal, RecordsEachRequestOfTheHostAndNoOtherMessage) {
    StubHost host;
    ProcessFlags flags;
    DeafWindow window;
    std::vector<std::string> lines;
    LogLineSurroundings surroundings;
    surroundings.journal = [&](const JournalEntry& entry) { lines.push_back(journalLine("t", entry)); };
    const auto notifier = host.createNotifier();
    modServer server(
        flags, host.tn_log(), *notifier, window, [](Long soFar) { return soFar; }, surroundings);
    server.onNotify({{}, {}, {}, "OCUVA_WAKEUP"});
    server.onNotify({{}, {}, {}, "OCUVA_NONSENSE"});
    EXPECT_THAT(lines, ElementsAre("t,request,,,,,,,OCUVA_WAKEUP\n"));
}
