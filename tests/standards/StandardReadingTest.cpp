#include "standards/StandardReading.h"

#include <gtest/gtest.h>

using namespace ocuva;

namespace {

StandardReading reading(int readable, int unreadable) {
    StandardReading made;
    for (int i = 0; i < readable; ++i) {
        made.add("good", true);
    }
    for (int i = 0; i < unreadable; ++i) {
        made.add("bad", false);
    }
    return made;
}

} // namespace

TEST(StandardReading, AListMayBeStoredUnlessTheDatabaseGaveNothingAtAll) {
    EXPECT_TRUE(reading(0, 0).mayBeStored());
    EXPECT_TRUE(reading(3, 0).mayBeStored());
    EXPECT_TRUE(reading(1, 2).mayBeStored());
    EXPECT_FALSE(reading(0, 1).mayBeStored());
    EXPECT_FALSE(reading(0, 3).mayBeStored());
}

TEST(StandardReading, WithoutADatabaseNothingMayBeStored) {
    for (StandardReading each : {reading(0, 0), reading(0, 2)}) {
        each.databaseOpened = false;
        EXPECT_FALSE(each.mayBeStored());
        EXPECT_FALSE(each.mayBeStoredAfterInsert());
    }
}

TEST(StandardReading, AnUnreadableStandardThatIsAloneOnTheListMayBeTakenOffAgain) {
    EXPECT_TRUE(reading(0, 1).mayBeStoredAfterInsert());
    EXPECT_TRUE(reading(2, 1).mayBeStoredAfterInsert());
    EXPECT_FALSE(reading(0, 2).mayBeStoredAfterInsert());
}

TEST(StandardReading, KnowsWhetherTheLastNameCouldBeRead) {
    EXPECT_TRUE(reading(1, 1).lastIsUnreadable);
    EXPECT_EQ(reading(1, 1).last, "bad");
    EXPECT_FALSE(reading(1, 0).lastIsUnreadable);
}
