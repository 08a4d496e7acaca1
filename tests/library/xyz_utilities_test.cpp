#include "library/xyz_utilities.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <set>

#include "support/operators.h"

namespace {

TEST(XyzUtilities, Axes) {
    xyz_list_3 ops = xyz_list_of("x,y,z;-x,y+1/2,-z+1/4;y,x,-z");
    EXPECT_EQ(smallest_translation(ops, 0), 0);
    EXPECT_EQ(smallest_translation(ops, 1), 180);
    ops[2].trans(1) = 90;
    EXPECT_EQ(smallest_translation(ops, 1), 90);
    ops[0].trans(1) = -90;
    EXPECT_EQ(smallest_translation(ops, 1), -90);
    EXPECT_EQ(smallest_translation({}, 0), 0);
    EXPECT_EQ(axis_is_unit(ops, 1), 0);
    ops.set_n(1);
    EXPECT_EQ(axis_is_unit(ops, 1), 1);  // though it is shifted
    EXPECT_EQ(axis_is_unit({}, 2), 1);
    const xyz_list_3 sheared = xyz_list_of("x-y,y,z");
    EXPECT_EQ(axis_is_unit(sheared, 0), 0);
    EXPECT_EQ(axis_is_unit(sheared, 1), 1);
    clear_axis(ops, 1);
    EXPECT_EQ(array_of(ops[0]), (op_array{1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0}));
    EXPECT_TRUE(column_is_zero(ops[0], 1));
    EXPECT_FALSE(column_is_zero(ops[0], 2));
    EXPECT_EQ(arrays_of(identity_xyzs()), (std::vector<op_array>{op_of("x,y,z")}));
}

TEST(XyzUtilities, Triples) {
    const xyz_op_3 op = xyz_op_of("-y,x-y,z+1/3");
    triple_3 out = {{9, 9, 9}};
    rotate_triple(out, op, 1, 2, 3);
    EXPECT_EQ(out, (triple_3{{-2, -1, 3}}));
    add_rotated_triple(out, op, 1, 2, 3);
    EXPECT_EQ(out, (triple_3{{-4, -2, 6}}));
    constexpr int most = std::numeric_limits<int>::max();
    add_rotated_triple(out, op, 0, 0, most);  // wraps
    EXPECT_EQ(out[2], std::numeric_limits<int>::min() + 5);
}

TEST(XyzUtilities, Cycles) {
    xyz_list_3 ops;
    xyz_op_3 h = identity_xyzs()[0];
    EXPECT_EQ(rotation_cycle(xyz_op_of("-y,x,z+1/4"), h, ops), 1);
    EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of("-y,x,z;-x,-y,z;y,-x,z;x,y,z")));
    EXPECT_EQ(array_of(h), op_of("y,-x,z"));

    ops.clear();
    EXPECT_EQ(close_cycles(xyz_op_of("-x,y+1/2,-z"), ops), 1);
    EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of("x,y,z;-x,y+1/2,-z;x,y,z")));
    // The list may hold the generator, and grows while it is used.
    ops = xyz_list_of("-x,-y,-z");
    ops.set_max_n(1, true);
    EXPECT_EQ(close_cycles(ops[0], ops), 1);
    EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of("-x,-y,-z;x,y,z;-x,-y,-z")));
}

TEST(XyzUtilities, EndlessCycles) {
    const struct {
        const char* generator;
        int by_rotation;  // result and products
        int n_by_rotation;
        int by_operator;
        int n_by_operator;
    } rows[] = {{"x+1/14,y,z", 1, 1, 0, 15},  // no fraction in 1/360: 25/360
                {"x+1/12,y,z", 1, 1, 1, 13},
                {"x+1/15,y,z", 1, 1, 0, 15},
                {"x+y,y,z", 0, 24, 0, 15},
                {"-y,x,z", 1, 4, 1, 5}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.generator);
        const xyz_op_3 g = xyz_op_of(row.generator);
        xyz_list_3 ops;
        xyz_op_3 h = identity_xyzs()[0];
        EXPECT_EQ(rotation_cycle(g, h, ops), row.by_rotation);
        EXPECT_EQ(ops.n, row.n_by_rotation);
        ops.clear();
        EXPECT_EQ(close_cycles(g, ops), row.by_operator);
        EXPECT_EQ(ops.n, row.n_by_operator);
    }
    const xyz_op_3 shear = xyz_op_of("x+y,y,z");
    EXPECT_EQ(power_reaches(shear, shear), 1);
    EXPECT_EQ(power_reaches(shear, identity_xyzs()[0]), 0);
    const xyz_op_3 screw = xyz_op_of("-x,y+1/2,-z");
    EXPECT_EQ(power_reaches(screw, xyz_op_of("-x,-y,-z")), 0);  // after 24 powers
}

using matrix = std::array<int, 9>;

matrix matrix_of(const xyz_op_3& op) {
    matrix m{};
    for (int i = 0; i < 9; ++i) m[static_cast<unsigned>(i)] = op.rot(i / 3, i % 3);
    return m;
}

matrix product(const matrix& a, const matrix& b) {
    matrix m{};
    for (unsigned i = 0; i < 9; ++i) {
        for (unsigned k = 0; k < 3; ++k) m[i] += a[i / 3 * 3 + k] * b[k * 3 + i % 3];
    }
    return m;
}

// Every rotation of every setting: its powers by plain matrices.
TEST(XyzUtilities, EverySetting) {
    std::set<matrix> done;
    for (const setting& row : read_settings()) {
        const xyz_list_3 ops = xyz_list_of(row.operators);
        for (const xyz_op_3& op : ops) {
            const matrix g = matrix_of(op);
            if (!done.insert(g).second) continue;
            SCOPED_TRACE(row.symbol);
            std::vector<matrix> powers = {g};
            const matrix unit = matrix_of(identity_xyzs()[0]);
            while (powers.back() != unit) powers.push_back(product(g, powers.back()));
            xyz_list_3 cycle;
            xyz_op_3 h = identity_xyzs()[0];
            EXPECT_EQ(rotation_cycle(op, h, cycle), 1);
            std::vector<matrix> found;
            for (const xyz_op_3& power : cycle) found.push_back(matrix_of(power));
            EXPECT_EQ(found, powers);
            for (const xyz_op_3& target : ops) {
                const bool reached =
                    std::find(powers.begin(), powers.end(), matrix_of(target)) != powers.end();
                EXPECT_EQ(power_reaches(op, target), reached);
            }
        }
    }
    EXPECT_GE(done.size(), 64U);
}

}  // namespace
