#include "platform/SystemAutomation.h"

#include <gtest/gtest.h>

namespace ocuva {
namespace {

TEST(SystemAutomation, AnUnregisteredClassGivesNoObject) {
    const auto automation = systemAutomation();
    EXPECT_EQ(automation->create("MILSYSTEM.System"), nullptr);
    EXPECT_EQ(automation->create(""), nullptr);
}

#ifdef _WIN32

TEST(SystemAutomation, ARegisteredClassIsStartedAndTakesItsPropertiesByName) {
    const auto automation = systemAutomation();
    const auto dictionary = automation->create("Scripting.Dictionary");
    ASSERT_NE(dictionary, nullptr);
    EXPECT_TRUE(dictionary->setProperty("CompareMode", "1"));
    EXPECT_FALSE(dictionary->setProperty("SystemType", "1"));
}

#endif

} // namespace
} // namespace ocuva
