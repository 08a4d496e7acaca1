#include <gtest/gtest.h>
#include <string>

#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/scratch_dir.h"
#include "symmetry/rotation_catalogue_3.h"

namespace {

constexpr char unit[] = "{ 1 0 0 0 1 0 0 0 1 } ";

struct RotationCatalogue : testing::Test {
    rotation_catalogue_3 load(const std::string& text) {
        write_file("r.txt", text);
        return rotation_catalogue_3("r.txt");
    }

    scratch_dir dir;
};

TEST_F(RotationCatalogue, Reads) {
    const rotation_catalogue_3 table = load(
        "rotation matrices' rotation_matrix 9z\n words rotation_matrix 4C\n{0 -1 0 1 0 0 0 0 1 }\n"
        "{ rotation_matrix 2A { +1 0 0x 1e9 -1 0 0 junk 99999999999 } rotation_matrixx 1b"
        " rotation_matrix 1a [1 0 0 0 1 0 0 0 1 ] rotation_matrix 3c {1 2");
    ASSERT_EQ(table.keys.n, 4);
    const char* const keys[] = {"1a", "2a", "3c", "4c"};
    for (int i = 0; i < 4; ++i) EXPECT_STREQ(table.keys[i].data, keys[i]);
    EXPECT_EQ(array_of(table.find_rotation("1a")), op_of("x,y,z"));
    EXPECT_EQ(array_of(table.find_rotation("4c")), op_of("-y,x,z"));
    EXPECT_EQ(array_of(table.find_rotation("2a")),
              (op_array{1, 0, 0, 0, 1, -1, 0, 0, 0, 0, 2147483647, 0}));
    EXPECT_EQ(array_of(table.find_rotation("3c")), (op_array{1, 2}));
    for (const char* key : {"4C", "4", "4cc", "", "9z"}) {
        EXPECT_FAILURE(table.find_rotation(key), " Invalid rotation matrix type");
    }
    EXPECT_FAILURE(load("").find_rotation("1a"), " Invalid rotation matrix type");
    // A closing brace that touches the last number costs the next record.
    const rotation_catalogue_3 glued =
        load("rotation_matrix 1a { 1 0 0 0 1 0 0 0 1} rotation_matrix 2b { -1 0 0 0 1 0 0 0 -1 }");
    ASSERT_EQ(glued.keys.n, 1);
    EXPECT_EQ(array_of(glued.matrices[0]), op_of("x,y,z"));
}

TEST_F(RotationCatalogue, Failures) {
    const auto record = [](const std::string& key) { return "rotation_matrix " + key + unit; };
    const std::string a = record("a ");
    const std::string b = record("b ");
    const std::string twice = " in file r.txt listed more than once";
    EXPECT_FAILURE(load(a + b + record("B ")), " Rotation matrix b" + twice);
    EXPECT_FAILURE(load(a + b + b + b + a), " Rotation matrix b" + twice);
    EXPECT_FAILURE(load(b + a + a + b), " Rotation matrix a" + twice);
    EXPECT_FAILURE(load(a + "/*"), " Unclosed comment block");
    EXPECT_FAILURE(rotation_catalogue_3("none"), " Cannot open file none");
}

TEST_F(RotationCatalogue, Powers) {
    const rotation_catalogue_3 table =
        load(std::string("rotation_matrix 1a ") + unit +
             "rotation_matrix 2b {-1 0 0 0 1 0 0 0 -1 } rotation_matrix 4c { 0 -1 0 1 0 0 0 0 1 }"
             "rotation_matrix no { 1 1 0 0 1 0 0 0 1 }");
    const auto powers = [&](const char* field, const triple_3& translation) {
        xyz_list_3 out = xyz_list_of("z,z,z");
        generator_powers(table, out, field, translation, xyz_op_of("x,y,z"));
        return arrays_of(out);
    };
    const struct {
        const char* field;
        triple_3 translation;
        const char* powers;
    } rows[] = {{"p1a", {{0, 0, 0}}, "x,y,z"},
                {"i1a", {{90, 180, -90}}, "-x+1/4,-y+1/2,-z+3/4;x,y,z"},
                {"p2b", {{0, 180, 180}}, "-x,y+1/2,-z+1/2;x,y,z"},
                {"x2b", {{0, 180, 0}}, "-x,y+1/2,-z;x,y,z"},
                {"i2b", {{0, 0, 180}}, "x,-y,z+1/2;x,y,z"},
                {"p4c", {{0, 0, 90}}, "-y,x,z+1/4;-x,-y,z+1/2;y,-x,z+3/4;x,y,z"},
                {"i4c", {{0, 0, 90}}, "y,-x,-z+1/4;-x,-y,z;-y,x,-z+1/4;x,y,z"},
                {"p1a", {{120, 0, 0}}, "x+1/3,y,z;x+2/3,y,z;x,y,z"}};
    for (const auto& row : rows) {
        EXPECT_EQ(powers(row.field, row.translation),
                  arrays_of(xyz_list_of(std::string("z,z,z;") + row.powers)))
            << row.field << row.powers;
    }
    EXPECT_EQ(powers("p1a", {{2, 0, 0}}).size(), 181U);
    EXPECT_FAILURE(powers("p9z", {}), " Invalid rotation matrix type");
    EXPECT_FAILURE(powers("p4C", {}), " Invalid rotation matrix type");
    EXPECT_FAILURE(powers("pno", {}), " Rotation matrix failed consistency test");
    EXPECT_FAILURE(powers("p1a", {{1, 0, 0}}), " Rotation matrix failed consistency test");
}

}  // namespace
