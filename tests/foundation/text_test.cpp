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

TEST(Text, Lookups) {
    EXPECT_EQ(not_found, -2147483647 - 1);
    EXPECT_EQ(text_index('b', "abcb"), 1);
    EXPECT_EQ(text_index('d', "abc"), not_found);
    EXPECT_EQ(text_index('\0', "abc"), not_found);
    const struct {
        const char *text, *prefix;
        int starts;
    } rows[] = {{"abc", "ab", 1}, {"ab", "abc", 0}, {"abc", "b", 0}, {"abc", "", 1}, {"", "", 1}};
    for (const auto& row : rows) {
        EXPECT_EQ(text_starts(row.text, row.prefix), row.starts) << row.text << " " << row.prefix;
    }
    for (int c = -128; c < 128; ++c) {
        char_set_3 one("");
        one.insert(static_cast<char>(c));
        for (int d = -128; d < 128; ++d) EXPECT_EQ(one.contains(static_cast<char>(d)), c == d);
        const bool member = c == 'x' || c == -1;
        EXPECT_EQ(char_set_3("x\xff").contains(static_cast<char>(c)), member) << c;
    }
}

TEST(Text, NumbersAreReadWithoutValidation) {
    const struct {
        const char* text;
        int value;
        double real;
    } rows[] = {{"", 0, 0},    {"12abc", 12, 12}, {" \t-7", -7, -7}, {"+3", 3, 3},
                {"abc", 0, 0}, {"- 5", 0, 0},     {"1.5e2", 1, 150}, {".25", 0, 0.25}};
    for (const auto& row : rows) {
        EXPECT_EQ(int_of_text(row.text), row.value) << row.text;
        EXPECT_EQ(double_of_text(row.text), row.real) << row.text;
    }
    EXPECT_EQ(int_of_text("2147483648"), 2147483647);
    EXPECT_EQ(int_of_text("-99999999999999999999"), -2147483647 - 1);
}

TEST(Text, NumbersAreWrittenInTheFormatOfTheirType) {
    EXPECT_STREQ(number_text(-2147483647 - 1), "-2147483648");
    EXPECT_STREQ(number_text(-0.0), "-0");
    EXPECT_STREQ(number_text(1.0 / 3), "0.333333333");
    EXPECT_STREQ(number_text(1234567890.0), "1.23456789e+09");
    EXPECT_STREQ(number_text(std::uint64_t{9007199254740993U}), "9007199254740992");
    EXPECT_STREQ(number_text(~std::uint64_t{0}), "18446744073709551616");
    EXPECT_STREQ(format_number(" %4d", -12), "  -12");
    format_scratch("").clear();
    EXPECT_EQ(format_scratch("%d").n_max, 1258);
    EXPECT_EQ(format_scratch(" %4d").n_max, 1260);
    EXPECT_EQ(format_scratch("   %4d   ").n_max, 1265);
    EXPECT_EQ(std::strlen(format_number("%2000d", 1)), 1264U);  // cut at the capacity
}

TEST(Text, HalvesRoundAwayFromZero) {
    const struct {
        double x;
        int rounded;
    } rows[] = {{0.49, 0}, {0.5, 1}, {-0.5, -1}, {-0.49, 0}, {2.4, 2}, {2.5, 3}, {-2.5, -3}};
    for (const auto& row : rows) EXPECT_EQ(round_nearest(row.x), row.rounded) << row.x;
    EXPECT_EQ(round_nearest(2147483647.25), 2147483647);
    for (const double x : {2147483647.5, -2147483648.5, 1e300, -1e300}) {
        EXPECT_EQ(round_nearest(x), -2147483647 - 1) << x;
    }
}

}  // namespace
