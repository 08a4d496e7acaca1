#include <gtest/gtest.h>
#include <string>

#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/own_process.h"
#include "support/scratch_dir.h"
#include "symmetry/rotation_catalogue_3.h"

namespace {

constexpr char bad_type[] = " Invalid rotation matrix type";

struct RotationCatalogue : testing::Test {
    static rotation_catalogue_3 load(const std::string& text) {
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
    EXPECT_EQ(array_of(table.find_rotation("1a")), op_of("x,y,z"));
    EXPECT_EQ(array_of(table.find_rotation("4c")), op_of("-y,x,z"));
    EXPECT_EQ(array_of(table.find_rotation("2a")),
              (op_array{1, 0, 0, 0, 1, -1, 0, 0, 0, 0, 2147483647, 0}));
    EXPECT_EQ(array_of(table.find_rotation("3c")), (op_array{1, 2}));
    for (const char* key : {"4C", "4", "", "9z"}) {
        EXPECT_FAILURE(table.find_rotation(key), bad_type);
    }
    EXPECT_FAILURE(load("").find_rotation("1a"), bad_type);
    // A closing brace that touches the last number costs the next record.
    const rotation_catalogue_3 glued =
        load("rotation_matrix 1a { 1 0 0 0 1 0 0 0 1} rotation_matrix 2b { -1 0 0 0 1 0 0 0 -1 }");
    ASSERT_EQ(glued.keys.n, 1);
    EXPECT_EQ(array_of(glued.matrices[0]), op_of("x,y,z"));
}

TEST_F(RotationCatalogue, OfTheProcessIsReadOnce) {
    in_own_process([] {
        for (const char* text : {"", "rotation_matrix 1a {1 0 0 0 1 0 0 0 1 }"}) {
            EXPECT_FAILURE(rotation_catalogue(), " Cannot open file sgrots3.txt");
            write_file("sgrots3.txt", text);
        }
    });
}

TEST_F(RotationCatalogue, Failures) {
    const auto records = [](const std::string& keys) {
        std::string text;
        for (const char key : keys)
            text = text + "rotation_matrix " + key + " {1 0 0 0 1 0 0 0 1 }";
        return text;
    };
    const std::string twice = " in file r.txt listed more than once";
    EXPECT_FAILURE(load(records("abB")), " Rotation matrix b" + twice);
    EXPECT_FAILURE(load(records("abbba")), " Rotation matrix b" + twice);
    EXPECT_FAILURE(load(records("baab")), " Rotation matrix a" + twice);
    EXPECT_FAILURE(rotation_catalogue_3("none"), " Cannot open file none");
}

TEST_F(RotationCatalogue, Powers) {
    const rotation_catalogue_3 table =
        load("rotation_matrix 1a { 1 0 0 0 1 0 0 0 1 } rotation_matrix no { 1 1 0 0 1 0 0 0 1 }");
    xyz_list_3 out = xyz_list_of("z,z,z");
    const auto add_powers = [&](const char* field, int translation) {
        generator_powers(table, out, field, {{translation, 0, 0}}, xyz_op_of("x,y,z"));
    };
    add_powers("p1a", 2);
    EXPECT_EQ(out.n, 181) << "behind what was there";
    for (const char* field : {"p9z", "p1A"}) EXPECT_FAILURE(add_powers(field, 0), bad_type);
    EXPECT_FAILURE(add_powers("pno", 0), " Rotation matrix failed consistency test");
    EXPECT_FAILURE(add_powers("p1a", 1), " Rotation matrix failed consistency test");
}

}  // namespace
