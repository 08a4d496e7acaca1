#include "library/reflection_variants.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <vector>

#include "reflections/similar_hkls.h"
#include "sgfile/sg_reader.h"
#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/scratch_dir.h"

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
        const hkl image = image_of(op, index);
        orbit.insert(image);
        orbit.insert({-image[0], -image[1], -image[2]});
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

bool has_free_axis(const op_list& ops) {
    for (unsigned i = 0; i < 3; ++i) {
        if (std::all_of(ops.begin(), ops.end(), [&](const op_array& op) {
                return op[4 * i + 3] == 0 && op[4 * i + (i + 1) % 3] == 0 &&
                       op[4 * i + (i + 2) % 3] == 0;
            })) {
            return true;
        }
    }
    return false;
}

// By the indices of the greatest member: the number of members, and whether they are present.
using row_map = std::map<hkl, std::pair<int, bool>>;

row_map rows_by_definition(const op_list& ops, const hkl& limits) {
    row_map rows;
    for (int h = 0; h <= limits[0]; ++h) {
        for (int k = -limits[1]; k <= limits[1]; ++k) {
            for (int l = -limits[2]; l <= limits[2]; ++l) {
                const std::set<hkl> orbit = orbit_of(ops, {h, k, l});
                rows[*orbit.rbegin()] = {static_cast<int>(orbit.size()),
                                         !is_absent(ops, {h, k, l})};
            }
        }
    }
    rows.erase({0, 0, 0});
    return rows;
}

hkl indices_of(const hkl_row_3& row) { return {row.h, row.k, row.l}; }

std::map<hkl, int> multiplicities(const row_list_3& rows) {
    std::map<hkl, int> found;
    for (const hkl_row_3& row : rows) found[indices_of(row)] = row.multiplicity;
    EXPECT_EQ(found.size(), static_cast<std::size_t>(rows.n));
    return found;
}

TEST(ReflectionVariants, EverySetting) {
    constexpr hkl limits = {3, 3, 4};
    const triple_3 limit_triple = {{3, 3, 4}};
    for (const setting& row : read_settings()) {
        SCOPED_TRACE(row.symbol + ' ' + row.choice);
        const group_lists group(row.operators);
        const op_list ops = arrays_of(group.ops);
        std::map<hkl, int> all;
        std::map<hkl, int> present;
        const row_map expected = rows_by_definition(ops, limits);
        for (const auto& [index, value] : expected) {
            all[index] = value.first;
            if (value.second) present[index] = value.first;
        }
        hkl_generator_3 generator;
        row_list_3 rows;
        generator.generate_all(group.classes, group.ops, limit_triple, rows, 0);
        EXPECT_EQ(multiplicities(rows), all);
        rows.clear();
        int_list_3 status;
        generator.generate_with_status(group.classes, group.ops, limit_triple, rows, status);
        EXPECT_EQ(multiplicities(rows), all);
        ASSERT_EQ(status.n, rows.n);
        const bool free_axis = has_free_axis(ops);
        for (int i = 0; i < rows.n; ++i) {
            const hkl index = indices_of(rows[i]);
            const bool is_general = index[0] != 0 && index[1] != 0 && index[2] != 0;
            if (free_axis && is_general) continue;
            EXPECT_EQ(status[i], expected.at(index).second ? 1 : 2);
        }
        if (row.symbol == "C -4 2 b") continue;  // what is absent there, a free axis lets pass
        rows.clear();
        generator.generate_all(group.classes, group.ops, limit_triple, rows, 1);
        EXPECT_EQ(multiplicities(rows), present);
    }
}

TEST(ReflectionVariants, Screw) {
    const group_lists group("x,y,z;-x,y+1/2,-z");
    hkl_generator_3 generator;
    row_list_3 rows;
    int_list_3 status;
    generator.generate_with_status(group.classes, group.ops, {{0, 3, 0}}, rows, status);
    ASSERT_EQ(rows.n, 3);
    EXPECT_GE(status.n_max, 50000);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(indices_of(rows[i]), (hkl{0, 3 - i, 0}));
        EXPECT_EQ(rows[i].multiplicity, 2);
        EXPECT_EQ(status[i], i == 1 ? 1 : 2);
    }
    generator.generate_with_status(group.classes, group.ops, {{0, 1, 0}}, rows, status);
    EXPECT_EQ(rows.n, 4);  // behind those that were there
    EXPECT_EQ(status.n, 4);
}

TEST(ReflectionVariants, NothingToList) {
    const group_lists group("x,y,z;-x,-y,-z");
    const triple_3 limits = {{2, 2, 2}};
    const struct {
        class_lists_3 classes;
        triple_3 limits;
        int n;
        bool has_cell;  // for 1, 1, 1
    } rows[] = {{{}, limits, 0, false},
                {group.classes, {{-1, 2, 2}}, 0, true},
                {group.classes, {{2, 2, -2}}, 0, true},
                {group.classes, {{0, 0, 0}}, 0, false},
                {group.classes, limits, 62, true}};
    for (const auto& row : rows) {
        for (const int tests : {0, 1}) {
            hkl_generator_3 generator;
            row_list_3 list;
            generator.generate_all(row.classes, group.ops, row.limits, list, tests);
            EXPECT_EQ(list.n, row.n);
            generator.mark_orbit(1, 1, 1);
            EXPECT_EQ(generator.is_marked(1, 1, 1), row.has_cell);
        }
    }
    class_lists_3 general;
    general.add(group.classes[0]);
    hkl_generator_3 generator;
    row_list_3 list;
    generator.generate_all(general, group.ops, limits, list, 1);
    EXPECT_EQ(list.n, 2 * 4 * 4);
    EXPECT_FAILURE(
        generator.generate_all(general, group.ops, {{1 << 20, 1 << 20, 1 << 20}}, list, 0),
        " Index limits too large");
    hkl_generator_3 unprepared;
    unprepared.mark_orbit(0, 0, 0);
    EXPECT_FALSE(unprepared.is_marked(0, 0, 0));
    EXPECT_FALSE(generator.is_marked(2000000000, -2000000000, 5));
}

