#include "symmetry/generator_file.h"

#include <gtest/gtest.h>
#include <string>

#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/scratch_dir.h"
#include "textout/console.h"
#include "textout/sstring_out.h"

namespace {

TEST(GeneratorFile, Grammar) {
    const struct {
        const char* text;
        const char* generators;
    } rows[] = {
        {"symmetry { x, y, z; -x, y+1/2, -z+1/2; -x, -y, -z }", "x,y,z;-x,y+1/2,-z+1/2;-x,-y,-z"},
        {"symmetry{x,y,z}", "x,y,z"},
        {"a word\nand\tsymmetry\r\n{x,y,z}", "x,y,z"},
        {"symmetrys Symmetry symmetry {x,y,z}", "x,y,z"},
        {"' symmetry {z,z,z}\n/* symmetry {y,y,y} */ symmetry { x, y, ' z\n z }", "x,y,z"},
        {"{ {{symmetry{x,y,z}", "x,y,z"},
        {"group{symmetry {x,y,z}", "x,y,z"},
        {"symmetry{x,y,z} symmetry {-x,-y,-z}", "x,y,z"},
        // Commas and semicolons count alike.
        {"symmetry{x, y, z, -x, -y, -z}", "x,y,z;-x,-y,-z"},
        {"symmetry{x; y; z; -x; -y; -z;}", "x,y,z;-x,-y,-z"},
        {"symmetry{x,y,z;\n\n}", "x,y,z"},
        // The end of the text ends the block, wherever it comes.
        {"symmetry{x,y,z;-x,-y,-z", "x,y,z;-x,-y,-z"},
        {"symmetry{x,y,z;-x", "x,y,z;-x,,"},
        {"symmetry{x,y,z;-x,", "x,y,z;-x,,"},
        {"symmetry{x,y}", "x,y,"},
        {"symmetry{;}", ",,"},
        {"symmetry{,,}", ",,"},
        {"symmetry{\t - x ,\n+ y + 1/2 -z,+1/2\r\n}", "-x,+y+1/2-z,1/2"},
        {"symmetry{xx-x, y-y+y, zyx}", "-x,y,x+y+z"},  // by assignment
        {"symmetry{1/2+x, 1/2 1/3, 0/9}", "x+1/2,1/3,"},
        // The line end doesn't end a field: the second generator is lost.
        {"symmetry{x, y, z\n-x, -y, -z}", "x,y,-x+z;-y,-z,"},
    };
    const scratch_dir dir;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        write_file("gens.txt", row.text);
        xyz_list_3 gens;
        EXPECT_EQ(message_of([&] { read_generator_file("gens.txt", gens); }), std::nullopt);
        EXPECT_EQ(arrays_of(gens), arrays_of(xyz_list_of(row.generators)));
    }
}

// Translations come as they are written.
TEST(GeneratorFile, Fractions) {
    const struct {
        const char* field;
        int translation;
    } rows[] = {{"1/2", 180},  {"-1/4", -90}, {"2/3", 240}, {"-1/7", -51},   {"- 5/7", -257},
                {"9/1", 3240}, {"0/1", 0},    {"7/8", 315}, {"x-1/9y", -40}, {"1/2-1/3", -120}};
    const scratch_dir dir;
    for (const auto& row : rows) {
        write_file("gens.txt", std::string("symmetry{x,y,") + row.field + "}");
        xyz_list_3 gens;
        read_generator_file("gens.txt", gens);
        ASSERT_EQ(gens.n, 1);
        EXPECT_EQ(gens[0].trans(2), row.translation) << row.field;
    }
}

TEST(GeneratorFile, Failures) {
    const char* const bad_term = " Error loading symmetry xyz's";
    const char* const none = " No generators in file gens.txt";
    const struct {
        const char* text;
        const char* message;
    } rows[] = {
        {"", none},
        {"x,y,z", none},
        {"{{{}", none},
        {"symmetr y{x,y,z}", none},
        {"symmetry{}", none},
        {"symmetry {  ", none},
        {"symmetry", " Missing: {"},
        {"symmetry x,y,z", " Missing: {"},
        {"symmetry symmetry{x,y,z}", " Missing: {"},
        {"symmetry{x,y,z /* }", " Unclosed comment block"},
        {"symmetry{x,y,q}", bad_term},
        {"symmetry{X,y,z}", bad_term},
        {"symmetry{x,y,z+}", bad_term},
        {"symmetry{x,y,--z}", bad_term},
        {"symmetry{x,y,z+1}", bad_term},
        {"symmetry{x,y,z+1", bad_term},
        {"symmetry{x,y,z+1 /2}", bad_term},
        {"symmetry{x,y,z+1/}", bad_term},
        {"symmetry{x,y,z+1/ 2}", bad_term},
        {"symmetry{x,y,z+1/0}", bad_term},
        {"symmetry{x,y,z+1/x}", bad_term},
        {"symmetry{x,y,z+1/-2}", bad_term},
        {"symmetry{x,y,z+1/12}", bad_term},
        {"symmetry{x,y,z+12/6}", bad_term},
        {"symmetry{x,y,z+.5}", bad_term},
        {"symmetry{x,y,z+/2}", bad_term},
        {"symmetry{{x,y,z}}", bad_term},
        {"symmetry{x,y,z;-x,-y,\xff}", bad_term},
    };
    const scratch_dir dir;
    xyz_list_3 gens;
    EXPECT_FAILURE(read_generator_file("gens.txt", gens), " Cannot open file gens.txt");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        gens.clear();
        write_file("gens.txt", row.text);
        EXPECT_FAILURE(read_generator_file("gens.txt", gens), row.message);
    }
}

