#include "foundation/text.h"

#include <climits>
#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>

#include "support/scratch_dir.h"

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

// A locale that writes 0,5; made where the system has the means, but no such locale.
bool set_decimal_commas() {
    for (const char* name : {"de_DE.UTF-8", "German"}) {
        if (std::setlocale(LC_NUMERIC, name) != nullptr) return true;
    }
#if __has_include(<unistd.h>) && !defined(_WIN32)
    if (std::system("localedef -f UTF-8 -i de_DE ./de_DE.UTF-8 2>/dev/null") != 0) return false;
    setenv("LOCPATH", ".", 1);
    return std::setlocale(LC_NUMERIC, "de_DE.UTF-8") != nullptr;
#else
    return false;
#endif
}

TEST(Text, NumbersHavePointsInAnyLocale) {
    const scratch_dir dir;
    if (!set_decimal_commas()) GTEST_SKIP() << "no locale with decimal commas";
    char control[8];
    std::snprintf(control, sizeof control, "%.1f", 0.5);
    EXPECT_STREQ(control, "0,5");
    EXPECT_STREQ(number_text(-0.5), "-0.5");
    EXPECT_STREQ(number_text(1e20), "1e+20");
    EXPECT_STREQ(format_number("a, %8.3f, %%", 1234.5), "a, 1234.500, %");
    const struct {
        const char* text;
        double value;
    } rows[] = {{"0.5", 0.5}, {" -1.25e2;", -125.0}, {"1,5", 1.0}, {",5", 0.0}, {"1.5.5", 1.5}};
    for (const auto& row : rows) EXPECT_EQ(double_of_text(row.text), row.value) << row.text;
    std::setlocale(LC_NUMERIC, "C");
}

TEST(Text, HalvesRoundAwayFromZero) {
    const double rows[][2] = {
        {0.49, 0}, {0.5, 1}, {-0.5, -1}, {-2.5, -3}, {2147483647.25, 2147483647}};
    for (const auto& [x, rounded] : rows) EXPECT_EQ(round_nearest(x), rounded) << x;
    for (const double x : {2147483647.5, -2147483648.5, 1e300})
        EXPECT_EQ(round_nearest(x), INT_MIN);
}

}  // namespace
