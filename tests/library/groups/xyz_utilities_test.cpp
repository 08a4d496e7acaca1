#include "library/groups/xyz_utilities.h"

#include <gtest/gtest.h>
#include <limits>

#include "support/operators.h"

namespace {

TEST(XyzUtilities, Axes) {
    xyz_list_3 ops = xyz_list_of("x,y,z;-x,y+1/2,-z+1/4;y,x,-z");
    EXPECT_EQ(smallest_translation(ops, 0), 0);
    EXPECT_EQ(smallest_translation(ops, 1), 180);
    ops[0].trans(1) = -90;
    EXPECT_EQ(smallest_translation(ops, 1), -90);
    EXPECT_EQ(axis_is_unit(ops, 1), 0);
    ops.set_n(1);
    EXPECT_EQ(axis_is_unit(ops, 1), 1);  // though it is shifted
    for (const char* op : {"x-y,y,z", "-x,y,z", "z,y,x"}) {
        EXPECT_EQ(axis_is_unit(xyz_list_of(op), 0), 0) << op;
    }
    EXPECT_EQ(axis_is_unit(xyz_list_of("x,x+y,z"), 1), 0);
    clear_axis(ops, 1);
    EXPECT_EQ(array_of(ops[0]), (op_array{1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0}));
    EXPECT_TRUE(column_is_zero(ops[0], 1));
    EXPECT_FALSE(column_is_zero(ops[0], 2));
}

TEST(XyzUtilities, Triples) {
    const xyz_op_3 op = xyz_op_of("-y,x-y,z+1/3");
    triple_3 out = {{9, 9, 9}};
    rotate_triple(out, op, 1, 2, 3);
    add_rotated_triple(out, op, 1, 2, 3);
    EXPECT_EQ(out, (triple_3{{-4, -2, 6}}));
    add_rotated_triple(out, op, 0, 0, std::numeric_limits<int>::max());  // wraps
    EXPECT_EQ(out[2], std::numeric_limits<int>::min() + 5);
}

TEST(XyzUtilities, Cycles) {
    xyz_list_3 ops;
    xyz_op_3 h = identity_xyzs()[0];
    EXPECT_EQ(rotation_cycle(xyz_op_of("-y,x,z+1/4"), h, ops), 1);
    EXPECT_EQ(array_of(h), op_of("y,-x,z")) << "the last but one of the cycle";
    // The list may hold the generator, and grows while it is used.
    ops = xyz_list_of("-x,-y,-z");
    ops.set_max_n(1, true);
    EXPECT_EQ(close_cycles(ops[0], ops), 1);
    EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of("-x,-y,-z;x,y,z;-x,-y,-z")));
    const struct {
        const char* generator;
        int by_rotation, n_by_rotation;  // result and products
        int by_operator, n_by_operator;
    } rows[] = {
        {"x+1/12,y,z", 1, 1, 1, 13}, {"x+1/15,y,z", 1, 1, 0, 15}, {"x+y,y,z", 0, 24, 0, 15}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.generator);
        const xyz_op_3 g = xyz_op_of(row.generator);
        h = identity_xyzs()[0];
        ops.clear();
        EXPECT_EQ(rotation_cycle(g, h, ops), row.by_rotation);
        EXPECT_EQ(ops.n, row.n_by_rotation);
        ops.clear();
        EXPECT_EQ(close_cycles(g, ops), row.by_operator);
        EXPECT_EQ(ops.n, row.n_by_operator);
    }
    const xyz_op_3 shear = xyz_op_of("x+y,y,z");
    EXPECT_EQ(power_reaches(shear, shear), 1);
    EXPECT_EQ(power_reaches(shear, identity_xyzs()[0]), 0);  // after 24 powers
    const xyz_op_3 sixfold = xyz_op_of("x-y,x,z");
    const char* const powers[] = {"-y,x-y,z", "-x,-y,z+1/2", "-x+y,-x,z", "y,-x+y,z", "x,y,z"};
    ops.clear();
    h = sixfold;
    EXPECT_EQ(rotation_cycle(sixfold, h, ops), 1);
    ASSERT_EQ(ops.n, 6);
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(same_rotation(ops[i], xyz_op_of(powers[i])));
        EXPECT_EQ(power_reaches(sixfold, xyz_op_of(powers[i])), 1);
    }
    EXPECT_EQ(power_reaches(sixfold, xyz_op_of("-x,-y,-z")), 0);
}

}  // namespace
