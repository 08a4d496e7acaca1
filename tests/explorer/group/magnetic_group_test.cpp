#include "group/magnetic_group.h"

#include <gtest/gtest.h>
#include <set>

namespace {

using namespace lomar;

TEST(MagneticGroup, EveryNameFindsItsGroup) {
    ASSERT_EQ(magnetic_groups().size(), 1651u);
    std::set<std::string_view> bns_symbols;
    for (const magnetic_facts& row : magnetic_groups()) bns_symbols.insert(row.bns_symbol);
    int shared = 0;
    for (const magnetic_facts& row : magnetic_groups()) {
        for (const std::string_view name :
             {row.bns_number, row.bns_symbol, row.og_number, row.uni_symbol}) {
            EXPECT_EQ(&find_magnetic(name), &row) << name;
        }
        const magnetic_facts& by_og = find_magnetic(row.og_symbol);
        if (&by_og == &row) continue;
        EXPECT_EQ(by_og.bns_symbol, row.og_symbol);
        ++shared;
    }
    EXPECT_EQ(shared, 28);
}

}  // namespace
