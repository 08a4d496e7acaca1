#include <gtest/gtest.h>
#include <string>

#include "catalogue/point_group_table_3.h"
#include "support/expect_failure.h"

namespace {

TEST(PointGroupTable, RowsAscend) {
    const point_group_table_3 table;
    ASSERT_EQ(table.names.n, 42);
    for (int i = 1; i < 42; ++i) {
        const std::string name = table.names[i].data;
        EXPECT_EQ(table.keys[i].data, name.substr(0, name.find(' ')));
        EXPECT_LT(table.names[i - 1].data, name);
    }
}

TEST(PointGroupTable, Lookup) {
    const struct {
        const char *symbol, *point_group;
    } rows[] = {{"fd-3m:2", "m-3m"}, {"r-3h", "-3"},   {"r-3crs", "-3m"},
                {"R_-3_C", "-3m"},   {"pnnnz", "mmm"}, {"xm", "m"},
                {"fd3m", "m-3m"},    {"pa3", "m-3"},   {"p42/nnm", "4/mmm"}};
    point_group_table_3 table;
    table.lookup(("pmmm:" + std::string(50000, 'x')).c_str());  // the rest is cut off
    EXPECT_STREQ(table.normalised().data, "mmm");
    for (const auto& row : rows) {
        table.lookup(row.symbol);
        EXPECT_STREQ(table.normalised().data, row.point_group) << row.symbol;
    }
    // Removing each "s1" takes a pass over the text, so that a long symbol must not be tried.
    const std::string nested = std::string(50000, 's') + std::string(50000, '1');
    for (const char* symbol : {nested.c_str(), "", "p", "p5", "pnmaa", "\xff\xff"}) {
        EXPECT_FAILURE(table.lookup(symbol), " Invalid point group");
        EXPECT_STREQ(table.normalised().data, "4/mmm") << "a failure leaves the last result";
    }
}

}  // namespace
