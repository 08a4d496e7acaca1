#include <cmath>
#include <gtest/gtest.h>
#include <vector>

#include "foundation/heap_3.h"
#include "library/groups/hkl_generator_3_variants.h"
#include "library/groups/special_positions.h"
#include "library/groups/xyz_utilities.h"
#include "support/expect_failure.h"
#include "support/orbits.h"
#include "support/scratch_dir.h"
#include "support/sg_text.h"

namespace {

// The operators of a setting, and its class lists.
struct group_lists {
    explicit group_lists(std::string_view operators) : ops(xyz_list_of(operators)) {
        normalise_xyzs_3(ops);
        sort_xyzs_3(ops);
        similar_hkls_3(ops, classes);
    }
    // What mark_present leaves of orbits, each by the first member that it comes to.
    std::set<hkl> marked_by(const std::vector<hkl>& firsts, int mode) const {
        std::set<hkl> marked;
        for (const auto& [h, k, l] : firsts) {
            for (const xyz_op_3& op : classes[hkl_class_of_3(h, k, l)]) {
                triple_3 v;
                rotate_triple(v, op, h, k, l);
                const hkl image = {v[0], v[1], v[2]};
                if (mode == 0 || mode == 3) marked.insert(image);
                if (mode != 0) marked.insert(negative(image));
                if (mode != 1) marked.insert(std::max(image, negative(image)));
            }
        }
        return marked;
    }
    xyz_list_3 ops;
    class_lists_3 classes;
};

TEST(ReflectionVariants, EverySetting) {
    const scratch_dir dir;
    const triple_3 limits = {{3, 3, 4}};
    hkl_generator_3 generator;  // one for all groups
    for_each_setting([&](const setting& row) {
        const group_lists group(row.operators);
        const orbit_lists expected = orbits_within(arrays_of(group.ops), {3, 3, 4});
        row_list_3 rows;
        generator.generate_all(group.classes, group.ops, limits, rows, 0);
        EXPECT_EQ(multiplicities(rows), expected.all);
        rows.clear();
        int_list_3 status;
        generator.generate_with_status(group.classes, group.ops, limits, rows, status);
        EXPECT_EQ(multiplicities(rows), expected.all);
        ASSERT_EQ(status.n, rows.n);
        for (int i = 0; i < rows.n; ++i) {
            const auto& [h, k, l, n] = rows[i];
            if (generator.axis_free_count != 0 && h != 0 && k != 0 && l != 0) continue;
            EXPECT_EQ(status[i], expected.present.contains({h, k, l}) ? 1 : 2);
        }
        if (row.symbol == "C -4 2 b") return;  // what is absent there, a free axis lets pass
        rows.clear();
        generator.generate_all(group.classes, group.ops, limits, rows, 1);
        EXPECT_EQ(multiplicities(rows), expected.present);
        write_file("group.sg", sg_text_of(row.operators));
        for (int mode = 0; mode < 4; ++mode) {
            hkl_generator_3 first;
            hkl_generator_3 second;
            mark_present(first, second, mode, "group.sg", group.ops, limits);
            std::set<hkl> marked;
            for (int i = 0; i < 17 * 17 * 17; ++i) {
                const hkl index = {i / 289 - 8, i / 17 % 17 - 8, i % 17 - 8};
                if (second.is_marked(index[0], index[1], index[2])) marked.insert(index);
            }
            EXPECT_EQ(marked, group.marked_by(expected.first_present, mode)) << mode;
        }
    });
}

TEST(ReflectionVariants, NothingToList) {
    const group_lists group("x,y,z;-x,-y,-z");
    const triple_3 limits = {{2, 2, 2}};
    const struct {
        class_lists_3 classes;
        triple_3 limits;
        int n;          // of the list
        bool has_cell;  // for 1, 1, 1
    } rows[] = {{{}, limits, 0, false},
                {group.classes, {{2, 2, -2}}, 0, true},
                {group.classes, {{0, 0, 0}}, 0, false},
                {group.classes, limits, 62, true},
                {group.classes, limits, 124, true}};
    hkl_generator_3 generator;
    row_list_3 list;
    for (const auto& row : rows) {
        generator.generate_all(row.classes, group.ops, row.limits, list, 0);
        EXPECT_EQ(list.n, row.n) << "behind those that were there";
        generator.mark_orbit(1, 1, 1);
        EXPECT_EQ(generator.is_marked(1, 1, 1), row.has_cell);
    }
    EXPECT_FALSE(generator.is_marked(2000000000, -2000000000, 5));
    class_lists_3 general;  // no other class has reflections
    general.add(group.classes[0]);
    int_list_3 status;
    generator.generate_with_status(general, group.ops, limits, list, status);
    EXPECT_EQ(list.n, 124 + 2 * 4 * 4);
    // A call that fails leaves no grid, whatever there was before.
    EXPECT_TRUE(generator.is_marked(0, 0, 0));
    const triple_3 too_large = {{1 << 20, 1 << 20, 0}};
    EXPECT_FAILURE(generator.generate_all(group.classes, group.ops, too_large, list, 1),
                   " Index limits too large");
    generator.mark_orbit(1, 1, 1);
    EXPECT_FALSE(generator.is_marked(1, 1, 1) || generator.is_marked(0, 0, 0));
}

// An object that lists again and again gets along with the memory of the first time.
TEST(ReflectionVariants, RepeatedCallsNeedNoMore) {
    const group_lists group(operators_of("F d d d"));
    static std::size_t largest;
    hkl_generator_3 generator;
    std::size_t at_first = 0;
    for (int i = 0; i < 50; ++i) {
        row_list_3 rows;
        rows.set_max_n(100, false);
        largest = 0;
        the_heap().before_alloc = [](std::size_t size) { largest = std::max(largest, size); };
        generator.generate_all(group.classes, group.ops, {{2, 2, 2}}, rows, 1);
        the_heap().before_alloc = nullptr;
        if (i == 0) at_first = largest;
        ASSERT_LE(largest, at_first) << i;
    }
}

TEST(ReflectionVariants, PartitionsBySitesOfEverySetting) {
    const hkl points[] = {{0, 0, 0}, {0, 3, 6}, {4, 8, 1}, {-5, 17, 2}};  // in twelfths
    for_each_setting([&](const setting& row) {
        const xyz_list_3 ops = xyz_list_of(row.operators);
        const std::vector<op_array> arrays = arrays_of(ops);
        partition_3 partition;
        std::vector<std::vector<hkl>> images(arrays.size());  // of the points so far
        for (const hkl& p : points) {
            refine_partition_3(ops, partition, p[0] / 12.0, p[1] / 12.0, p[2] / 12.0);
            std::map<std::vector<hkl>, std::vector<int>> expected;
            for (std::size_t k = 0; k < arrays.size(); ++k) {
                images[k].push_back(image_of_twelfths(arrays[k], p));
                expected[images[k]].push_back(static_cast<int>(k));
            }
            ASSERT_EQ(static_cast<std::size_t>(partition.n), expected.size());
            for (const int_list_3& set : partition) {
                const std::vector<int> members(set.begin(), set.end());
                ASSERT_EQ(members, expected[images[static_cast<std::size_t>(set[0])]]);
            }
        }
    });
}

TEST(ReflectionVariants, PartitionsOfOddPoints) {
    const xyz_list_3 ops = xyz_list_of("x,y,z;-x,-y,-z;x+1/2,y,z");
    const struct {
        double x;
        int n_sets;
    } rows[] = {{1e-10, 2}, {-1 + 1e-10, 2}, {0.123, 3}, {HUGE_VAL, 1}, {std::nan(""), 1}};
    for (const auto& row : rows) {
        partition_3 partition;
        refine_partition_3(ops, partition, row.x, 0.0, 0.0);
        EXPECT_EQ(partition.n, row.n_sets) << row.x;
    }
    partition_3 partition;
    refine_partition_3({}, partition, 0, 0, 0);
    EXPECT_EQ(partition.n, 0);
    partition.add().add(7);  // no such operator
    refine_partition_3(ops, partition, 0, 0, 0);
    EXPECT_EQ(partition.n, 0);
}

}  // namespace