TEST(CyclicPowers, Orders) {
    const char* const endless = " Identity matrix not found after 13 operations";
    const struct {
        op_array op;
        const char* powers;  // null: there is no end to them
    } rows[] = {
        {op_of("x,y,z"), "x,y,z"},
        {op_of("-x,-y,-z"), "-x,-y,-z;x,y,z"},
        {op_of("-x,y+1/2,-z"), "-x,y+1/2,-z;x,y,z"},
        {op_of("x-y,x,z+5/6"),
         "x-y,x,z+5/6;-y,x-y,z+2/3;-x,-y,z+1/2;-x+y,-x,z+1/3;y,-x+y,z+1/6;x,y,z"},
        {op_of("x,y,z+1/5"), "x,y,z+1/5;x,y,z+2/5;x,y,z+3/5;x,y,z+4/5;x,y,z"},
        {{1, 0, 0, -720, 0, 1, 0, 360, 0, 0, 1, 0}, "x,y,z"},
        {op_of(",,"), ",,"},            // a matrix without inverse returns to itself at times
        {op_of("y,z,x+1/9"), nullptr},  // order 27
        {op_of("x,y,z+1/7"), nullptr},  // held as 51/360
        {op_of("x+y,y,z"), nullptr},
        {op_of("y,z,"), nullptr},
        {op_of("x+y+z,x+y+z,x+y+z"), nullptr},
    };
    for (const auto& row : rows) {
        xyz_list_3 list;
        const auto message = message_of([&] { cyclic_powers(list, xyz_op_of(row.op)); });
        EXPECT_EQ(message.value_or(""), row.powers != nullptr ? "" : endless);
        if (row.powers == nullptr) continue;
        EXPECT_EQ(arrays_of(list), arrays_of(xyz_list_of(row.powers))) << row.powers;
    }
    // Twelve and thirteen still pass.
    for (const auto& [translation, order] : {std::pair{30, 12}, {-30, 12}, {24, 0}, {25, 0}}) {
        xyz_op_3 op = xyz_op_of("x,y,z");
        op.trans(0) = translation;
        xyz_list_3 list;
        const auto message = message_of([&] { cyclic_powers(list, op); });
        EXPECT_EQ(message.has_value() ? 0 : list.n, order) << translation;
    }
}

// The operators of each group as a generator file: they come back as they are, and the powers of
// each stay in the group and end with its unit.
TEST(GeneratorFile, EverySetting) {
    const scratch_dir dir;
    for (const setting& row : read_settings()) {
        SCOPED_TRACE(row.symbol + ' ' + row.choice);
        write_file("gens.txt", "symmetry {" + row.operators + "}");
        xyz_list_3 gens;
        read_generator_file("gens.txt", gens);
        ASSERT_EQ(arrays_of(gens), arrays_of(xyz_list_of(row.operators)));
        for (const xyz_op_3& op : gens) {
            xyz_list_3 powers;
            cyclic_powers(powers, op);
            std::set<op_array> distinct;
            for (const xyz_op_3& power : powers) distinct.insert(array_of(power));
            EXPECT_EQ(distinct.size(), static_cast<std::size_t>(powers.n));
            EXPECT_EQ(array_of(powers[powers.last()]), op_of("x,y,z"));
            for (const op_array& power : distinct) EXPECT_EQ(row.group.count(power), 1u);
        }
    }
}

// Runs the mode on a file. A failure ends the text with its message in brackets.
std::string console_of(const char* text) {
    write_file("gens.txt", text);
    sstring_out console;
    push_console_stream(console);
    sg_decoder_3 decoder;
    const auto message = message_of([&] { run_generator_file(decoder, "gens.txt"); });
    pop_console_stream();
    return std::string(console.text()) + (message ? "[" + *message + "]" : "");
}

