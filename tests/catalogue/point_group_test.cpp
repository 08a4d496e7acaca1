#include <gtest/gtest.h>
#include <string>

#include "catalogue/point_group_table_3.h"
#include "support/expect_failure.h"

namespace {

TEST(PointGroupTable, RowsAscend) {
    const point_group_table_3 table;
    ASSERT_EQ(table.names.n, 42);
    ASSERT_EQ(table.generators.n, 42);
    ASSERT_EQ(table.keys.n, 42);
    for (int i = 1; i < 42; ++i) {
        const std::string name = table.names[i].data;
        EXPECT_EQ(table.keys[i].data, name.substr(0, name.find(' ')));
        EXPECT_LT(table.names[i - 1].data, name);
    }
}

TEST(PointGroupTable, Lookup) {
    const struct {
        const char *symbol, *point_group;
    } rows[] = {{"p-1", "-1"},       {"fd-3m:2", "m-3m"}, {"i41/amd", "4/mmm"}, {"p1121", "2"},
                {"r-3:h", "-3"},     {"r3r", "3"},        {"r-3crs", "-3m"},    {"R_-3_C", "-3m"},
                {"pnnns", "mmm"},    {"pnnnz", "mmm"},    {"xm", "m"},          {"p32", "32"},
                {"p6222", "6"},      {"fd3m", "m-3m"},    {"pa3", "m-3"},       {"p64", "6"},
                {"p42/nnm", "4/mmm"}};
    point_group_table_3 table;
    for (const auto& row : rows) {
        table.lookup(row.symbol);
        EXPECT_STREQ(table.normalised().data, row.point_group) << row.symbol;
    }
    // Removing each "s1" takes a pass over the text, so that a long symbol must not be tried.
    const std::string nested = std::string(50000, 's') + std::string(50000, '1');
    for (const char* symbol :
         {nested.c_str(), "", "p", "phm", "p:1", "p5", "pnmaa", "cmce", "\xff\xff"}) {
        EXPECT_FAILURE(table.lookup(symbol), " Invalid point group");
        EXPECT_STREQ(table.normalised().data, "4/mmm") << "a failure leaves the last result";
    }
}

}  // namespace
