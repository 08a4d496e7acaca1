#include "library/random_numbers.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>

namespace {

TEST(ShuffleRandom, PublishedSequence) {
    int seed = -1;
    for (const double expected : {0.41599935, 0.0919649, 0.7564105, 0.5297002, 0.9304365}) {
        EXPECT_NEAR(shuffle_random(seed), expected, 1e-7);
    }
    seed = -12345;
    EXPECT_NEAR(shuffle_random(seed), 0.9231205717, 1e-9);
    EXPECT_EQ(seed, 1492592912);
}

TEST(ShuffleRandom, MinimalStandardState) {
    int seed = -1;
    for (int steps = 40; steps < 10000; ++steps) {
        const double number = shuffle_random(seed);
        EXPECT_GT(seed, 0);
        EXPECT_GT(number, 0.0);
        EXPECT_LE(number, 0.99999988);
    }
    EXPECT_EQ(seed, 1043618065);
}

TEST(ShuffleRandom, AnySeedStartsASequence) {
    const struct {
        int seed;
        int same_as;
    } rows[] = {{0, -1}, {-7, -7}, {std::numeric_limits<int>::min(), -1}};
    for (const auto& row : rows) {
        int a = row.seed;
        int b = row.same_as;
        const double first = shuffle_random(a);
        EXPECT_EQ(first, shuffle_random(b)) << row.seed;
        EXPECT_EQ(a, b) << row.seed;
    }
    int largest = std::numeric_limits<int>::max();
    for (int i = 0; i < 100; ++i) EXPECT_LT(shuffle_random(largest), 1.0);
}

TEST(RandomShapes, StayInTheirRanges) {
    constexpr int top = 32767;
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(unit_of_rand(0), 0.0);
    EXPECT_DOUBLE_EQ(unit_of_rand(top), 1.0);
    EXPECT_EQ(fine_of_rand(0, 0), 0.0);
    EXPECT_GT(fine_of_rand(0, 1), 0.0);
    EXPECT_LT(fine_of_rand(0, top), fine_of_rand(1, 1));
    EXPECT_EQ(fine_of_rand(top, 5), fine_of_rand(top - 1, 5));
    EXPECT_LT(fine_of_rand(top, top), 1.0);
    EXPECT_GT(fine_of_rand(top, top), 0.99999999);
    EXPECT_EQ(above_one_of_rand(0, 0), 1.0);
    EXPECT_LT(above_one_of_rand(top, top), 255.0);
    EXPECT_NEAR(above_one_of_rand(16384, 0), 128.0, 0.01);
    EXPECT_EQ(byte_of_rand(0), 0);
    EXPECT_EQ(byte_of_rand(64), 0);
    EXPECT_EQ(byte_of_rand(65), 1);
    EXPECT_EQ(byte_of_rand(top), 255);
    const struct {
        int low;
        int high;
        int at_top;
    } rows[] = {{3, 3, 3}, {0, 9, 9}, {-5, 5, 5}, {5, -5, -5}, {least, most, most}};
    for (const auto& row : rows) {
        EXPECT_EQ(int_of_rand(row.low, row.high, 0, 0), row.low);
        EXPECT_EQ(int_of_rand(row.low, row.high, top, top), row.at_top);
    }
}

TEST(RandomShapes, UseAllOfRand) {
    random_spare = 0.5;
    seed_random(1);
    EXPECT_EQ(random_spare, -9999.0);
    bool bytes[256] = {};
    double least = 1.0;
    double most = 0.0;
    for (int i = 0; i < 20000; ++i) {
        const int byte = random_byte();
        ASSERT_TRUE(byte >= 0 && byte <= 255);
        bytes[byte] = true;
        const double unit = random_unit();
        least = std::min(least, unit);
        most = std::max(most, unit);
        const double fine = random_fine();
        ASSERT_TRUE(fine >= 0.0 && fine < 1.0);
        const int one_of_three = random_int(-1, 1);
        ASSERT_TRUE(one_of_three >= -1 && one_of_three <= 1);
        const double above_one = random_above_one();
        ASSERT_TRUE(above_one >= 1.0 && above_one < 255.0);
    }
    for (const bool met : bytes) EXPECT_TRUE(met);
    EXPECT_LT(least, 0.01);
    EXPECT_TRUE(most > 0.99 && most <= 1.0) << most;
    EXPECT_GE(seed_random_by_time(), 0);
}

}  // namespace
