#include "library/reflection_variants.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <vector>

#include "foundation/heap_3.h"
#include "library/xyz_utilities.h"
#include "support/expect_failure.h"
#include "support/scratch_dir.h"
#include "support/sg_text.h"

namespace {

using hkl = std::array<int, 3>;
using op_list = std::vector<op_array>;

// The operators of a setting, and its class lists.
struct group_lists {
    explicit group_lists(std::string_view operators) : ops(xyz_list_of(operators)) {
        normalise_xyzs_3(ops);
        sort_xyzs_3(ops);
        similar_hkls_3(ops, classes);
    }
    xyz_list_3 ops;
    class_lists_3 classes;
};

hkl negative(const hkl& index) { return {-index[0], -index[1], -index[2]}; }

hkl image_of(const op_array& op, const hkl& index) {
    hkl image{};
    for (unsigned c = 0; c < 3; ++c) {
        for (unsigned r = 0; r < 3; ++r) image[c] += index[r] * op[4 * r + c];
    }
    return image;
}

// All reflections that symmetry and the inversion make of one.
std::set<hkl> orbit_of(const op_list& ops, const hkl& index) {
    std::set<hkl> orbit;
    for (const op_array& op : ops) {
        orbit.insert(image_of(op, index));
        orbit.insert(negative(image_of(op, index)));
    }
    return orbit;
}

// A reflection is absent if an operator leads it to itself with another phase.
bool is_absent(const op_list& ops, const hkl& index) {
    return std::any_of(ops.begin(), ops.end(), [&](const op_array& op) {
        const int phase = index[0] * op[3] + index[1] * op[7] + index[2] * op[11];
        return phase % 360 != 0 && image_of(op, index) == index;
    });
}

// The reflections of a group by the definition, each orbit by its greatest member.
struct definition {
    definition(const group_lists& group, const hkl& limits) : ops(arrays_of(group.ops)) {
        for (int h = 0; h <= limits[0]; ++h) {
            for (int k = -limits[1]; k <= limits[1]; ++k) {
                for (int l = -limits[2]; l <= limits[2]; ++l) take(group, {h, k, l});
            }
        }
        for (auto* rows : {&all, &present}) rows->erase({0, 0, 0});
    }
    void take(const group_lists& group, const hkl& index) {
        std::set<hkl> orbit = orbit_of(ops, index);
        const int n = static_cast<int>(orbit.size());
        if (!all.emplace(*orbit.rbegin(), n).second || is_absent(ops, index)) return;
        present[*orbit.rbegin()] = n;
        marked[3].merge(orbit);
        const auto& [h, k, l] = index;
        for (const xyz_op_3& op : group.classes[hkl_class_of_3(h, k, l)]) {
            triple_3 v;
            rotate_triple(v, op, h, k, l);
            const hkl image = {v[0], v[1], v[2]};
            marked[0].merge(std::set<hkl>{image, std::max(image, negative(image))});
            marked[1].insert(negative(image));
            marked[2].merge(std::set<hkl>{negative(image), std::max(image, negative(image))});
        }
    }
    op_list ops;
    std::map<hkl, int> all;  // with the number of members
    std::map<hkl, int> present;
    std::set<hkl> marked[4];  // by mode: what the first member that the loops come to leads to
};

std::map<hkl, int> multiplicities(const row_list_3& rows) {
    std::map<hkl, int> found;
    for (const hkl_row_3& row : rows) found[{row.h, row.k, row.l}] = row.multiplicity;
    EXPECT_EQ(found.size(), static_cast<std::size_t>(rows.n));
    return found;
}

TEST(ReflectionVariants, EverySetting) {
    const scratch_dir dir;
    const triple_3 limits = {{3, 3, 4}};
    for (const setting& row : read_settings()) {
        SCOPED_TRACE(row.symbol + ' ' + row.choice);
        const group_lists group(row.operators);
        const definition expected(group, {3, 3, 4});
        hkl_generator_3 generator;
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
        if (row.symbol == "C -4 2 b") continue;  // what is absent there, a free axis lets pass
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
            EXPECT_EQ(marked, expected.marked[mode]) << mode;
        }
    }
}

