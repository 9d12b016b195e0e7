#include "hosts/common/focus/FocusPlan.h"

#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>

namespace hosts {
namespace {

using testing::HasSubstr;

struct FocusPlanOf : testing::Test {
    TempFolder folder;
    HostLog log{folder / "tarn.log"};
    Stores stores{folder.path(), log};

    FocusPlan read(const std::string& ini) {
        folder.write("Ocuva.INI", ini);
        return readFocusPlan(stores, log);
    }
    std::size_t logLines() { return folder.has("tarn.log") ? folder.lines("tarn.log").size() : 0; }
};

TEST_F(FocusPlanOf, AnEmptyStoreIsTheDefault) {
    EXPECT_EQ(readFocusPlan(stores, log), FocusPlan());
    EXPECT_EQ(logLines(), 0U);
}

TEST_F(FocusPlanOf, EveryParameterIsTakenFromTheStore) {
    const FocusPlan plan = read("[Configuration]\nAutofocusOnAllImage=0\nAutofocusOnImageFraction=4\n"
                                "UseTransmittedLight=1\n[Fine Parameters]\nZ Range=41\nNumber of points=9\n");
    EXPECT_EQ(plan, (FocusPlan{41, 9, 4, true}));
    EXPECT_EQ(logLines(), 0U);
}

TEST_F(FocusPlanOf, TheFractionCountsOnlyWithoutTheWholeImage) {
    EXPECT_EQ(read("[Configuration]\nAutofocusOnAllImage=1\nAutofocusOnImageFraction=4\n").fraction, 1);
    EXPECT_EQ(read("[Configuration]\nAutofocusOnAllImage=-1\nAutofocusOnImageFraction=99\n").fraction, 1);
    EXPECT_EQ(logLines(), 0U);
    EXPECT_EQ(read("[Configuration]\nAutofocusOnAllImage=0\n").fraction, 3);
}

TEST_F(FocusPlanOf, AChangeIsSeenByTheNextRead) {
    EXPECT_EQ(read("[Fine Parameters]\nZ Range=30\n").range, 30);
    stores.setString("Fine Parameters", "Z Range", "50", "Ocuva.INI");
    EXPECT_EQ(readFocusPlan(stores, log).range, 50);
}

TEST_F(FocusPlanOf, MeaninglessValuesAreLimitedAndLogged) {
    struct {
        const char* key;
        const char* value;
        FocusPlan plan;
    } const rows[] = {
        {"[Fine Parameters]\nZ Range", "-18", {2, 7, 1, false}},
        {"[Fine Parameters]\nZ Range", "0", {2, 7, 1, false}},
        {"[Fine Parameters]\nZ Range", "2147483647", {2000, 7, 1, false}},
        {"[Fine Parameters]\nZ Range", "99999999999", {18, 7, 1, false}},
        {"[Fine Parameters]\nZ Range", "wide", {18, 7, 1, false}},
        {"[Fine Parameters]\nZ Range", "", {18, 7, 1, false}},
        {"[Fine Parameters]\nNumber of points", "2", {18, 3, 1, false}},
        {"[Fine Parameters]\nNumber of points", "-2147483648", {18, 3, 1, false}},
        {"[Fine Parameters]\nNumber of points", "102", {18, 101, 1, false}},
        {"[Configuration]\nAutofocusOnAllImage=0\nAutofocusOnImageFraction", "1", {18, 7, 2, false}},
        {"[Configuration]\nAutofocusOnAllImage=0\nAutofocusOnImageFraction", "9", {18, 7, 8, false}},
        {"[Configuration]\nAutofocusOnAllImage", "whole", {18, 7, 1, false}},
        {"[Configuration]\nUseTransmittedLight", "yes", {18, 7, 1, false}},
    };
    for (const auto& row : rows) {
        const std::size_t before = logLines();
        EXPECT_EQ(read(std::string(row.key) + "=" + row.value + "\n"), row.plan)
            << row.key << "=" << row.value;
        EXPECT_EQ(logLines(), before + 1) << row.key << "=" << row.value;
        EXPECT_THAT(folder.lines("tarn.log").back(), HasSubstr("=\"" + std::string(row.value) + "\""));
    }
}

} // namespace
} // namespace hosts
