#include "hosts/common/services/Stores.h"

#include "base/FileLock.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>

using namespace hosts;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

struct StoresRig {
    TempFolder folder;
    HostLog log{folder / "log"};
    Stores stores{folder.path(), log, std::chrono::seconds(60)};

    std::vector<std::string> logLines() const { return folder.lines("log"); }
    ocuva::Long a(const std::string& store = "S.INI") { return stores.getInt("A", "k", -1, store); }
};

/// A clock an hour ahead: to it every file is old, so that stamps alone are trusted.
std::int64_t hourAheadNs() { return wallClockNs() + 3'600'000'000'000; }

} // namespace

TEST(Stores, AMissingStoreGivesDefaultsAndIsNotMade) {
    StoresRig rig;
    EXPECT_EQ(rig.stores.getInt("A", "k", 42, "TARN.INI"), 42);
    EXPECT_EQ(rig.stores.getString("A", "k", "none", "TARN.INI"), "none");
    EXPECT_EQ(rig.stores.entryCount("A", "TARN.INI"), 0);
    EXPECT_FALSE(rig.folder.has("TARN.INI"));
    EXPECT_THAT(rig.logLines(), IsEmpty());
}

TEST(Stores, EachStoreIsAFileOfExactlyItsName) {
    StoresRig rig;
    EXPECT_TRUE(rig.stores.setString("tn_video", "VGAMode", "1", "TARN"));
    EXPECT_TRUE(rig.stores.setString("tn_video", "VideoMag", "400", "TARN.INI"));
    EXPECT_EQ(rig.folder.read("TARN"), "[tn_video]\nVGAMode=1\n");
    EXPECT_EQ(rig.folder.read("TARN.INI"), "[tn_video]\nVideoMag=400\n");
    EXPECT_EQ(rig.stores.getInt("tn_video", "VGAMode", 0, "TARN"), 1);
    EXPECT_EQ(rig.stores.getInt("tn_video", "VGAMode", 0, "TARN.INI"), 0);
}

TEST(Stores, AnEmptyValueIsAValueToGetStringAndNoneToGetInt) {
    StoresRig rig;
    rig.folder.write("S.INI", "[A]\nk=\n");
    EXPECT_EQ(rig.stores.getString("A", "k", "default", "S.INI"), "");
    EXPECT_EQ(rig.a(), -1);
}

TEST(Stores, EntriesAreNumberedFromOne) {
    StoresRig rig;
    rig.folder.write("S.INI", "[A]\nx=1\ny = 2\n");
    EXPECT_EQ(rig.stores.entryCount("A", "S.INI"), 2);
    EXPECT_EQ(rig.stores.entry("A", 1, "S.INI"), "x=1");
    EXPECT_EQ(rig.stores.entry("A", 2, "S.INI"), "y=2");
    for (const ocuva::Long number : {0, 3, -1, 2147483647})
        EXPECT_EQ(rig.stores.entry("A", number, "S.INI"), "");
}

TEST(Stores, AnEditKeepsCommentsOrderAndLineEnds) {
    StoresRig rig;
    rig.folder.write("S.INI", "; mine\r\n[A]\r\nk = 1\r\n\r\n[B]\r\nz=1");
    EXPECT_TRUE(rig.stores.setString("a", "K", "2", "S.INI"));
    EXPECT_EQ(rig.folder.read("S.INI"), "; mine\r\n[A]\r\nk = 2\r\n\r\n[B]\r\nz=1");
}

TEST(Stores, AChangeByAnotherWriterIsSeenAtTheNextRead) {
    StoresRig rig;
    rig.folder.write("S.INI", "[A]\nk=1\n");
    EXPECT_EQ(rig.a(), 1);
    Stores other(rig.folder.path(), rig.log);
    for (int value = 2; value < 300; ++value) {
        EXPECT_TRUE(other.setString("A", "k", std::to_string(value), "S.INI"));
        EXPECT_EQ(rig.a(), value);
    }
    std::filesystem::remove(rig.folder / "S.INI");
    EXPECT_EQ(rig.a(), -1);
}

