#include "library/numeric/random_numbers.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <set>

namespace {

constexpr int least = std::numeric_limits<int>::min();
constexpr int most = std::numeric_limits<int>::max();

TEST(ShuffleRandom, PublishedSequence) {
    int seed = -1;
    for (const double expected : {0.41599935, 0.0919649, 0.7564105, 0.5297002, 0.9304365}) {
        EXPECT_NEAR(shuffle_random(seed), expected, 1e-7);
    }
    // The state after 10000 steps that was published with the generator; 45 have gone.
    for (int steps = 45; steps < 10000; ++steps) {
        const double number = shuffle_random(seed);
        EXPECT_TRUE(number > 0.0 && number <= 0.99999988) << number;
    }
    EXPECT_EQ(seed, 1043618065);
}

TEST(ShuffleRandom, AnySeedStartsASequence) {
    for (const auto& [seed, same_as] : {std::pair{0, -1}, {least, -1}}) {
        int a = seed;
        int b = same_as;
        EXPECT_EQ(shuffle_random(a), shuffle_random(b)) << seed;
        EXPECT_EQ(a, b) << seed;
    }
    int largest = most;
    for (int i = 0; i < 100; ++i) EXPECT_LT(shuffle_random(largest), 1.0);
}

TEST(RandomShapes, StayInTheirRanges) {
    constexpr int top = 32767;
    EXPECT_DOUBLE_EQ(unit_of_rand(top), 1.0);
    EXPECT_GT(fine_of_rand(0, 1), 0.0);
    EXPECT_LT(fine_of_rand(0, top), fine_of_rand(1, 1));
    EXPECT_EQ(fine_of_rand(top, 5), fine_of_rand(top - 1, 5));
    EXPECT_TRUE(fine_of_rand(top, top) > 0.99999999 && fine_of_rand(top, top) < 1.0);
    EXPECT_NEAR(above_one_of_rand(16384, 0), 128.0, 0.01);
    EXPECT_TRUE(above_one_of_rand(top, top) > 254.999 && above_one_of_rand(top, top) < 255.0);
    for (const auto& [number, byte] : {std::pair{0, 0}, {64, 0}, {65, 1}, {top, 255}}) {
        EXPECT_EQ(byte_of_rand(number), byte);
    }
    for (const auto& [low, high] : {std::pair{3, 3}, {0, 9}, {5, -5}, {least, most}}) {
        EXPECT_EQ(int_of_rand(low, high, 0, 0), low);
        EXPECT_EQ(int_of_rand(low, high, top, top), high);
    }
}

TEST(RandomShapes, UseAllOfRand) {
    random_spare = 0.5;
    seed_random(1);
    EXPECT_EQ(random_spare, -9999.0);
    std::set<int> bytes;
    std::set<int> ints;
    double low = 1.0;
    double high = 0.0;
    for (int i = 0; i < 20000; ++i) {
        bytes.insert(random_byte());
        ints.insert(random_int(-1, 1));
        const double unit = random_unit();
        low = std::min(low, unit);
        high = std::max(high, unit);
        const double fine = random_fine();
        const double above_one = random_above_one();
        ASSERT_TRUE(fine >= 0.0 && fine < 1.0 && above_one >= 1.0 && above_one < 255.0);
    }
    EXPECT_EQ(bytes.size(), 256U);
    EXPECT_EQ(ints, (std::set{-1, 0, 1}));
    EXPECT_TRUE(low >= 0.0 && low < 0.01 && high > 0.99 && high <= 1.0);
    EXPECT_GE(seed_random_by_time(), 0);
}

}  // namespace
