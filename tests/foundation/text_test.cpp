#include "foundation/text.h"

#include <gtest/gtest.h>

namespace {

TEST(Text, OrderIsBySignedBytes) {
    const char* const order[] = {"\x80", "\xff", "\xffz", "", " ", "A", "a", "aZ", "aa", "ab"};
    const int n = static_cast<int>(std::size(order));
    for (int i = 0; i < n; ++i) {
        for (int k = 0; k < n; ++k) {
            EXPECT_EQ(text_less(order[i], order[k]), i < k ? 1 : 0) << i << " " << k;
            EXPECT_EQ(text_equal(order[i], order[k]), i == k ? 1 : 0) << i << " " << k;
        }
    }
}

TEST(Text, NumbersAreReadWithoutValidation) {
    EXPECT_EQ(int_of_text(" \t-7a"), -7);
    EXPECT_EQ(int_of_text("- 5"), 0);
    EXPECT_EQ(int_of_text("2147483648"), 2147483647);
    EXPECT_EQ(int_of_text("-99999999999999999999"), -2147483647 - 1);
    EXPECT_EQ(double_of_text("1.5e2x"), 150);
}

TEST(Text, NumbersAreWrittenInTheFormatOfTheirType) {
    EXPECT_STREQ(number_text(-0.0), "-0");
    EXPECT_STREQ(number_text(1.0 / 3), "0.333333333");
    EXPECT_STREQ(number_text(1234567890.0), "1.23456789e+09");
    EXPECT_STREQ(number_text(std::uint64_t{9007199254740993U}), "9007199254740992");
    EXPECT_STREQ(number_text(std::int64_t{-9007199254740993}), "-9007199254740992");
    format_scratch("").clear();
    EXPECT_EQ(format_scratch("   %4d   ").n_max, 1265);
    EXPECT_EQ(std::strlen(format_number("%2000d", 1)), 1264U);  // cut at the capacity
}

TEST(Text, HalvesRoundAwayFromZero) {
    const double rows[][2] = {
        {0.49, 0}, {0.5, 1}, {-0.5, -1}, {-2.5, -3}, {2147483647.25, 2147483647}};
    for (const auto& [x, rounded] : rows) EXPECT_EQ(round_nearest(x), rounded) << x;
    for (const double x : {2147483647.5, -2147483648.5, 1e300, -1e300}) {
        EXPECT_EQ(round_nearest(x), -2147483647 - 1) << x;
    }
}

}  // namespace
