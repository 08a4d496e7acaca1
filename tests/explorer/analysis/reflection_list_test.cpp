#include "analysis/reflection_list.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "driver/sg_driver_3.h"
#include "reflections/hkl_file.h"
#include "support/scratch_dir.h"

namespace {

using namespace lomar;

using indices = std::array<int, 3>;

indices indices_of(const listed_reflection& reflection) {
    return {reflection.h, reflection.k, reflection.l};
}

// The images under the rotations, and their mates.
std::set<indices> equivalents(const space_group& group, const indices& hkl) {
    std::set<indices> result;
    for (const symop& op : group.representatives()) {
        const int_vector image = transposed(op.rot) * hkl;
        result.insert(image);
        result.insert({-image[0], -image[1], -image[2]});
    }
    return result;
}

bool is_absent(const space_group& group, const indices& hkl) {
    for (const symop& op : group.operators) {
        if (transposed(op.rot) * hkl != hkl) continue;
        fraction phase;
        for (std::size_t i = 0; i < 3; ++i) phase += fraction(hkl[i]) * op.trans[i];
        if (!phase.is_integer()) return true;
    }
    return false;
}

// Every set by looking at every reflection.
std::map<indices, std::size_t> sets_of(const space_group& group, const int_vector& reach,
                                       const auto& wanted) {
    std::map<indices, std::size_t> result;
    for (int h = -reach[0]; h <= reach[0]; ++h) {
        for (int k = -reach[1]; k <= reach[1]; ++k) {
            for (int l = -reach[2]; l <= reach[2]; ++l) {
                if ((h == 0 && k == 0 && l == 0) || !wanted(indices{h, k, l})) continue;
                const std::set<indices> set = equivalents(group, {h, k, l});
                result[*set.rbegin()] = set.size();
            }
        }
    }
    return result;
}

void expect_sets(const space_group& group, std::map<indices, std::size_t> sets,
                 const std::vector<listed_reflection>& found) {
    for (const listed_reflection& each : found) {
        const auto set = sets.find(indices_of(each));
        ASSERT_NE(set, sets.end()) << each.h << ' ' << each.k << ' ' << each.l;
        EXPECT_EQ(static_cast<std::size_t>(each.multiplicity), set->second);
        EXPECT_EQ(each.broken >= 0, is_absent(group, indices_of(each)));
        sets.erase(set);
    }
    EXPECT_EQ(sets.size(), 0u);
}

TEST(ReflectionList, EverySetWithinLimitsInEverySetting) {
    const int_vector limits = {3, 2, 4};
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        const auto conditions = conditions_of(group);
        const auto all = reflections_within(group, conditions, limits, true);
        expect_sets(group, sets_of(group, limits, [](const indices&) { return true; }), all);
        std::vector<indices> present;
        for (const listed_reflection& each : all) {
            if (each.broken < 0) present.push_back(indices_of(each));
        }
        std::vector<indices> listed;
        for (const auto& each : reflections_within(group, conditions, limits, false)) {
            listed.push_back(indices_of(each));
        }
        EXPECT_EQ(listed, present);
        EXPECT_TRUE(std::is_sorted(listed.begin(), listed.end()));
    }
}

// The rows of the .hkl file of lomar6.
TEST(ReflectionList, TheRowsOfHklFilesInEverySetting) {
    const scratch_dir dir;
    std::filesystem::current_path(DATA_DIR);
    const int_vector limits = {4, 5, 3};
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        sg_file_names_3 names;
        names.set_symbol(row.name().c_str());
        names.set_out_dir(dir.path().string().c_str());
        sg_decoder_3 decoder;
        sg_driver_3().generate_sg(names, decoder);
        row_list_3 rows;
        hkl_generator_3().generate(names.sg_path().data, decoder.ops, {4, 5, 3}, rows);
        sort_rows_3(rows);
        const space_group group = group_of(row);
        const auto list = reflections_within(group, conditions_of(group), limits, false);
        ASSERT_EQ(static_cast<std::size_t>(rows.n), list.size());
        for (int i = 0; i < rows.n; ++i) {
            const listed_reflection& mine = list[static_cast<std::size_t>(i)];
            EXPECT_EQ(rows[i], hkl_row_3(mine.h, mine.k, mine.l, mine.multiplicity));
        }
    }
}

