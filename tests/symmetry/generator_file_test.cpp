#include "symmetry/generator_file.h"

#include <gtest/gtest.h>
#include <string>

#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/scratch_dir.h"
#include "textout/console.h"
#include "textout/sstring_out.h"

namespace {

struct GeneratorFile : testing::Test {
    static std::vector<op_array> generators_of(const std::string& text) {
        write_file("gens.txt", text);
        xyz_list_3 gens;
        read_generator_file("gens.txt", gens);
        return arrays_of(gens);
    }

    // Runs the mode on a file. A failure ends the text with its message in brackets.
    static std::string console_of(const std::string& text) {
        write_file("gens.txt", text);
        sstring_out console;
        push_console_stream(console);
        sg_decoder_3 decoder;
        const auto message = message_of([&] { run_generator_file(decoder, "gens.txt"); });
        pop_console_stream();
        return std::string(console.text()) + (message ? "[" + *message + "]" : "");
    }

    scratch_dir dir;
};

TEST_F(GeneratorFile, Grammar) {
    const struct {
        const char *text, *generators;
    } rows[] = {
        {"a word\nand\tsymmetry\r\n{x,y,z}", "x,y,z"},
        {"symmetrys Symmetry symmetry {x,y,z} symmetry {-x,-y,-z}", "x,y,z"},
        {"' symmetry {z,z,z}\n/* symmetry {y,y,y} */ symmetry { x, y, ' z\n z }", "x,y,z"},
        {"{ {{symmetry{x,y,z}", "x,y,z"},
        // Commas and semicolons count alike.
        {"symmetry{x, y; z, -x; -y, -z;\n\n}", "x,y,z;-x,-y,-z"},
        // A file may break off anywhere in its block.
        {"symmetry{x,y,z;-x", "x,y,z;-x,,"},
        {"symmetry{;}", ",,"},
        {"symmetry{\t - x ,\n+ y + 1/2 -z,+1/2\r\n}", "-x,+y+1/2-z,1/2"},
        {"symmetry{xx-x, y-y+y, zyx}", "-x,y,x+y+z"},  // by assignment
        {"symmetry{1/2+x, 1/2 1/3, 0/9}", "x+1/2,1/3,"},
        // The line end doesn't end a field: the second generator is lost.
        {"symmetry{x, y, z\n-x, -y, -z}", "x,y,-x+z;-y,-z,"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(generators_of(row.text), arrays_of(xyz_list_of(row.generators))) << row.text;
    }
    // Translations come as they are written.
    const struct {
        const char* field;
        int translation;
    } fractions[] = {{"- 5/7", -257}, {"9/1", 3240}, {"x-1/9y", -40}};
    for (const auto& row : fractions) {
        const std::string text = std::string("symmetry{x,y,") + row.field + "}";
        EXPECT_EQ(generators_of(text).at(0)[11], row.translation) << row.field;
    }
}

TEST_F(GeneratorFile, Failures) {
    const struct {
        const char* message;
        std::vector<std::string> texts;
    } rows[] = {{" No generators in file gens.txt",
                 {"", "{{{}", "symmetr y{x,y,z}", "symmetry{}", "symmetry {  "}},
                {" Missing: {", {"symmetry", "symmetry symmetry{x,y,z}"}},
                {" Unclosed comment block", {"symmetry{x,y,z /* }"}},
                {" Error loading symmetry xyz's",
                 {"symmetry{X,y,z}", "symmetry{{x,y,z}}", "symmetry{x,y,z+1"}}};
    for (const auto& row : rows) {
        for (const std::string& text : row.texts) {
            EXPECT_FAILURE(generators_of(text), row.message) << text;
        }
    }
    for (const char* z :
         {"z+", "--z", "z+1 /2", "z+1/", "z+1/ 2", "z+1/0", "z+1/12", "z+12/6", "z+.5", "\xff"}) {
        EXPECT_FAILURE(generators_of(std::string("symmetry{x,y,") + z + "}"), rows[3].message) << z;
    }
    xyz_list_3 gens;
    EXPECT_FAILURE(read_generator_file("none", gens), " Cannot open file none");
}

TEST(CyclicPowers, Orders) {
    constexpr char endless[] = " Identity matrix not found after 13 operations";
    const auto powers_of = [](const op_array& op) {
        xyz_list_3 list;
        cyclic_powers(list, xyz_op_of(op));
        return arrays_of(list);
    };
    EXPECT_EQ(powers_of({1, 0, 0, -720, 0, 1, 0, 360, 0, 0, 1, 0}).size(), 1U);
    EXPECT_EQ(powers_of({1, 0, 0, -30, 0, 1, 0, 0, 0, 0, 1, 0}).size(), 12U);
    // A matrix without inverse returns to itself at times.
    EXPECT_EQ(powers_of(op_of(",,")).size(), 1U);
    // The orders are 15, 27 and, as 1/7 becomes 51/360, 120; the others have none.
    for (const char* op : {"x,y,z+1/15", "y,z,x+1/9", "x,y,z+1/7", "x+y,y,z", "y,z,"}) {
        EXPECT_FAILURE(powers_of(op_of(op)), endless) << op;
    }
}

TEST_F(GeneratorFile, Tables) {
    const std::string head = "\n\t                                  Order  Det\n";
    const struct {
        const char *text, *table;
    } rows[] = {
        // No group: the squares of two positions are missing.
        {"symmetry{z,x,y;-x,-y,z}",
         "\n\t-x, -y, z                     0      2     1   0 5"
         "\n\t-y, -z, x                     1      3     1   1 * 5"
         "\n\t-z, -x, y                     2      3     1   2 * 5"
         "\n\tz, x, y                       3      3     1   3 4 5"
         "\n\ty, z, x                       4      3     1   4 3 5"
         "\n\tx, y, z                       5      1     1   5"},
        // A position from two generators counts once, and a long operator shifts its row.
        {"symmetry{x-y-z+1/2, -y+1/2, -z+1/2; x-y-z+1/2, -y+1/2, -z+1/2}",
         "\n\tx-y-z+1/2, -y+1/2, -z+1/2       0      2     1   0 1"
         "\n\tx, y, z                       1      1     1   1"},
    };
    for (const auto& row : rows) {
        const std::string console = console_of(row.text);
        EXPECT_TRUE(console.ends_with(head + row.table)) << console;
    }
}

// A failure leaves the lines before it on the console.
TEST_F(GeneratorFile, FailuresAlongTheWay) {
    const std::string endless = "[ Identity matrix not found after 13 operations]";
    EXPECT_EQ(
        console_of("symmetry{x,y,z;x,y,z+1/7}"),
        "\n2 Generators\n\n\tx, y, z \n\tx, y, z+17/120 \n\nGenerator 0\n\n\tx, y, z " + endless);
    EXPECT_TRUE(console_of("symmetry{x,-y,z;-x,x+y,z}").ends_with("keep_unique_6 4" + endless));
    std::string many = "symmetry{";
    for (int i = 0; i < 22; ++i) many += "-x,-y,-z;";
    EXPECT_TRUE(console_of(many).ends_with("[ Too many equivalent positions]"));
}

}  // namespace
