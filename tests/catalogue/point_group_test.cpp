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
    for (int i = 0; i < 42; ++i) {
        const std::string name = table.names[i].data;
        EXPECT_EQ(table.keys[i].data, name.substr(0, name.find(' ')));
        if (i == 0) continue;
        EXPECT_TRUE(element_less(table.names[i - 1], table.names[i])) << name;
        EXPECT_FALSE(element_less(table.keys[i], table.keys[i - 1])) << name;
    }
}

TEST(PointGroupTable, Lookup) {
    const struct {
        const char *symbol, *point_group;
    } rows[] = {
        {"p1", "1"},       {"p-1", "-1"},        {"pnma", "mmm"},      {"fd-3m:2", "m-3m"},
        {"fd-3m", "m-3m"}, {"p21/c", "2/m"},     {"i41/amd", "4/mmm"}, {"p3121", "32"},
        {"p1121", "2"},    {"c12/c1", "2/m"},    {"p63/mmc", "6/mmm"}, {"p42mc", "4mm"},
        {"r-3", "-3"},     {"r-3:h", "-3"},      {"r3r", "3"},         {"r-3crs", "-3m"},
        {"R_-3_C", "-3m"}, {"pnnns", "mmm"},     {"pnnnz", "mmm"},     {"xm", "m"},
        {"p32", "32"},     {"p6222", "6"},       {"p-4m2", "-4m2"},    {"p-42m", "-42m"},
        {"p-6c2", "-6m2"}, {"p-62c", "-62m"},    {"pc2a", "mm2"},      {"p2cm", "mm2"},
        {"fd3m", "m-3m"},  {"pa3", "m-3"},       {"ia3d", "m-3m"},     {"p4132", "432"},
        {"p64", "6"},      {"p42/nnm", "4/mmm"},
    };
    point_group_table_3 table;
    for (const auto& row : rows) {
        EXPECT_EQ(message_of([&] { table.lookup(row.symbol); }), std::nullopt) << row.symbol;
        EXPECT_STREQ(table.normalised().data, row.point_group) << row.symbol;
    }
    for (const char* symbol : {"", "p", "phm", "p:1", "p5", "pnmaa", "cmce", "\xff\xff"}) {
        EXPECT_FAILURE(table.lookup(symbol), " Invalid point group");
        EXPECT_STREQ(table.normalised().data, "4/mmm") << "a failure leaves the last result";
    }
}

}  // namespace
