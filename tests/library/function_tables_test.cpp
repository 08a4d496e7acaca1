#include "library/function_tables.h"

#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <new>

namespace {

template <typename Table>
void check(Table& table, double (*function)(double), double at_zero) {
    const function_table_3* const first = &table.table_for(8192);
    EXPECT_EQ(first->n, 8192) << "there from the start";
    EXPECT_EQ(&table.table_for(-5), first);
    EXPECT_EQ(&table.table_for(0), first);
    const function_table_3 before = *first;
    const struct {
        int asked;
        int n;
    } rows[] = {{8193, 16384}, {16384, 16384}, {16385, 32768},
                {100, 32768},  {65535, 65536}, {65536, 65536}};
    for (const auto& row : rows) {
        const function_table_3& grown = table.table_for(row.asked);
        EXPECT_EQ(grown.n, row.n) << row.asked;
        EXPECT_EQ(table.tables.n, 1) << "the old one is gone";
        EXPECT_EQ(grown[0], at_zero);
        EXPECT_EQ(std::memcmp(grown.p, before.p, 8192 * sizeof(double)), 0);
    }
    const function_table_3& last = table.table_for(65536);
    for (int i = 1; i < last.n; ++i) ASSERT_DOUBLE_EQ(last[i], function(i)) << i;
    EXPECT_THROW(table.table_for(2147483647), std::bad_alloc);
    EXPECT_EQ(&table.table_for(65536), &last);
}

TEST(FunctionTables, Values) {
    check(
        td_1_on_x(), [](double x) { return 1.0 / x; }, 0.0);
    check(
        td_sqrt_x(), [](double x) { return std::sqrt(x); }, 0.0);
    check(
        td_1_on_sqrt_x(), [](double x) { return 1.0 / std::sqrt(x); }, 0.0);
    check(
        td_ln(), [](double x) { return std::log(x); }, -1e140);
}

TEST(FunctionTables, FillSetsItsStretch) {
    function_table_3 table;
    table.set_n(5);
    table.fill(7.0);
    td_1_on_x().fill(table, 3);
    const double expected[] = {0.0, 7.0, 7.0, 1.0 / 3.0, 0.25};
    for (int i = 0; i < 5; ++i) EXPECT_EQ(table[i], expected[i]);
}

}  // namespace
