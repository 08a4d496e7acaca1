#include "library/numeric/function_tables.h"

#include <cmath>
#include <gtest/gtest.h>
#include <new>

namespace {

template <typename Table>
void check(Table& table, double (*function)(double), double at_zero) {
    const function_table_3* const first = &table.table_for(8192);
    EXPECT_EQ(first->n, 8192) << "there from the start";
    EXPECT_EQ(&table.table_for(-5), first);
    for (const auto& [asked, n] : {std::pair{8193, 16384}, {16384, 16384}, {32768, 65536}}) {
        EXPECT_EQ(table.table_for(asked).n, n) << asked;
        EXPECT_EQ(table.tables.n, 1) << "the old one is gone";
    }
    const function_table_3& last = table.table_for(65536);
    EXPECT_EQ(last[0], at_zero);
    for (int i = 1; i < last.n; ++i) ASSERT_DOUBLE_EQ(last[i], function(i)) << i;
    EXPECT_THROW(table.table_for(2147483647), std::bad_alloc);
    EXPECT_EQ(&table.table_for(65536), &last);
}

double reciprocal(double x) { return 1.0 / x; }
double reciprocal_root(double x) { return 1.0 / std::sqrt(x); }

TEST(FunctionTables, Values) {
    check(td_1_on_x(), reciprocal, 0.0);
    check(td_sqrt_x(), std::sqrt, 0.0);
    check(td_1_on_sqrt_x(), reciprocal_root, 0.0);
    check(td_ln(), std::log, -1e140);
}

}  // namespace
