#include "foundation/sorted.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <string>

#include "foundation/string_3.h"
#include "foundation/triple_3.h"

namespace {

using numbers = std::vector<int>;
using ints_n1 = list_n1_3<int>;

template <typename List = ints_n1>
List list_of(const std::vector<typename List::value_type>& values, int base = 0) {
    List list;
    for (const auto& value : values) list.add(value);
    if constexpr (List::has_base) list.set_base(base);
    static_cast<void>(base);
    return list;
}

template <typename List>
numbers vector_of(const List& list) {
    return numbers(list.begin(), list.end());
}

TEST(Sorted, OrderOfEqualElements) {
    const std::vector<numbers> rows[] = {
        // worked out by hand from the steps of a heap sort: values, index
        {{}, {}},
        {{5}, {0}},
        {{1, 2}, {0, 1}},
        {{1, 1}, {1, 0}},
        {{1, 1, 1}, {1, 2, 0}},
        {{1, 1, 1, 1, 1}, {1, 2, 3, 4, 0}},
        {{2, 1, 2, 1}, {1, 3, 2, 0}},
        {{1, 0, 1, 0, 1, 0}, {5, 1, 3, 2, 4, 0}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row[0]));
        ints_n1 index = list_of({9, 9}, 7);
        sort_index(list_of<int_list_3>(row[0]), index);
        EXPECT_EQ(vector_of(index), row[1]);
        sort_index(list_of(row[0], -3), index);
        EXPECT_TRUE(index.n == 0 || index.base == -3);
        for (int& i : index) i += 3;
        EXPECT_EQ(vector_of(index), row[1]);
    }
}

TEST(Sorted, OrderOfElementTypes) {
    const triple_3 triples[] = {{{-1, 5, 5}}, {{0, -2, 9}}, {{0, 1, 0}}, {{0, 1, 1}}, {{2, -9, 0}}};
    list_0_3<triple_3> list;
    for (const int i : {3, 0, 4, 1, 2}) list.add(triples[i]);
    sort(list);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(list[i], triples[i]) << i;

    auto lists = list_of<list_0_3<ints_n1>>({list_of({1, 1}), list_of({9}), {}, list_of({1, 0})});
    sort(lists);  // fewer elements come first
    EXPECT_TRUE(lists.equal(
        list_of<list_0_3<ints_n1>>({{}, list_of({9}), list_of({1, 0}), list_of({1, 1})})));

    ints_n1 one = list_of({4});
    sort_unique(one);
    EXPECT_EQ(one.n_max, 8);  // left as it was
    apply_index(one, ints_n1());
    EXPECT_EQ(one.n_max, 0);
}

TEST(Sorted, GroupsByHand) {
    const struct {
        int base;
        numbers values;
        std::vector<numbers> lists;  // index, unique, count, group, first, last, minima
    } rows[] = {
        {0, {2, 1, 2, 1}, {{1, 3, 2, 0}, {1, 2}, {2, 2}, {1, 0, 1, 0}, {0, 2}, {1, 3}, {1, 0}}},
        {0, {5, 5, 5}, {{1, 2, 0}, {1}, {3}, {0, 0, 0}, {0}, {2}, {0}}},
        {1, {7, 3}, {{2, 1}, {2, 1}, {1, 1}, {1, 0}, {0, 1}, {0, 1}, {2, 1}}},
        {0, {}, {{}, {}, {}, {}, {-1}, {-1}, {}}}};
    for (const auto& row : rows) {
        group_record_3 record;
        ints_n1 first = list_of({-1}), last = list_of({-1}), minima = list_of({-1});
        group(list_of(row.values, row.base), record);
        run_bounds(record, first, last);
        run_minima(record, minima);
        const std::vector<numbers> lists{vector_of(record.index), vector_of(record.unique),
                                         vector_of(record.count), vector_of(record.group),
                                         vector_of(first),        vector_of(last),
                                         vector_of(minima)};
        EXPECT_EQ(lists, row.lists) << testing::PrintToString(row.values);
    }
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
        ASSERT_EQ(sorted.n_max, sorted.n);
        ASSERT_EQ(vector_of(once), numbers(distinct.begin(), distinct.end()));
        group_record_3 record;
        group(list, record);
        ASSERT_EQ(record.unique.n, once.n);
        for (int i = list.first(); i <= list.last(); ++i) {
            ASSERT_EQ(record.group[i], bsearch(once, list[i]) - once.first());
            ASSERT_EQ(list[record.unique[record.group[i]]], list[i]);
        }
        for (int key = -1; key < 11; ++key) {
            const int by_list = bsearch(sorted, key);
            const int by_index = bsearch(list, key, record.index);
            ASSERT_EQ(by_list != not_found, distinct.contains(key));
            ASSERT_EQ(by_index != not_found, distinct.contains(key));
            ASSERT_TRUE(by_list == not_found || sorted[by_list] == key);
            ASSERT_TRUE(by_index == not_found || list[record.index[by_index]] == key);
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

TEST(Sorted, LocateAndNearest) {
    const struct {
        double key;
        int low, high, nearest;
        double distance;
    } rows[] = {{0.5, -1, -1, -1, 0.5}, {1, -1, -1, -1, 0}, {2.5, 0, 1, 0, 0.5},
                {3, 0, 1, 1, 1},        {8, 1, 2, 2, 0},    {9, 2, 2, 2, 1}};
    const auto list = list_of<double_list_3>({1, 2, 4, 8}, -1);
    for (const auto& row : rows) {
        const distance_cmp cmp(list, row.key);
        int low = cmp.first_index(), high = cmp.last_index();
        double distance = -1;
        EXPECT_EQ(nearest(cmp, distance, low, high), row.nearest) << row.key;
        EXPECT_EQ(distance, row.distance) << row.key;
        EXPECT_EQ(low, row.low) << row.key;
        EXPECT_EQ(high, row.high) << row.key;
    }
    const auto no_number = list_of<double_list_3>({std::numeric_limits<double>::quiet_NaN()});
    EXPECT_EQ(cmp_w_4(no_number, 3.0).less_than_key(0), 1);
}

TEST(Sorted, RunInARange) {
    const struct {
        double from, to;
        bool found;
        int first, last;             // in 1, 2, 3, 4, 5 with a first index of 1
    } rows[] = {{2, 4, true, 2, 3},  // the element at `to` isn't in the run
                {1.5, 4.5, true, 2, 4}, {-9, 9, true, 1, 5},   {-9, 1.5, true, 1, 1},
                {4.5, 9, true, 5, 5},   {0, 1, false, -7, -7}, {0, 0.5, false, -7, -7}};
    const auto list = list_of<double_list_3>({1, 2, 3, 4, 5}, 1);
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.from) + " " + std::to_string(row.to));
        int first = -7, last = -7;
        EXPECT_EQ(find_range(list, row.from, row.to, first, last), row.found);
        EXPECT_EQ(first, row.first);
        EXPECT_EQ(last, row.last);
    }
}

}  // namespace