const std::string table_head = "\n\n\n\t                                  Order  Det\n";

TEST(RunGeneratorFile, Console) {
    const scratch_dir dir;
    EXPECT_EQ(console_of("symmetry { -x, -y, -z }"),
              "\n1 Generators\n"
              "\n\t-x, -y, -z "
              "\n\nGenerator 0\n"
              "\n\t-x, -y, -z \n\tx, y, z "
              "\n\nNumber of equivalent positions before keep_unique_6 2"
              "\n\nEquivalent positions for asymmetric unit\nNumber of positions 2" +
                  table_head +
                  "\n\t-x, -y, -z                    0      2    -1   0 1"
                  "\n\tx, y, z                       1      1     1   1");
    EXPECT_EQ(console_of("symmetry{x,y,z}"),
              "\n1 Generators\n\n\tx, y, z \n\nGenerator 0\n\n\tx, y, z "
              "\n\nNumber of equivalent positions before keep_unique_6 1"
              "\n\nEquivalent positions for asymmetric unit\nNumber of positions 1" +
                  table_head + "\n\tx, y, z                       0      1     1   0");
}

std::string table_of(const std::string& console) {
    const std::size_t head = console.find(table_head);
    return head == std::string::npos ? console : console.substr(head + table_head.size());
}

TEST(RunGeneratorFile, Tables) {
    const struct {
        const char* text;
        const char* table;
    } rows[] = {
        {"symmetry{-x,y+1/2,-z+1/2;-x,-y,-z}",
         "\n\t-x, -y, -z                    0      2    -1   0 3"
         "\n\t-x, y+1/2, -z+1/2             1      2     1   1 3"
         "\n\tx, -y+1/2, z+1/2              2      2    -1   2 3"
         "\n\tx, y, z                       3      1     1   3"},
        {"symmetry{-y,x-y,z;-x+y,y,z}",
         "\n\t-x+y, -x, z                   0      3     1   0 3 4"
         "\n\t-x+y, y, z                    1      2    -1   1 4"
         "\n\t-y, -x, z                     2      2    -1   2 4"
         "\n\t-y, x-y, z                    3      3     1   3 0 4"
         "\n\tx, y, z                       4      1     1   4"
         "\n\tx, x-y, z                     5      2    -1   5 4"},
        // No group: the squares of two positions are missing.
        {"symmetry{z,x,y;-x,-y,z}",
         "\n\t-x, -y, z                     0      2     1   0 5"
         "\n\t-y, -z, x                     1      3     1   1 * 5"
         "\n\t-z, -x, y                     2      3     1   2 * 5"
         "\n\tz, x, y                       3      3     1   3 4 5"
         "\n\ty, z, x                       4      3     1   4 3 5"
         "\n\tx, y, z                       5      1     1   5"},
        // The same position from two generators counts once.
        {"symmetry{-x,-y,-z;-x,-y,-z}",
         "\n\t-x, -y, -z                    0      2    -1   0 1"
         "\n\tx, y, z                       1      1     1   1"},
        // A long operator shifts its row.
        {"symmetry{x-y-z+1/2, -y+1/2, -z+1/2}",
         "\n\tx-y-z+1/2, -y+1/2, -z+1/2       0      2     1   0 1"
         "\n\tx, y, z                       1      1     1   1"},
    };
    const scratch_dir dir;
    for (const auto& row : rows) EXPECT_EQ(table_of(console_of(row.text)), row.table) << row.text;
}

// What reached the console before a failure stays.
TEST(RunGeneratorFile, FailuresAlongTheWay) {
    const std::string endless = "[ Identity matrix not found after 13 operations]";
    const scratch_dir dir;
    EXPECT_EQ(console_of("symmetry{"), "[ No generators in file gens.txt]");
    EXPECT_EQ(
        console_of("symmetry{x,y,z;x,y,z+1/7}"),
        "\n2 Generators\n\n\tx, y, z \n\tx, y, z+17/120 \n\nGenerator 0\n\n\tx, y, z " + endless);
    const std::string console = console_of("symmetry{x,-y,z;-x,x+y,z}");
    EXPECT_EQ(console.substr(console.rfind('\n')),
              "\nNumber of equivalent positions before keep_unique_6 4" + endless);
    std::string many = "symmetry{";
    for (int i = 0; i < 22; ++i) many += "-x,-y,-z;";
    EXPECT_NE(console_of(many.c_str()).find("[ Too many equivalent positions]"), std::string::npos);
}

}  // namespace
