#include "foundation/text.h"

#include <climits>
#include <gtest/gtest.h>

namespace {

TEST(Text, OrderIsBySignedBytes) {
    const char* const order[] = {"\x80", "\xff", "\xffz", "", " ", "A", "a", "aZ", "aa", "ab"};
    for (const char* const& a : order) {
        for (const char* const& b : order) {
            EXPECT_EQ(text_less(a, b), &a < &b ? 1 : 0) << a << " " << b;
            EXPECT_EQ(text_equal(a, b), &a == &b ? 1 : 0) << a << " " << b;
        }
    }
}

TEST(Text, NumbersAreReadWithoutValidation) {
    EXPECT_EQ(int_of_text(" \t-7a"), -7);
    EXPECT_EQ(int_of_text("- 5"), 0);
    EXPECT_EQ(int_of_text("2147483648"), 2147483647);
    EXPECT_EQ(int_of_text("-99999999999999999999"), INT_MIN);
}

TEST(Text, NumbersAreWrittenInTheFormatOfTheirType) {
    EXPECT_STREQ(number_text(-0.0), "-0");
    EXPECT_STREQ(number_text(1234567890.0), "1.23456789e+09");
    EXPECT_STREQ(number_text(std::int64_t{-9007199254740993}), "-9007199254740992");
    format_scratch("").clear();
    EXPECT_EQ(format_scratch("   %4d   ").n_max, 1265);
    EXPECT_EQ(std::strlen(format_number("%2000d", 1)), 1264U);  // cut at the capacity
}

TEST(Text, HalvesRoundAwayFromZero) {
    const double rows[][2] = {
        {0.49, 0}, {0.5, 1}, {-0.5, -1}, {-2.5, -3}, {2147483647.25, 2147483647}};
    for (const auto& [x, rounded] : rows) EXPECT_EQ(round_nearest(x), rounded) << x;
    for (const double x : {2147483647.5, -2147483648.5, 1e300})
        EXPECT_EQ(round_nearest(x), INT_MIN);
}

}  // namespace
