#include "hostlink/UniqueKey.h"

#include "tests/support/StubHost.h"

#include <gtest/gtest.h>

using namespace ocuva;

TEST(UniqueKey, IsTheHosts) {
    StubHost host;
    host.uniqueKey = "0f8fad5b-d9cb-469f-a165-70867728950e";
    EXPECT_EQ(uniqueObjectKey(host.Tn_log()), host.uniqueKey);
    EXPECT_EQ(host.calls, std::vector<std::string>{"TarnGetUniqueObjectKey(40)"});
}

TEST(UniqueKey, IsEmptyOrCutForAnyReportedLength) {
    StubHost host;
    host.results["TarnGetUniqueObjectKey"] = -1;
    EXPECT_EQ(uniqueObjectKey(host.Tn_log()), "");
    host.results["TarnGetUniqueObjectKey"] = 1000;
    EXPECT_EQ(uniqueObjectKey(host.Tn_log()).size(), 40U);
}
