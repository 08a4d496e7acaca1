#include "analysis/subgroups.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>

namespace {

using namespace lomar;

const setting& row_of(const char* name) { return *find_setting(name); }

// Setting and index of each subgroup, with how many a class has.
std::map<std::string, int> listed(const std::vector<subgroup>& subgroups) {
    std::map<std::string, int> result;
    for (const subgroup& one : subgroups) {
        ++result[std::to_string(one.conjugacy_class) + ": " + one.found.row->name() + " " +
                 std::to_string(one.index)];
    }
    return result;
}

// As International Tables A1 lists them.
TEST(Subgroups, MaximalOnesOfKnownGroups) {
    const std::pair<const char*, std::map<std::string, int>> cases[] = {
        {"P 1", {}},
        {"P 1 21/c 1", {{"1: P 1 c 1 2", 1}, {"2: P 1 21 1 2", 1}, {"3: P -1 2", 1}}},
        {"F m -3 m",
         {{"1: F -4 3 m 2", 1},
          {"2: F 4 3 2 2", 1},
          {"3: F m -3 2", 1},
          {"4: I 4/m m m 3", 3},
          {"5: R -3 m:H 4", 4}}},
        {"P 6/m m m",
         {{"1: P -6 2 m 2", 1},
          {"2: P -6 m 2 2", 1},
          {"3: P 6 m m 2", 1},
          {"4: P 6 2 2 2", 1},
          {"5: P 6/m 2", 1},
          {"6: P -3 m 1 2", 1},
          {"7: P -3 1 m 2", 1},
          {"8: C m m m 3", 3}}},
        {"P n m a",
         {{"1: P n a 21 2", 1},
          {"2: P m n 21 2", 1},
          {"3: P m c 21 2", 1},
          {"4: P 21 21 21 2", 1},
          {"5: P 1 21/c 1 2", 1},
          {"6: P 1 21/c 1 2", 1},
          {"7: P 1 21/m 1 2", 1}}},
    };
    for (const auto& [name, wanted] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(listed(subgroup_lattice(group_of(row_of(name))).maximal()), wanted);
    }
}

// The operators of each subgroup are of its group, of its index, and go over into its setting.
TEST(Subgroups, MaximalOnesOfEverySetting) {
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        const std::set<symop> all(group.operators.begin(), group.operators.end());
        std::set<std::set<symop>> different;
        for (const subgroup& one : subgroup_lattice(group).maximal()) {
            EXPECT_EQ(one.operators.size() * static_cast<std::size_t>(one.index),
                      group.primitive_order());
            EXPECT_GT(one.index, 1);
            const space_group setting_group = group_of(*one.found.row);
            const std::set<symop> wanted(setting_group.operators.begin(),
                                         setting_group.operators.end());
            for (const symop& op : one.operators) {
                EXPECT_TRUE(std::any_of(
                    group.centring.begin(), group.centring.end(), [&](const fraction_vector& v) {
                        return all.contains(modulo_lattice({op.rot, op.trans + v, 1}));
                    }));
                EXPECT_TRUE(wanted.contains(modulo_lattice(transformed(op, one.found.change))));
            }
            different.emplace(one.operators.begin(), one.operators.end());
        }
        EXPECT_EQ(different.empty(), group.primitive_order() == 1);
    }
}

TEST(Subgroups, ChainsDownToANamedGroup) {
    const subgroup_lattice lattice(group_of(row_of("P m -3 m")));
    const auto chains = lattice.chains_to(row_of("P 4 m m"));
    ASSERT_EQ(chains.size(), 1u);
    ASSERT_EQ(chains[0].size(), 2u);
    EXPECT_EQ(chains[0][0].found.row->name(), "P 4/m m m");
    EXPECT_EQ(chains[0][1].index, 6);
    // Two-fold axes along the edges, and along the face diagonals.
    EXPECT_EQ(lattice.chains_to(row_of("P 1 2 1")).size(), 1u);
    EXPECT_EQ(lattice.chains_to(row_of("C 1 2 1")).size(), 1u);
    EXPECT_EQ(lattice.chains_to(row_of("P 1 2/c 1")).size(), 0u);
    // The last is told in the setting asked for.
    const auto other_axis = lattice.chains_to(row_of("P 2 1 1"));
    ASSERT_EQ(other_axis.size(), 1u);
    const subgroup& last = other_axis[0].back();
    EXPECT_EQ(last.found.row->name(), "P 2 1 1");
    const space_group wanted = group_of(row_of("P 2 1 1"));
    for (const symop& op : last.operators) {
        const symop now = modulo_lattice(transformed(op, last.found.change));
        EXPECT_NE(std::find(wanted.operators.begin(), wanted.operators.end(), now),
                  wanted.operators.end());
    }
}

}  // namespace
