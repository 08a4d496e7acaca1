#include <climits>
#include <gtest/gtest.h>
#include <string>

#include "sgfile/sg_reader.h"
#include "support/operators.h"
#include "symmetry/xyz_op_3.h"
#include "textout/sstring_out.h"

namespace {

std::string text_of(const xyz_op_3& op) {
    sstring_out out;
    write_xyz(out, op);
    return out.text();
}

TEST(XyzOp, ComposesInOrder) {
    xyz_op_3 op = xyz_op_of("-y+1/4,x,z+1/2");
    op.tag = 7;
    compose(op, xyz_op_of("z,x+3/4,-y"));
    EXPECT_EQ(op.trans(1), 360) << "not normalised";
    EXPECT_EQ(op.tag, 0);
    normalise(op);
    EXPECT_EQ(array_of(op), op_of("z+1/2,-y,-x"));
    xyz_op_3 square = xyz_op_of("-y,x,z+1/4");
    compose(square, square);
    EXPECT_EQ(array_of(square), op_of("-x,-y,z+1/2"));
}

TEST(XyzOp, ChangesParts) {
    const xyz_op_3 op = xyz_op_of("x-y,z+1/4,-x");
    xyz_op_3 changed = op;
    negate_rotation(changed, 3);
    EXPECT_EQ(array_of(changed), op_of("-x+y,-z+1/4,x"));
    negate_rotation(changed, 4);
    EXPECT_EQ(array_of(changed), (op_array{1, -1, 0, 0, 0, 0, 1, -90, -1, 0, 0, 0}));
    changed = op;
    changed.tag = 3;
    permute_columns(changed, op, {{1, 2, 0}});
    EXPECT_EQ(array_of(changed), op_of("-x+z,y+1/4,-z"));
    EXPECT_EQ(changed.tag, 3);
    add_translation(changed, {{-30, INT_MAX, 720}});
    EXPECT_EQ(changed.trans(1), INT_MIN + 89) << "wraps";
    normalise(changed);
    EXPECT_EQ(changed.trans(0), 330);
    EXPECT_EQ(changed.trans(2), 0);
    EXPECT_EQ(normalised_translation(INT_MIN), 360 - 128);
}

// Field by field in the order of the record; the tag has no say.
TEST(XyzOp, Order) {
    for (unsigned low = 0; low < 12; ++low) {
        for (unsigned high = 0; high < 12; ++high) {
            op_array a_array{};
            op_array b_array{};
            a_array[low] = b_array[high] = -1;
            xyz_op_3 a = xyz_op_of(a_array);
            const xyz_op_3 b = xyz_op_of(b_array);
            a.tag = static_cast<int>(high);
            EXPECT_EQ(less_than(a, b), low < high);
            EXPECT_EQ(same_as(a, b), low == high);
            EXPECT_EQ(same_rotation(a, b), low == high || (low % 4 == 3 && high % 4 == 3));
        }
    }
}

TEST(XyzOp, Lists) {
    const std::string two = "x,y,z;-x,-y,z+1/2";
    xyz_list_3 ops = xyz_list_of(two + ";" + two + ";x,y,z");
    ops[4].tag = 1;
    keep_unique_6(ops);
    EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of("-x,-y,z+1/2;x,y,z")));
    xyz_list_3 other = xyz_list_of(two);
    EXPECT_FALSE(equal_xyzs_3(ops, other));
    sort_xyzs_3(other);
    EXPECT_TRUE(equal_xyzs_3(ops, other));
    other.add(xyz_op_of("x,y,z"));
    EXPECT_FALSE(equal_xyzs_3(ops, other));
    // The left operator comes last, and the left list is the outer loop.
    xyz_list_3 out = xyz_list_of("z,z,z");
    multiply_xyz_lists_3(out, xyz_list_of("z,x,y;y,x,z"), xyz_list_of("x+1/4,y,z;-x,y,z"));
    EXPECT_EQ(arrays_of(out), arrays_of(xyz_list_of("z,z,z;z,x+1/4,y;z,-x,y;y,x+1/4,z;y,-x,z")));
}

TEST(XyzOp, Texts) {
    const struct {
        int t;
        std::string text;
    } fractions[] = {{0, "0"},        {240, "-1/3"},   {270, "-1/4"},
                     {30, "+1/12"},   {-180, "+1/2"},  {51, "+17/120"},
                     {359, "-1/360"}, {26, "+13/180"}, {540, "+1/2"}};
    for (const auto& row : fractions) {
        EXPECT_EQ(fraction_text(row.t, true), row.text);
        EXPECT_EQ(fraction_text(row.t, false), row.text.substr(row.text[0] == '+')) << row.t;
    }
    EXPECT_EQ(text_of(xyz_op_of("-x+y,-y+z+3/4,-x-y-z")), "\n\t-x+y, -y+z-1/4, -x-y-z ");
    EXPECT_EQ(text_of(xyz_op_of({2, -2, 0, 180, 0, 0, 0, 0, 0, 0, 0, 90})), "\n\tx+y+1/2, , +1/4 ");
}

// Facts of group theory for every operator of every setting.
TEST(XyzOp, AlgebraInEverySetting) {
    const op_array identity = op_of("x,y,z");
    for_each_setting([&](const setting& row) {
        ASSERT_TRUE(row.group.contains(identity));
        const xyz_op_3 first = xyz_op_of(*row.group.begin());
        for (const op_array& array : row.group) {
            const xyz_op_3 op = xyz_op_of(array);
            xyz_op_3 product = op;
            xyz_op_3 inverse = op;
            invert(inverse);
            compose(product, inverse);
            ASSERT_EQ(array_of(product), identity);
            compose(inverse, first);
            normalise(inverse);
            ASSERT_TRUE(row.group.contains(array_of(inverse))) << "not closed";
            ASSERT_EQ(std::abs(determinant(op)), 1.0);
            const int order = rotation_order(op, 24);
            ASSERT_TRUE(order == 1 || order == 2 || order == 3 || order == 4 || order == 6);
            // What is written is read back, here and by the reader of .sg files.
            const std::string text = text_of(op) + "\n";
            ASSERT_EQ(op_of(text), array);
            sstring_in in(text.c_str());
            in.skip_white();
            xyz_op_3 back;
            load_xyz_op_3(in, back);
            normalise(back);
            ASSERT_EQ(array_of(back), array);
        }
    });
}

TEST(XyzOp, BadMatrices) {
    xyz_op_3 op = xyz_op_of({INT_MAX, INT_MIN, 7, 0, 1, INT_MIN, INT_MAX, 0, 3, 5, INT_MAX, 9});
    EXPECT_EQ(rotation_order(op, 24), 0);
    negate_rotation(op, 4);
    EXPECT_EQ(op.rot(0, 1), INT_MIN);
    invert(op);
    xyz_op_3 zero;
    invert(zero);  // nothing traps
}

}  // namespace
