#include "sgfile/sg_reader.h"

#include <climits>
#include <gtest/gtest.h>
#include <string>

#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/scratch_dir.h"

namespace {

constexpr char bad_xyzs[] = " Error loading symmetry xyz's";
constexpr char bad_hkls[] = " Error loading symmetry hkls";

TEST(SgReader, Operators) {
    const op_array unit = op_of("x,y,z");
    const struct {
        const char* text;
        op_array op;
        int tag;
        const char* rest;
    } rows[] = {{"x\r\ny\rz\r\n\n", unit, 7, "\n"},
                {"x\ny\nz,-1\n}", unit, -1, "}"},
                {"x,y,z, \n +12a7 b", unit, 12, " b"},
                {"x,y,z,", unit, 0, ""},
                {",, \n", {}, 7, ""},
                {"- x+ 1/2, + y +1/4,\tz\t+\t1 / 3 \n", op_of("-x+1/2,y+1/4,z+1/3"), 7, ""},
                {"x-y+z,yx,zz-z\n", op_of("x-y+z,x+y,-z"), 7, ""},
                // A fraction takes all up to the slash, and then up to a blank.
                {"1/2+x,1/2 +x,1/2 1/3\n", op_of("1/2,x+1/2,1/3"), 7, ""},
                {"1 2 /4z,07/+12,1x/2\n", op_of("1/4,7/12,1/2"), 7, ""},
                {"9/8,-1/7,2/-4\n", {0, 0, 0, 405, 0, 0, 0, -51, 0, 0, 0, -180}, 7, ""},
                // Products that don't fit.
                {"11930465/104,1/99999999999, \n", {0, 0, 0, 1}, 7, ""},
                {"-268435456/1,, \n", {0, 0, 0, INT_MIN}, 7, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        sstring_in in(row.text);
        xyz_op_3 op = xyz_op_of({9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9, 9});
        op.tag = 7;
        load_xyz_op_3(in, op);
        EXPECT_EQ(array_of(op), row.op);
        EXPECT_EQ(op.tag, row.tag);
        EXPECT_STREQ(in.current(), row.rest);
    }
    constexpr char malformed[] =
        "|x|x,|x,y,|x,y,z|x,y,z}\n|x+1,y,z\n|+,y,z\n|x-,y,z\n|x,y- ,z\n|x,y,+-z\n|X,y,z\n|"
        "x,y,h\n|x,y,z'\n|x,1/,z\n|x,y,1/0\n|x,y,1/z\n|x,y,1 \n|x,y,-268435456/-1\n|"
        "x,\xff,z\n|x,y,*\n|{,,\n";
    for (const std::string& row : split(malformed, '|')) {
        sstring_in in(row.c_str());
        xyz_op_3 op;
        EXPECT_FAILURE(load_xyz_op_3(in, op), bad_xyzs) << row;
    }
}

TEST(SgReader, Blocks) {
    const struct {
        const char *text, *ops, *rest;
    } rows[] = {{"xyzs { }", "", ""},
                {"xyz xyzs{ x } xyzs more {x,y,z\n} 1", "x,y,z", " 1"},
                {"xyzs\n{x,y,z\n-x,y,-z\n", "x,y,z;-x,y,-z", ""},
                {"xyzs\n{ x,y,z,-1 -x,y,-z,1 }", "x,y,z;-x,y,-z", ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        sstring_in in(row.text);
        xyz_list_3 ops;
        load_xyzs_3(in, ops);
        EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of(row.ops)));
        EXPECT_EQ(ops.n_max, ops.n) << "shrunk";
        EXPECT_STREQ(in.current(), row.rest);
    }
    sstring_in in("xyzs { y,x,z\n }");
    xyz_list_3 ops = xyz_list_of("x,y,z");
    load_xyzs_3(in, ops);
    EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of("x,y,z;y,x,z"))) << "appends";
    in.set_text("xyzs{ x,y,z\n}");
    EXPECT_FAILURE(load_xyzs_3(in, ops), " Cannot find: xyzs");
    in.set_text("xyzs x,y,z\n}");
    EXPECT_FAILURE(load_xyzs_3(in, ops), " Cannot find { in stream sstring_in");
}

TEST(SgReader, ReflectionOperators) {
    const struct {
        const char* text;
        std::vector<op_array> ops;
    } rows[] = {{" x{h+h,- k+l\n0\r\n-h , 0k0,\n-l,", {op_of("h+h,-k+l,"), op_of("-h,k,-l")}},
                {"{,, \n} h,k,l\n", {{}}},
                {"{", {}}};
    for (const auto& row : rows) {
        sstring_in in(row.text);
        xyz_list_3 ops;
        load_hkl_ops_3(in, ops);
        EXPECT_EQ(arrays_of(ops), row.ops) << row.text;
    }
    for (const char* text :
         {"{h", "{h,k,l}", "{h,k,1/2\n}", "{h,k,+\n}", "{h,k,\xff\n}", "{h,k,l,1\n}"}) {
        sstring_in in(text);
        xyz_list_3 ops;
        EXPECT_FAILURE(load_hkl_ops_3(in, ops), bad_hkls) << text;
    }
}

TEST(SgReader, FindsTheReflectionSection) {
    const scratch_dir dir;
    EXPECT_EQ(has_hkl_section_3("none.sg"), 0);
    EXPECT_EQ(has_hkl_section_3("."), 0);
    for (const char* text : {"", "hkls hk0 'hkl\n", "hkl{ }", "hkl /*"}) {
        write_file("a.sg", text);
        EXPECT_EQ(has_hkl_section_3("a.sg"), 0) << text;
    }
    for (const char* text : {"xyzs{}\nhkl\n{", "hkl"}) {
        write_file("a.sg", text);
        EXPECT_EQ(has_hkl_section_3("a.sg"), 1) << text;
    }
}

}  // namespace
