#include <gtest/gtest.h>
#include <numbers>

#include "library/magnetic/sum_into_mag_3.h"
#include "reflections/sg_phase_sum_3.h"
#include "support/operators.h"

namespace {

xyz_list_3 signed_list_of(std::string_view text, const std::vector<int>& signs) {
    xyz_list_3 ops = xyz_list_of(text);
    for (int i = 0; i < ops.n; ++i) ops[i].tag = signs.at(static_cast<std::size_t>(i));
    return ops;
}

// The moments themselves are those of the structure factors of every magnetic group.
TEST(GroupMoments, EntriesAndTwins) {
    const xyz_list_3 ops = signed_list_of("x,y,z;-x,-y,z;-x,y,-z;x,-y,-z", {2, 1, 1, -1});
    sg_phase_sum_3 sum;
    sum.set_up_magnetic(ops);
    EXPECT_EQ(sum.axis_has_moment_3(1), 1);
    // The first with members stores; the last has none.
    const B_sum_into_mag_3* const expected[] = {mask_entry(12)->twin, mask_entry(12),
                                                mask_entry(12), mask_entry(0)};
    ASSERT_EQ(sum.axis_entries[1].n, 4);
    for (int g = 0; g < 4; ++g) EXPECT_EQ(sum.axis_entries[1][g], expected[g]) << g;
    const B_sum_into_mag_3* const* const held = sum.axis_entries[1].p;
    sum.find_axis_moments_3(1);
    EXPECT_EQ(sum.axis_entries[1].p, held) << "a second request finds the lists";
    // Without single signs, and without signs at all, nothing has a moment.
    const xyz_list_3 grey = signed_list_of("x,y,z;-x,-y,z", {2, 2});
    const double v[3] = {1.0, 2.0, -3.0};
    for (const bool is_magnetic : {true, false}) {
        is_magnetic ? sum.set_up_magnetic(grey) : sum.set_up(ops);
        EXPECT_EQ(sum.axis_has_moment_3(1), 0);
        moment_list_3 moments;
        mag_entry_list_3 entries;
        sum.vector_moments_3(v, moments, entries);
        ASSERT_EQ(entries.n, sum.groups.n);
        for (const B_sum_into_mag_3* entry : entries) EXPECT_EQ(entry, mask_entry(0));
    }
}

TEST(GroupMoments, TranslationsOfGroups) {
    const xyz_list_3 ops = xyz_list_of("x,y,z;-x+1/2,-y,z+3/4");
    sg_phase_sum_3 sum;
    sum.set_up(ops);
    phase_list_3 phases;
    const double position[3] = {0.1, 0.2, 0.3};
    sum.position_phases(position, phases);
    sum.add_group_translations_3(phases);
    const double expected[2][3] = {{0.4, -0.2, 1.05}, {0.1, 0.2, 0.3}};
    for (int i = 0; i < 6; ++i) {
        EXPECT_NEAR(phases[i / 3].row[i % 3], 2 * std::numbers::pi * expected[i / 3][i % 3], 1e-12);
    }
}

}  // namespace
