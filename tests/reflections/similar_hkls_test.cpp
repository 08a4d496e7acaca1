#include "reflections/similar_hkls.h"

#include <gtest/gtest.h>
#include <string>

#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/scratch_dir.h"
#include "textout/stream_out.h"

namespace {

TEST(SimilarHkls, FormTable) {
    const xyz_list_3& table = hkl_form_table_3();
    ASSERT_EQ(table.n, 112);
    std::set<op_array> distinct;
    for (const xyz_op_3& form : table) distinct.insert(array_of(form));
    EXPECT_EQ(distinct.size(), 112U);
    const struct {
        int place;
        const char* indices;
    } rows[] = {{5, "-h, k, -l"},      {26, "k, -l, h"},     {49, "h+k, -k, l"},
                {50, "h-k, k, l"},     {56, "h+k, h, l"},    {73, "-h, h+k, l"},
                {103, "-k, -h-k, -l"}, {111, "-h, -h-k, -l"}};
    for (const auto& row : rows) {
        xyz_op_3 op = table[row.place];
        transpose_rotation(op);
        EXPECT_EQ(array_of(op), op_of(row.indices)) << row.place;
    }
}

class_lists_3 classes_of(const char* text) {
    xyz_list_3 ops = xyz_list_of(text);
    sort_xyzs_3(ops);
    class_lists_3 classes;
    similar_hkls_3(ops, classes);
    return classes;
}

TEST(SimilarHkls, WorkedLists) {
    constexpr char p4[] = "x,y,z;-y,x,z;-x,-y,z;y,-x,z";
    const struct {
        const char* ops;
        int place;
        const char* list;
    } rows[] = {{p4, 0, "h,k,l;-h,-k,l;k,-h,l;-k,h,l"},
                {p4, 1, "-h,-k,0;k,-h,0"},
                {p4, 2, "-h,0,l;0,-h,l;0,h,l;h,0,l"},
                {"x,y,z;-x,y+1/2,-z", 6, "0,0,-l"},
                // No group: an operator without rotation isn't its unit.
                {"x,y+1/2,z;-x,y,z", 0, ""},
                {"", 0, ""}};
    for (const auto& row : rows) {
        EXPECT_EQ(arrays_of(classes_of(row.ops)[row.place]), arrays_of(xyz_list_of(row.list)))
            << row.ops << " class " << row.place;
    }
    stream_out nowhere;
    class_lists_3 classes;
    classes.new_n(6);
    EXPECT_FAILURE(out_similar_hkls_3(nowhere, classes), " Error in out_similar_hkls_3");
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
    EXPECT_EQ(read_file("p1.sg"),
              text +
                  "\n\n' Note: Friedel pairs are not included in the following"
                  "\nhkl\n{\n\th, k, l\n} 1\nhk0\n{\n\th, k, 0\n} 1\nh0l\n{\n\th, 0, l\n} 1"
                  "\n0kl\n{\n\t0, k, l\n} 1\nh00\n{\n\th, 0, 0\n} 1\n0k0\n{\n\t0, k, 0\n} 1"
                  "\n00l\n{\n\t0, 0, l\n} 1");
}

}  // namespace
