#include "foundation/sorted.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <set>

namespace {

using numbers = std::vector<int>;
using ints_n1 = list_n1_3<int>;

template <typename T = int>
list_n1_3<T> list_of(const std::vector<T>& values, int base = 0) {
    list_n1_3<T> list;
    for (const T value : values) list.add(value);
    list.set_base(base);
    return list;
}

numbers vector_of(const auto& list) { return numbers(list.begin(), list.end()); }

TEST(Sorted, OrderOfEqualElements) {
    const std::vector<numbers> rows[] = {// worked out by hand: values, index
                                         {{}, {}},
                                         {{1, 1}, {1, 0}},
                                         {{1, 1, 1}, {1, 2, 0}},
                                         {{1, 1, 1, 1, 1}, {1, 2, 3, 4, 0}},
                                         {{1, 0, 1, 0, 1, 0}, {5, 1, 3, 2, 4, 0}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row[0]));
        ints_n1 index = list_of({9, 9}, 7);
        sort_index(list_of(row[0], -3), index);
        EXPECT_TRUE(index.n == 0 || index.base == -3);
        for (int& i : index) i += 3;
        EXPECT_EQ(vector_of(index), row[1]);
    }
    ints_n1 list = list_of({4});
    apply_index(list, ints_n1());
    EXPECT_EQ(list.n, 0);
}

TEST(Sorted, RandomListsAgainstTheStandardLibrary) {
    std::mt19937 random(11);
    for (int round = 0; round < 400; ++round) {
        SCOPED_TRACE(round);
        numbers values(random() % 60);
        for (int& value : values) value = static_cast<int>(random() % (round % 2 == 0 ? 10 : 1000));
        const std::set<int> distinct(values.begin(), values.end());
        const ints_n1 list = list_of(values, round % 3 - 1);
        ints_n1 sorted = list, once = list;
        sort(sorted);
        sort_unique(once);
        std::sort(values.begin(), values.end());
        ASSERT_EQ(vector_of(sorted), values);
        ASSERT_EQ(vector_of(once), numbers(distinct.begin(), distinct.end()));
        group_record_3 record;
        group(list, record);
        for (int i = list.first(); i <= list.last(); ++i)
            ASSERT_EQ(record.group[i], bsearch(once, list[i]) - once.first());
        ints_n1 first = list_of({-1}, 5), last = first, minima = first;
        run_bounds(record, first, last);
        run_minima(record, minima);
        ASSERT_TRUE(list.n != 0 || (first[5] == -1 && last[5] == -1 && minima.n == 0));
        int start = 0;
        for (int run = 0; run < once.n; ++run) {
            const int* const begin = record.index.p + start;
            ASSERT_EQ(record.unique[run], *begin);
            ASSERT_EQ(minima[run], *std::min_element(begin, begin + record.count[run]));
            ASSERT_EQ(first[run], start);
            start += record.count[run];
            ASSERT_EQ(last[run], start - 1);
        }
        for (int key = -1; key < 11; ++key) {
            const int place = bsearch(list, key, record.index);
            ASSERT_EQ(place != not_found, distinct.contains(key));
            ASSERT_TRUE(place == not_found || list[record.index[place]] == key);
        }
    }
}

TEST(Sorted, BinarySearchNarrowsToTheHalf) {
    EXPECT_EQ(bsearch(ints_n1(), 1), not_found);
    EXPECT_EQ(bsearch(list_of({1, 3, 5}, -2), 1), -2);
    EXPECT_EQ(bsearch(list_of({7, 7, 7, 7}), 7), 1);  // the upper end stops at 1, and comes first
    EXPECT_EQ(bsearch(list_of({1, 2, 3, 4, 5}), 5, 0, 3), not_found);
}

struct distance_cmp : cmp_w_4<double_list_3, double> {
    const double_list_3& list;
    const double& key;
    distance_cmp(const double_list_3& l, const double& k) : cmp_w_4(l, k), list(l), key(k) {}
    double distance(int i) const override { return list[i] - key; }
};

TEST(Sorted, LocateNearestAndRange) {
    const struct {
        double key;
        int low, high, nearest;
        double distance;
    } rows[] = {{0.5, -1, -1, -1, 0.5}, {1, -1, -1, -1, 0}, {2.5, 0, 1, 0, 0.5},
                {3, 0, 1, 1, 1},        {8, 1, 2, 2, 0},    {9, 2, 2, 2, 1}};
    const auto list = list_of<double>({1, 2, 4, 8}, -1);
    for (const auto& row : rows) {
        const distance_cmp cmp(list, row.key);
        int low = cmp.first_index(), high = cmp.last_index();
        double distance = -1;
        EXPECT_EQ(nearest(cmp, distance, low, high), row.nearest) << row.key;
        EXPECT_EQ(distance, row.distance) << row.key;
        EXPECT_EQ(low, row.low) << row.key;
        EXPECT_EQ(high, row.high) << row.key;
    }
    const auto no_number = list_of<double>({std::numeric_limits<double>::quiet_NaN()});
    EXPECT_EQ(cmp_w_4(no_number, 3.0).less_than_key(0), 1);
    const auto steps = list_of<double>({1, 2, 3, 4, 5}, 1);
    int first = 0, last = 0;
    EXPECT_TRUE(find_range(steps, 2, 4, first, last));
    EXPECT_EQ(first, 2);
    EXPECT_EQ(last, 3);  // the element at `to` isn't in the run
    EXPECT_FALSE(find_range(steps, 0, 1, first, last));
}

}  // namespace
