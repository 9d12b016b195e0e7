#include "hosts/common/services/UniqueKey.h"

#include "tests/support/Pattern.h"

#include <gmock/gmock.h>
#include <set>

TEST(UniqueKey, IsAUuidOfLowerCaseDigits) {
    EXPECT_THAT(hosts::uniqueKey(),
                ocuva::HasForm("[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}"));
}

TEST(UniqueKey, NoTwoAreEqual) {
    std::set<std::string> keys;
    for (int i = 0; i < 10000; ++i)
        EXPECT_TRUE(keys.insert(hosts::uniqueKey()).second);
}
