#include "display/NiceNumber.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

using namespace ocuva;

namespace {

// The rule computed from the decimal text: the leading digit chooses from a table, and all further digits
// become zeros.
Integer byTheTable(int value) {
    static constexpr const char* digits[]{"1", "1", "2", "2", "5", "5", "5", "5", "10", "10"};
    std::string text = std::to_string(value);
    const bool negative = text.front() == '-';
    if (negative) {
        text.erase(0, 1);
    }
    const char* chosen = negative ? "1" : digits[text.front() - '0'];
    return static_cast<Integer>(std::stoi(chosen + std::string(text.size() - 1, '0')));
}

} // namespace

TEST(NiceNumber, IsTheTablesNumberForEverySixteenBitValue) {
    for (int value = std::numeric_limits<Integer>::min(); value <= std::numeric_limits<Integer>::max();
         ++value) {
        ASSERT_EQ(nearScaleValue(static_cast<Integer>(value)), byTheTable(value)) << value;
    }
}

TEST(NiceNumber, TakesTheLeadingDigitCutNotRounded) {
    const std::pair<Integer, Integer> examples[]{
        {1, 1},     {3, 2},   {4, 5},   {7, 5},   {8, 10},   {9, 10}, {10, 10},       {99, 100},
        {100, 100}, {19, 10}, {37, 20}, {75, 50}, {95, 100}, {0, 1},  {32767, 20000}, {160, 100}};
    for (const auto& [value, expected] : examples) {
        EXPECT_EQ(nearScaleValue(value), expected) << value;
    }
}

TEST(NiceNumber, OfANegativeNumberIsTheOneOfItsDecade) {
    for (Integer digit = -9; digit < 0; ++digit) {
        EXPECT_EQ(nearScaleValue(digit), 1) << digit;
    }
    EXPECT_EQ(nearScaleValue(-95), 10);
    EXPECT_EQ(nearScaleValue(-32768), 10000);
}