// The marked cells of a grid that holds all members of the orbits within the limits of 4.
std::set<hkl> marked(const hkl_generator_3& generator) {
    std::set<hkl> cells;
    for (int h = -9; h <= 9; ++h) {
        for (int k = -9; k <= 9; ++k) {
            for (int l = -9; l <= 9; ++l) {
                if (generator.is_marked(h, k, l)) cells.insert({h, k, l});
            }
        }
    }
    return cells;
}

hkl negative(const hkl& index) { return {-index[0], -index[1], -index[2]}; }

TEST(ReflectionVariants, MarksPresentOnes) {
    for (const char* stem : {"p-1", "c2oc", "p61", "fddd", "r3", "p213", "i-4"}) {
        SCOPED_TRACE(stem);
        const std::string path = std::string(GOLDEN_DIR "/") + stem + ".sg";
        xyz_list_3 ops;
        load_sg_file_xyzs_3(path.c_str(), ops);
        normalise_xyzs_3(ops);
        sort_xyzs_3(ops);
        class_lists_3 classes;
        similar_hkls_3(ops, classes);
        const op_list arrays = arrays_of(ops);
        // The first of each orbit that the loops come to, under one of each pair of operators.
        std::set<hkl> images;
        std::set<hkl> present = {{0, 0, 0}};
        for (int i = 0; i < 5 * 9 * 9; ++i) {
            const hkl index = {i / 81, i / 9 % 9 - 4, i % 9 - 4};
            if (present.contains(index) || is_absent(arrays, index)) continue;
            present.merge(orbit_of(arrays, index));
            const int class_number = hkl_class_of_3(index[0], index[1], index[2]);
            for (const xyz_op_3& op : classes[class_number]) {
                hkl image{};
                for (int r = 0; r < 3; ++r) {
                    for (int c = 0; c < 3; ++c) {
                        image[static_cast<unsigned>(r)] +=
                            op.rot(r, c) * index[static_cast<unsigned>(c)];
                    }
                }
                images.insert(image);
            }
        }
        std::set<hkl> expected[4] = {{{0, 0, 0}}, {{0, 0, 0}}, {{0, 0, 0}}, present};
        for (const hkl& index : images) {
            expected[0].merge(std::set<hkl>{index, std::max(index, negative(index))});
            expected[1].insert(negative(index));
            expected[2].merge(std::set<hkl>{negative(index), std::max(index, negative(index))});
        }
        for (int mode = 0; mode < 4; ++mode) {
            hkl_generator_3 first;
            hkl_generator_3 second;
            mark_present(first, second, mode, path.c_str(), ops, {{4, 4, 4}});
            EXPECT_EQ(marked(second), expected[mode]) << mode;
        }
    }
}

TEST(ReflectionVariants, PartitionsBySitesOfEverySetting) {
    const int points[][3] = {{0, 0, 0}, {0, 3, 6}, {4, 8, 1}, {-5, 17, 2}};  // in twelfths
    for (const setting& row : read_settings()) {
        SCOPED_TRACE(row.symbol + ' ' + row.choice);
        const xyz_list_3 ops = xyz_list_of(row.operators);
        const op_list arrays = arrays_of(ops);
        partition_3 partition;
        std::vector<std::vector<int>> images(arrays.size());
        for (const auto& p : points) {
            refine_partition_3(ops, partition, p[0] / 12.0, p[1] / 12.0, p[2] / 12.0);
            std::map<std::vector<int>, std::vector<int>> sets;
            for (std::size_t k = 0; k < arrays.size(); ++k) {
                for (unsigned i = 0; i < 3; ++i) {
                    const op_array& op = arrays[k];
                    const int sum = op[4 * i] * p[0] + op[4 * i + 1] * p[1] + op[4 * i + 2] * p[2];
                    images[k].push_back(((30 * sum + op[4 * i + 3]) % 360 + 360) % 360);
                }
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
    const double inf = HUGE_VAL;
    const struct {
        double x;
        std::vector<std::size_t> sizes;
    } rows[] = {{0.0, {2, 1}},      {0.25, {1, 1, 1}}, {1e-10, {2, 1}},    {-1 + 1e-10, {2, 1}},
                {0.123, {1, 1, 1}}, {inf, {3}},        {std::nan(""), {3}}};
    for (const auto& row : rows) {
        partition_3 partition;
        refine_partition_3(ops, partition, row.x, row.x == 0.25 ? 0.1 : 0.0, 0.0);
        std::vector<std::size_t> sizes;
        for (const int_list_3& set : partition) sizes.push_back(static_cast<std::size_t>(set.n));
        std::sort(sizes.rbegin(), sizes.rend());
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
