#include "standards/StandardList.h"

#include "tests/support/StubHost.h"

#include <gmock/gmock.h>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct StoredList : testing::Test {
    StubHost host;
    StandardList list{host.tn_reg(), host.tn_lib_proxy()};

    std::string& stored(const std::string& key) { return host.settings["Ocuva.INI|StandardList|" + key]; }
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        std::string name;
        Integer index = 0;
        while (list.GetNextStandard(name, index)) {
            result.push_back(std::to_string(index) + " " + name);
        }
        return result;
    }
};

using StandardPosition = StoredList;

} // namespace

TEST_F(StoredList, WithoutASizeOrWithZeroIsEmptyAndLeavesTheArgumentsUntouched) {
    for (const char* size : {"", "0", "-3", "abc"}) {
        stored("StandardListSize") = size;
        stored("Standard1") = "a";
        std::string name = "before";
        Integer index = 0;
        EXPECT_FALSE(list.GetNextStandard(name, index)) << size;
        EXPECT_EQ(name, "before");
        EXPECT_EQ(index, 0);
    }
}

TEST_F(StoredList, SkipsHolesAndKeysBeyondItsSize) {
    stored("StandardListSize") = "3";
    stored("Standard1") = "one";
    stored("Standard2") = "";
    stored("Standard3") = "three";
    stored("Standard4") = "four";
    EXPECT_THAT(names(), ElementsAre("1 one", "3 three"));
}

TEST_F(StoredList, ReturnsALongerValueCutAt128Characters) {
    stored("StandardListSize") = "2";
    stored("Standard1") = std::string(128, 'a');
    stored("Standard2") = std::string(200, 'b');
    EXPECT_THAT(names(), ElementsAre("1 " + std::string(128, 'a'), "2 " + std::string(128, 'b')));
}

TEST_F(StoredList, AppendsBehindItsLastNumberAndCountsTheNewName) {
    list.AppendStandard("first", false);
    list.AppendStandard("second", false);
    EXPECT_EQ(stored("StandardListSize"), "2");
    EXPECT_THAT(names(), ElementsAre("1 first", "2 second"));
}

TEST_F(StoredList, StoresTheSameNameRepeatedly) {
    list.AppendStandard("quartz", false);
    list.AppendStandard("quartz", false);
    EXPECT_THAT(names(), ElementsAre("1 quartz", "2 quartz"));
}

TEST_F(StoredList, AppendingWithClearAndANameBecomesThatOneNameAndLeavesTheOldKeys) {
    list.AppendStandard("a", false);
    list.AppendStandard("b", false);
    list.AppendStandard("c", true);
    EXPECT_THAT(names(), ElementsAre("1 c"));
    EXPECT_EQ(stored("StandardListSize"), "1");
    EXPECT_EQ(stored("Standard2"), "b");
}

TEST_F(StoredList, AppendingNothingWithClearEmptiesItAndWithoutClearChangesNothing) {
    list.AppendStandard("a", false);
    host.calls.clear();
    list.AppendStandard("", false);
    EXPECT_THAT(host.callsOf("TarnRegisterSetString"), IsEmpty());
    list.AppendStandard("", true);
    EXPECT_THAT(
        host.callsOf("TarnRegisterSetString"),
        ElementsAre("TarnRegisterSetString(\"StandardList\", \"StandardListSize\", \"0\", \"Ocuva.INI\")"));
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(StoredList, DoesNotCountANameThatCouldNotBeWritten) {
    list.AppendStandard("a", false);
    host.results["TarnRegisterSetString"] = 0;
    host.calls.clear();
    list.AppendStandard("b", false);
    EXPECT_THAT(host.callsOf("TarnRegisterSetString"),
                ElementsAre("TarnRegisterSetString(\"StandardList\", \"Standard2\", \"b\", \"Ocuva.INI\")"));
    EXPECT_EQ(stored("StandardListSize"), "1");
}

TEST_F(StoredList, EndsAtThe16BitIndices) {
    stored("StandardListSize") = "70000";
    stored("Standard32767") = "last";
    stored("Standard32768") = "beyond";
    EXPECT_THAT(names(), ElementsAre("32767 last"));
    list.AppendStandard("more", false);
    EXPECT_EQ(stored("StandardListSize"), "70000");
}

TEST_F(StandardPosition, ComesFromTheHostsDatabaseAndTheHandleIsFreed) {
    host.dbObjects["/std/Quartz.std"] = {-9000, 4000, 12};
    const auto position = list.position("/std/Quartz.std");
    ASSERT_TRUE(position.has_value());
    EXPECT_EQ(*position, (StagePosition{-9000, 4000, 12}));
    EXPECT_THAT(host.dbHandles, IsEmpty());
    EXPECT_EQ(host.calls.front(), "TarnDbObjectNew(\"OCUVASTD\")");
}

TEST_F(StandardPosition, IsAbsentWithoutAHandleLeftWhenAnyStepFails) {
    host.dbObjects["q"] = {1, 2, 3};
    for (const char* failing : {"TarnDbObjectNew", "TarnDbObjectRead", "TarnDbGetStagePos"}) {
        host.results = {{failing, 0}};
        EXPECT_FALSE(list.position("q").has_value()) << failing;
        EXPECT_THAT(host.dbHandles, IsEmpty()) << failing;
    }
    host.results.clear();
    EXPECT_FALSE(list.position("unknown").has_value());
    EXPECT_THAT(host.dbHandles, IsEmpty());
}