TEST(ReflectionVariants, NothingToList) {
    const group_lists group("x,y,z;-x,-y,-z");
    const struct {
        class_lists_3 classes;
        triple_3 limits;
        int n;
        bool has_cell;  // for 1, 1, 1
    } rows[] = {{{}, {{2, 2, 2}}, 0, false},
                {group.classes, {{-1, 2, 2}}, 0, true},
                {group.classes, {{2, 2, -2}}, 0, true},
                {group.classes, {{0, 0, 0}}, 0, false},
                {group.classes, {{2, 2, 2}}, 62, true}};
    hkl_generator_3 generator;
    row_list_3 list;
    int n = 0;
    for (const auto& row : rows) {
        for (const int tests : {0, 1}) {
            generator.generate_all(row.classes, group.ops, row.limits, list, tests);
            n += row.n;
            EXPECT_EQ(list.n, n) << "behind those that were there";
            generator.mark_orbit(1, 1, 1);
            EXPECT_EQ(generator.is_marked(1, 1, 1), row.has_cell);
        }
    }
    EXPECT_FALSE(generator.is_marked(2000000000, -2000000000, 5));
    class_lists_3 general;  // no other class has reflections
    general.add(group.classes[0]);
    int_list_3 status;
    generator.generate_with_status(general, group.ops, {{2, 2, 2}}, list, status);
    EXPECT_EQ(list.n, n + 2 * 4 * 4);
    // A call that fails leaves no grid, whatever there was before.
    for (const triple_3& limits : {triple_3{{1 << 20, 1 << 20, 0}}, {{1 << 30, 1 << 30, 1}}}) {
        generator.generate_all(group.classes, group.ops, {{2, 2, 2}}, list, 1);
        EXPECT_TRUE(generator.is_marked(0, 0, 0));
        EXPECT_FAILURE(generator.generate_all(group.classes, group.ops, limits, list, 1),
                       " Index limits too large");
        generator.mark_orbit(1, 1, 1);
        EXPECT_FALSE(generator.is_marked(1, 1, 1) || generator.is_marked(0, 0, 0));
    }
    hkl_generator_3 unprepared;
    unprepared.mark_orbit(1, 1, 1);
    EXPECT_FALSE(unprepared.is_marked(0, 0, 0));
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
    for (const setting& row : read_settings()) {
        SCOPED_TRACE(row.symbol + ' ' + row.choice);
        const xyz_list_3 ops = xyz_list_of(row.operators);
        const op_list arrays = arrays_of(ops);
        partition_3 partition;
        std::vector<std::vector<hkl>> images(arrays.size());  // of the points so far
        for (const hkl& p : points) {
            refine_partition_3(ops, partition, p[0] / 12.0, p[1] / 12.0, p[2] / 12.0);
            std::map<std::vector<hkl>, std::vector<int>> sets;
            for (std::size_t k = 0; k < arrays.size(); ++k) {
                images[k].push_back(image_of_twelfths(arrays[k], p));
                sets[images[k]].push_back(static_cast<int>(k));
            }
            std::set<std::vector<int>> expected;
            for (const auto& [image, set] : sets) expected.insert(set);
            std::set<std::vector<int>> found;
            for (const int_list_3& set : partition) found.insert({set.begin(), set.end()});
            ASSERT_EQ(found, expected);
        }
    }
}

TEST(ReflectionVariants, PartitionsOfOddPoints) {
    const xyz_list_3 ops = xyz_list_of("x,y,z;-x,-y,-z;x+1/2,y,z");
    const struct {
        double x;
        std::vector<int> sizes;
    } rows[] = {{1e-10, {1, 2}},
                {-1 + 1e-10, {1, 2}},
                {0.123, {1, 1, 1}},
                {HUGE_VAL, {3}},
                {std::nan(""), {3}}};
    for (const auto& row : rows) {
        partition_3 partition;
        refine_partition_3(ops, partition, row.x, 0.0, 0.0);
        std::vector<int> sizes;
        for (const int_list_3& set : partition) sizes.push_back(set.n);
        std::sort(sizes.begin(), sizes.end());
        EXPECT_EQ(sizes, row.sizes) << row.x;
    }
    partition_3 partition;
    refine_partition_3({}, partition, 0, 0, 0);
    EXPECT_EQ(partition.n, 0);
    partition.add().add(7);  // no such operator
    refine_partition_3(ops, partition, 0, 0, 0);
    EXPECT_EQ(partition.n, 0);
}

}  // namespace