TEST(ReflectionList, DownToADInCellsOfEverySystem) {
    const struct {
        const char* name;
        unit_cell cell;
        double d_min;
    } cases[] = {
        {"P -1", {5, 6, 7, 80, 95, 110}, 1.1},       {"P -1", {9, 8, 7, 30, 40, 50}, 0.8},
        {"C 1 2/c 1", {9, 6, 7, 90, 130, 90}, 1.0},  {"P 1 1 21/b", {5, 9, 7, 90, 90, 60}, 1.0},
        {"F d d d:2", {9, 10, 11, 90, 90, 90}, 1.0}, {"I 41/a:1", {6, 6, 13, 90, 90, 90}, 1.0},
        {"P 31 2 1", {5, 5, 11, 90, 90, 120}, 0.9},  {"R -3 c:R", {6, 6, 6, 46, 46, 46}, 0.8},
        {"R -3 c:H", {5, 5, 17, 90, 90, 120}, 0.9},  {"P 63/m m c", {3, 3, 5, 90, 90, 120}, 0.5},
        {"I a -3 d", {10, 10, 10, 90, 90, 90}, 1.0},
    };
    for (const auto& [name, cell, d_min] : cases) {
        SCOPED_TRACE(name);
        const space_group group = group_of(*find_setting(name));
        const metric_matrix g = reciprocal_metric(cell);
        const auto inverse_square = [&](const indices& hkl) {
            double sum = 0;
            for (std::size_t i = 0; i < 3; ++i) {
                for (std::size_t j = 0; j < 3; ++j) sum += hkl[i] * g[i][j] * hkl[j];
            }
            return sum;
        };
        const auto list = reflections_down_to(group, conditions_of(group), cell, d_min, true);
        const auto sets = sets_of(group, {24, 24, 24}, [&, least = d_min](const indices& hkl) {
            return inverse_square(hkl) * least * least <= 1 + 1e-9;
        });
        EXPECT_GT(sets.size(), 30u);
        expect_sets(group, sets, list);
        for (std::size_t i = 0; i < list.size(); ++i) {
            EXPECT_NEAR(list[i].inverse_square / inverse_square(indices_of(list[i])), 1, 1e-12);
            if (i == 0) continue;
            const double step = list[i].inverse_square / list[i - 1].inverse_square - 1;
            EXPECT_TRUE(step > 2e-12 ||
                        (step > -2e-12 && indices_of(list[i - 1]) < indices_of(list[i])));
        }
    }
}

TEST(ReflectionList, NumbersByHand) {
    const space_group group = group_of(*find_setting("F m -3 m"));
    const auto conditions = conditions_of(group);
    // The edge of the range itself is in it: d of 2 0 0 is 2.
    const auto list = reflections_down_to(group, conditions, {4, 4, 4, 90, 90, 90}, 2, false);
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(indices_of(list[0]), (indices{1, 1, 1}));
    EXPECT_EQ(list[0].multiplicity, 8);
    EXPECT_NEAR(list[0].d(), 4 / std::sqrt(3.0), 1e-12);
    EXPECT_EQ(indices_of(list[1]), (indices{2, 0, 0}));
    EXPECT_EQ(list[1].multiplicity, 6);
    EXPECT_NEAR(list[1].two_theta(2).value(), 60, 1e-12);
    EXPECT_NEAR(list[1].two_theta(4).value(), 180, 1e-5);
    EXPECT_FALSE(list[1].two_theta(4.001).has_value());
    // 3 3 3 and 5 1 1 have one d.
    const auto ties = reflections_down_to(group, conditions, {10, 10, 10, 90, 90, 90}, 1.92, false);
    ASSERT_GE(ties.size(), 2u);
    EXPECT_EQ(indices_of(ties[ties.size() - 2]), (indices{3, 3, 3}));
    EXPECT_EQ(indices_of(ties.back()), (indices{5, 1, 1}));

    const auto with_absent = reflections_within(group, conditions, {1, 0, 0}, true);
    ASSERT_EQ(with_absent.size(), 1u);
    EXPECT_EQ(conditions[static_cast<std::size_t>(with_absent[0].broken)].text, "hkl: h+k = 2n");
    EXPECT_TRUE(reflections_within(group, conditions, {0, 0, 0}, true).empty());
}

TEST(ReflectionList, RefusesWhatIsTooLong) {
    const space_group group = group_of(*find_setting("P -1"));
    const space_group cubic = group_of(*find_setting("F m -3 m"));
    const auto refused = [](const space_group& which, const unit_cell& cell, double d_min) {
        EXPECT_THROW(reflections_down_to(which, conditions_of(which), cell, d_min, false),
                     too_many_reflections)
            << cell_text(cell) << ' ' << d_min;
    };
    const unit_cell cube = {10, 10, 10, 90, 90, 90};
    refused(group, cube, 1e-300);
    refused(group, cube, 0.04);
    refused(cubic, cube, 0.001);
    refused(group, {1e6, 1e6, 1e-6, 90, 90, 90}, 0.1);
    refused(group, {1e-6, 1e6, 1e6, 90, 90, 90}, 0.1);
    refused(group, {1e6, 1e-6, 1e-6, 90, 90, 90}, 0.001);
    EXPECT_THROW(reflections_down_to(group, {}, cube, 0, false), std::invalid_argument);
    EXPECT_THROW(reflections_down_to(group, {}, cube, std::nan(""), false), std::invalid_argument);
    for (const int_vector limits :
         {int_vector{2147483647, 1, 1}, {300, 300, 300}, {100000, 100000, 0}}) {
        EXPECT_THROW(reflections_within(group, {}, limits, false), too_many_reflections);
    }
    EXPECT_THROW(reflections_within(cubic, {}, {100000, 50, 50}, false), too_many_reflections);
}

}  // namespace