TEST(Stores, AnOldFileIsTrustedByItsStampAndEveryNewStampIsNoticed) {
    StoresRig rig;
    Stores trusting(rig.folder.path(), rig.log, std::chrono::seconds(60), hourAheadNs);
    std::string value;
    for (int round = 0; round < 20; ++round) {
        value += '1';
        rig.folder.write("S.INI", "[A]\nk=" + value + "\n");
        EXPECT_EQ(trusting.getString("A", "k", "", "S.INI"), value);
        const auto revision = trusting.revision("S.INI");
        EXPECT_EQ(trusting.getString("A", "k", "", "S.INI"), value);
        EXPECT_EQ(trusting.revision("S.INI"), revision);
    }
    std::filesystem::remove(rig.folder / "S.INI");
    EXPECT_EQ(trusting.getString("A", "k", "gone", "S.INI"), "gone");
}

TEST(Stores, AStampProvesNothingWhileItsFileIsYoungerThanACoarseClockTick) {
    const FileStamp stamp{10, 5'000'000'000, 7'000'000'000, 1};
    EXPECT_FALSE(isSettled(stamp, 7'000'000'000));
    EXPECT_FALSE(isSettled(stamp, 7'000'000'000 + settleNs));
    EXPECT_TRUE(isSettled(stamp, 7'000'000'001 + settleNs));
    EXPECT_FALSE(isSettled(stamp, 0)) << "a stamp from the future";
}

TEST(Stores, AStampOfAFineClockProvesItsContentSooner) {
    const FileStamp stamp{10, 5'004'000'000, 5'004'000'000, 1};
    EXPECT_FALSE(isSettled(stamp, 5'004'000'000 + fineSettleNs));
    EXPECT_TRUE(isSettled(stamp, 5'004'000'001 + fineSettleNs));
}

TEST(Stores, AValueThatIsNotANumberGivesTheDefaultAndOneLogLine) {
    StoresRig rig;
    rig.folder.write("S.INI", "[A]\nk=abc\nempty=\nlarge=99999999999\nnumber=12 pixels\n");
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(rig.stores.getInt("A", "k", 7, "S.INI"), 7);
        EXPECT_EQ(rig.stores.getInt("A", "empty", 7, "S.INI"), 7);
        EXPECT_EQ(rig.stores.getInt("A", "number", 7, "S.INI"), 12);
    }
    EXPECT_THAT(rig.logLines(), ElementsAre(HasSubstr("[A] k=abc in S.INI is no whole number; 7 is used")));
    EXPECT_EQ(rig.stores.getInt("A", "large", 7, "S.INI"), 7);
    EXPECT_EQ(rig.logLines().size(), 2u);
    EXPECT_EQ(rig.stores.getInt("A", "k", 7, "S.INI"), 7);
    rig.folder.write("S.INI", "[A]\nk=xyz\n");
    EXPECT_EQ(rig.stores.getInt("A", "k", 7, "S.INI"), 7);
    EXPECT_THAT(rig.logLines().back(), HasSubstr("k=xyz"));
    EXPECT_EQ(rig.logLines().size(), 3u);
}

TEST(Stores, TheLongestListOfStandardsIsReadInASecond) {
    StoresRig rig;
    std::string text = "[StandardList]\n";
    constexpr int longest = 32767;
    for (int i = 1; i <= longest; ++i)
        text += "Standard" + std::to_string(i) + "=/data/standards/" + std::to_string(i) + ".std\n";
    rig.folder.write("S.INI", text);
    const auto begun = std::chrono::steady_clock::now();
    for (int i = longest; i > 0; --i)
        ASSERT_EQ(rig.stores.getString("StandardList", "Standard" + std::to_string(i), "", "S.INI"),
                  "/data/standards/" + std::to_string(i) + ".std");
    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(3));
}

TEST(Stores, AnEditInPlaceOfTheSameLengthIsSeenAtTheNextRead) {
    StoresRig rig;
    for (int round = 0; round < 100; ++round)
        for (const char digit : {'1', '2', '3'}) {
            rig.folder.write("S.INI", std::string("[A]\nk=") + digit + "\n");
            EXPECT_EQ(rig.a(), digit - '0');
        }
}

TEST(Stores, TheRevisionChangesWithTheContentAndOnlyWithIt) {
    StoresRig rig;
    const auto empty = rig.stores.revision("S.INI");
    EXPECT_EQ(rig.stores.revision("S.INI"), empty);
    rig.folder.write("S.INI", "[A]\nk=1\n");
    const auto first = rig.stores.revision("S.INI");
    EXPECT_NE(first, empty);
    EXPECT_EQ(rig.stores.revision("S.INI"), first);
    EXPECT_TRUE(rig.stores.setString("A", "k", "1", "S.INI"));
    EXPECT_EQ(rig.stores.revision("S.INI"), first);
    EXPECT_TRUE(rig.stores.setString("A", "k", "2", "S.INI"));
    EXPECT_NE(rig.stores.revision("S.INI"), first);
}

TEST(Stores, ADamagedStoreGivesDefaultsWithOneLogLinePerContent) {
    StoresRig rig;
    rig.folder.write("S.INI", "garbage one\n");
    EXPECT_EQ(rig.a(), -1);
    EXPECT_EQ(rig.a(), -1);
    EXPECT_EQ(rig.stores.getString("A", "k", "d", "S.INI"), "d");
    EXPECT_THAT(rig.logLines(),
                ElementsAre(HasSubstr("S.INI cannot be read, defaults hold: it has lines but no section")));
    rig.folder.write("S.INI", "garbage two\n");
    EXPECT_EQ(rig.a(), -1);
    EXPECT_EQ(rig.logLines().size(), 2u);
}

TEST(Stores, ADamagedStoreIsKeptAsideAndNeverOverwritten) {
    StoresRig rig;
    const std::string garbage("\0\1garbage", 9);
    rig.folder.write("S.INI", garbage);
    rig.folder.write("S.INI.damaged-1", "older");
    EXPECT_TRUE(rig.stores.setString("A", "k", "1", "S.INI"));
    EXPECT_EQ(rig.folder.read("S.INI.damaged-1"), "older");
    EXPECT_EQ(rig.folder.read("S.INI.damaged-2"), garbage);
    EXPECT_EQ(rig.folder.read("S.INI"), "[A]\nk=1\n");
    EXPECT_EQ(rig.a(), 1);
    EXPECT_THAT(rig.logLines(),
                ElementsAre(HasSubstr("cannot be read"), HasSubstr("kept as S.INI.damaged-2")));
}

TEST(Stores, ARefusedWriteLeavesEvenADamagedStoreWhereItIs) {
    StoresRig rig;
    rig.folder.write("S.INI", "garbage\n");
    EXPECT_FALSE(rig.stores.setString("A", "k", "a\nb", "S.INI"));
    EXPECT_EQ(rig.folder.read("S.INI"), "garbage\n");
}

TEST(Stores, AStoreThatIsTooLargeIsDamaged) {
    StoresRig rig;
    rig.folder.write("S.INI", "[A]\nk=1\n");
    std::filesystem::resize_file(rig.folder / "S.INI", IniText::maxBytes + 1);
    EXPECT_EQ(rig.a(), -1);
    EXPECT_TRUE(rig.stores.setString("A", "k", "2", "S.INI"));
    EXPECT_EQ(std::filesystem::file_size(rig.folder / "S.INI.damaged-1"), IniText::maxBytes + 1);
    EXPECT_EQ(rig.a(), 2);
}

TEST(Stores, ALineBreakInAValueIsRefusedWithALogLine) {
    StoresRig rig;
    rig.folder.write("S.INI", "[A]\nk=1\n");
    EXPECT_FALSE(rig.stores.setString("A", "k", "1\n[B]", "S.INI"));
    EXPECT_FALSE(rig.stores.setString("A", "k", std::string_view("\0", 1), "S.INI"));
    EXPECT_EQ(rig.folder.read("S.INI"), "[A]\nk=1\n");
    EXPECT_EQ(rig.logLines().size(), 2u);
}

TEST(Stores, NamesThatLeaveTheFolderAreRefusedWithALogLine) {
    StoresRig rig;
    std::size_t lines = 0;
    for (const char* store :
         {"", ".", "..", "../S.INI", "a\\b", "/etc/passwd", "C:x", "a\nb", "S.INI.lock", "S.INI.ASIDE"}) {
        EXPECT_EQ(rig.stores.getInt("A", "k", 5, store), 5);
        EXPECT_FALSE(rig.stores.setString("A", "k", "1", store)) << store;
        EXPECT_EQ(rig.stores.getString("A", "k", "d", store), "d");
        EXPECT_EQ(rig.stores.entryCount("A", store), 0);
        EXPECT_EQ(rig.stores.entry("A", 1, store), "");
        lines += 5;
        EXPECT_EQ(rig.logLines().size(), lines) << store;
    }
}

TEST(Stores, AFolderInPlaceOfAStoreIsLeftAlone) {
    StoresRig rig;
    std::filesystem::create_directory(rig.folder / "S.INI");
    EXPECT_EQ(rig.a(), -1);
    EXPECT_FALSE(rig.stores.setString("A", "k", "1", "S.INI"));
    EXPECT_TRUE(std::filesystem::is_directory(rig.folder / "S.INI"));
    EXPECT_EQ(rig.logLines().size(), 2u);
}

TEST(Stores, AWriteProtectedStoreIsReadAndNotWritten) {
    StoresRig rig;
    rig.folder.write("S.INI", "[A]\nk=1\n");
    std::filesystem::permissions(rig.folder / "S.INI", std::filesystem::perms::owner_read);
    EXPECT_FALSE(rig.stores.setString("A", "k", "2", "S.INI"));
    EXPECT_EQ(rig.a(), 1);
    EXPECT_THAT(rig.logLines(), ElementsAre(HasSubstr("write-protected")));
}

TEST(Stores, AFolderThatCannotBeWrittenGivesALogLineAndFalse) {
    const TempFolder folder;
    folder.write("file", "");
    HostLog log(folder / "log");
    Stores stores(folder / "file", log);
    EXPECT_FALSE(stores.setString("A", "k", "1", "S.INI"));
    EXPECT_EQ(stores.getInt("A", "k", 3, "S.INI"), 3);
    EXPECT_THAT(folder.lines("log"), ElementsAre(HasSubstr("could not be written")));
}

#ifndef _WIN32 // a file has no such rights there
TEST(Stores, AWriteKeepsTheAccessRightsOfTheFile) {
    StoresRig rig;
    rig.folder.write("S.INI", "[A]\nk=1\n");
    const auto rights = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
    std::filesystem::permissions(rig.folder / "S.INI", rights);
    EXPECT_TRUE(rig.stores.setString("A", "k", "2", "S.INI"));
    EXPECT_EQ(std::filesystem::status(rig.folder / "S.INI").permissions(), rights);
}
#endif

TEST(Stores, SomebodyElsesFileCalledAsideIsLeftAlone) {
    StoresRig rig;
    rig.folder.write("S.INI", "[A]\nk=1\n");
    rig.folder.write("S.INI.aside", "somebody's own");
    EXPECT_TRUE(rig.stores.setString("A", "k", "3", "S.INI"));
    EXPECT_EQ(rig.folder.read("S.INI"), "[A]\nk=3\n");
    EXPECT_EQ(rig.folder.read("S.INI.aside"), "somebody's own");
}

TEST(Stores, AWriteFailsIfAnotherProcessHoldsTheLock) {
    StoresRig rig;
    rig.folder.write("S.INI", "[A]\nk=1\n");
    const ocuva::FileLock lock(rig.folder / "S.INI.lock", std::chrono::seconds(0));
    ASSERT_TRUE(lock.held());
    Stores hasty(rig.folder.path(), rig.log, std::chrono::milliseconds(0));
    EXPECT_FALSE(hasty.setString("A", "k", "2", "S.INI"));
    EXPECT_EQ(rig.a(), 1);
    EXPECT_THAT(rig.logLines(), ElementsAre(HasSubstr("another process keeps it locked")));
}
