#include "standards/StandardList.h"
#include "tests/support/NamesOnList.h"
#include "tests/support/StubHost.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <stdexcept>

using namespace ocuva;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

namespace {

struct ProgramKilled : std::runtime_error {
    ProgramKilled()
        : std::runtime_error("killed") {}
};

struct CutOffList : testing::Test {
    TempFolder folder;
    StubHost host;
    StandardList list{host.tn_reg(), host.tn_lib_proxy(), folder / "standards.unfinished"};

    void SetUp() override { list.store({"a", "b", "c", "d"}); }

    std::vector<std::string> names() const { return namesOn(list); }
    /// The program ends in the middle of that call of the host, counted from 1.
    void storeAndDieAt(int call, const std::vector<std::string>& stored) {
        int calls = 0;
        host.onCall = [&calls, call](const std::string&) {
            if (++calls == call) {
                throw ProgramKilled();
            }
        };
        try {
            list.store(stored);
        } catch (const ProgramKilled&) {
        }
        host.onCall = {};
    }
};

} // namespace

TEST_F(CutOffList, IsStoredInTheOrderOfClearAndAppend) {
    host.calls.clear();
    EXPECT_TRUE(list.store({"x", "y"}));
    EXPECT_THAT(
        host.callsOf("TarnRegisterSetString"),
        ElementsAre("TarnRegisterSetString(\"StandardList\", \"Standard1\", \"x\", \"Ocuva.INI\")",
                    "TarnRegisterSetString(\"StandardList\", \"StandardListSize\", \"1\", \"Ocuva.INI\")",
                    "TarnRegisterSetString(\"StandardList\", \"Standard2\", \"y\", \"Ocuva.INI\")",
                    "TarnRegisterSetString(\"StandardList\", \"StandardListSize\", \"2\", \"Ocuva.INI\")"));
    EXPECT_FALSE(folder.has("standards.unfinished"));
}

TEST_F(CutOffList, IsCompletedByTheNextStartAfterAKillAtAnyStep) {
    const std::vector<std::string> edited{"b", "a", "d"};
    for (int call = 1; call <= 9; ++call) {
        list.store({"a", "b", "c", "d"});
        storeAndDieAt(call, edited);
        EXPECT_THAT(list.finishStoring(), Optional(3U)) << "call " << call;
        EXPECT_EQ(names(), edited) << "call " << call;
        EXPECT_FALSE(folder.has("standards.unfinished"));
    }
}

TEST_F(CutOffList, ACompleteListIsNotStoredAgainAtTheStart) {
    ASSERT_TRUE(UnfinishedList(folder / "standards.unfinished").keep({"a", "b", "c", "d"}));
    host.calls.clear();
    EXPECT_EQ(list.finishStoring(), std::nullopt);
    EXPECT_THAT(host.callsOf("TarnRegisterSetString"), IsEmpty());
    EXPECT_FALSE(folder.has("standards.unfinished"));
    host.calls.clear();
    EXPECT_EQ(list.finishStoring(), std::nullopt);
    EXPECT_THAT(host.calls, IsEmpty());
}

TEST_F(CutOffList, AHostThatRefusesWritesKeepsItForTheNextStart) {
    host.results["TarnRegisterSetString"] = 0;
    EXPECT_FALSE(list.store({"b", "a"}));
    list.finishStoring();
    EXPECT_TRUE(folder.has("standards.unfinished"));
    host.results.clear();
    EXPECT_THAT(list.finishStoring(), Optional(2U));
    EXPECT_THAT(names(), ElementsAre("b", "a"));
}

TEST_F(CutOffList, AnIncompleteFileIsIgnored) {
    const UnfinishedList kept(folder / "standards.unfinished");
    ASSERT_TRUE(kept.keep({"x", "y"}));
    const std::string whole = folder.read("standards.unfinished");
    for (std::size_t length = 0; length + 1 < whole.size(); ++length) {
        folder.write("standards.unfinished", whole.substr(0, length));
        EXPECT_EQ(kept.names(), std::nullopt) << length;
    }
    folder.write("standards.unfinished", whole);
    EXPECT_THAT(kept.names(), Optional(ElementsAre("x", "y")));
    kept.drop();
    EXPECT_EQ(kept.names(), std::nullopt);
}

TEST_F(CutOffList, ANameWithALineEndIsNotKept) {
    const UnfinishedList kept(folder / "standards.unfinished");
    EXPECT_FALSE(kept.keep({"x\ny"}));
    EXPECT_FALSE(folder.has("standards.unfinished"));
    EXPECT_FALSE(UnfinishedList({}).keep({"x"}));
}
