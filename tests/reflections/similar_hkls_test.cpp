#include "reflections/similar_hkls.h"

#include <gtest/gtest.h>
#include <string>

#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/scratch_dir.h"
#include "textout/sstring_out.h"

namespace {

// The form as it is told in the text: the new indices.
std::string form_text(int place) {
    xyz_op_3 op = hkl_form_table_3()[place];
    transpose_rotation(op);
    std::string text;
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            if (op.rot(i, j) < 0) text += '-';
            if (op.rot(i, j) > 0) text += '+';
            if (op.rot(i, j) != 0) text += "hkl"[j];
        }
        if (i < 2) text += ", ";
    }
    return text;
}

TEST(SimilarHkls, FormTable) {
    const xyz_list_3& table = hkl_form_table_3();
    ASSERT_EQ(table.n, 112);
    std::set<op_array> distinct;
    for (const xyz_op_3& form : table) {
        EXPECT_EQ(std::abs(determinant(form)), 1.0);
        distinct.insert(array_of(form));
    }
    const struct {
        int place;
        const char* text;
    } rows[] = {
        {0, "+h, +k, +l"},    {5, "-h, +k, -l"},     {8, "+h, +l, +k"},     {26, "+k, -l, +h"},
        {47, "-l, -k, -h"},   {48, "+h+k, +k, +l"},  {49, "+h+k, -k, +l"},  {50, "+h-k, +k, +l"},
        {56, "+h+k, +h, +l"}, {63, "-h-k, -h, +l"},  {64, "+k, +h+k, +l"},  {73, "-h, +h+k, +l"},
        {80, "+h+k, +k, -l"}, {103, "-k, -h-k, -l"}, {111, "-h, -h-k, -l"},
    };
    for (const auto& row : rows) EXPECT_EQ(form_text(row.place), row.text) << row.place;
}

class_lists_3 classes_of(const char* text) {
    xyz_list_3 ops = xyz_list_of(text);
    sort_xyzs_3(ops);
    class_lists_3 classes;
    similar_hkls_3(ops, classes);
    return classes;
}

constexpr char p1_text[] =
    "\n\n' Note: Friedel pairs are not included in the following"
    "\nhkl\n{\n\th, k, l\n} 1\nhk0\n{\n\th, k, 0\n} 1\nh0l\n{\n\th, 0, l\n} 1"
    "\n0kl\n{\n\t0, k, l\n} 1\nh00\n{\n\th, 0, 0\n} 1\n0k0\n{\n\t0, k, 0\n} 1"
    "\n00l\n{\n\t0, 0, l\n} 1";

TEST(SimilarHkls, WorkedLists) {
    const struct {
        const char* ops;
        int place;
        const char* list;
    } rows[] = {
        {"x,y,z;-y,x,z;-x,-y,z;y,-x,z", 0, "h,k,l;-h,-k,l;k,-h,l;-k,h,l"},
        {"x,y,z;-y,x,z;-x,-y,z;y,-x,z", 1, "-h,-k,0;k,-h,0"},
        {"x,y,z;-y,x,z;-x,-y,z;y,-x,z", 2, "-h,0,l;0,-h,l;0,h,l;h,0,l"},
        {"x,y,z;-y,x,z;-x,-y,z;y,-x,z", 6, "0,0,l"},
        {"x,y,z;x-y,x,z;-y,x-y,z;-x,-y,z;-x+y,-x,z;y,-x+y,z", 0,
         "h,k,l;-h,-k,l;h+k,-h,l;-h-k,h,l;-k,h+k,l;k,-h-k,l"},
        {"x,y,z;-x,y+1/2,-z", 0, "h,k,l;-h,k,-l"},
        {"x,y,z;-x,y+1/2,-z", 6, "0,0,-l"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(arrays_of(classes_of(row.ops)[row.place]), arrays_of(xyz_list_of(row.list)))
            << row.ops << " class " << row.place;
    }
    for (const setting& row : read_settings()) {
        if (row.number != 221 && row.number != 227) continue;
        const class_lists_3 classes = classes_of(row.operators.c_str());
        const int counts[] = {24, 12, 12, 12, 3, 3, 3};
        for (int i = 0; i < 7; ++i) EXPECT_EQ(classes[i].n, counts[i]) << row.symbol << i;
    }
    EXPECT_EQ(classes_of("x,y+1/2,z;-x,y,z")[0].n, 0) << "no group: an operator without rotation "
                                                         "isn't its unit";
    EXPECT_EQ(classes_of("")[0].n, 0);
}

TEST(SimilarHkls, Text) {
    for (const char* ops : {"x,y,z", "x,y,z;-x,-y,-z", "x,y,z;-x+1/2,-y+1/4,-z"}) {
        sstring_out out;
        xyz_list_3 list = xyz_list_of(ops);
        sort_xyzs_3(list);
        add_similar_hkls_3(list, out);
        EXPECT_STREQ(out.text(), p1_text) << ops;
    }
    sstring_out out;
    class_lists_3 classes;
    classes.new_n(6);
    EXPECT_FAILURE(out_similar_hkls_3(out, classes), " Error in out_similar_hkls_3");
    EXPECT_STREQ(out.text(), "\n\n' Note: Friedel pairs are not included in the following");
}

TEST(SimilarHkls, Append) {
    const scratch_dir dir;
    EXPECT_FAILURE(append_hhh_3("p1.sg"), " Cannot open file p1.sg");
    for (const std::string text : {"xyzs { x, y, z", "", "hkl"}) {
        write_file("p1.sg", text);
        EXPECT_TRUE(message_of([] { append_hhh_3("p1.sg"); }).has_value());
        EXPECT_EQ(read_file("p1.sg"), text);
    }
    const std::string text = "xyzs\n{\n\tx, y, z \n\t-x, -y+3/2, -z-1/2\n}";
    write_file("p1.sg", text);
    append_hhh_3("p1.sg");
    EXPECT_EQ(read_file("p1.sg"), text + p1_text);
}

}  // namespace
