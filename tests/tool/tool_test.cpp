#include <gtest/gtest.h>
#include <set>
#include <string>

#include "foundation/platform.h"
#include "support/run_tool.h"

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using arguments = std::vector<std::string>;

constexpr const char* data_files[] = {"sgrots3.txt", "lomar5.txt"};
constexpr char usage[] =
    " Try lomar6 F_d_d_d [-hhh] [-hkl 10 10 10] [-dir out_put_dir]\n"
    "   Arguments in brackets are optional.\n"
    "   Ouput is placed in .sg and .hkl files.\n"
    "   A .sg file is created if it is not there.\n"
    "   -hkl creates a .hkl file.\n"
    "   Examples:\n"
    "      lomar6 F_d_d_d -hhh\n";
constexpr char bad_symbol[] = " Error in space group symbol\n";
constexpr char not_found[] = " Space group not found in lomar5.txt\n";
constexpr char has_details[] = " hhh details already in *.sg file\n";

std::string not_opened(const std::string& folder, const std::string& file) {
    return " Cannot open file " + folder + platform_separator + file + "\n";
}
std::string golden(const std::string& name) { return read_file(GOLDEN_DIR "/" + name); }

// A folder with the data files, in which the program runs.
struct Tool : testing::Test {
    Tool() {
        for (const char* name : data_files) fs::copy_file(fs::path(DATA_DIR) / name, name);
    }

    // Runs, expects the exit status that every run has, and gives the console's bytes.
    static std::string console_of(const arguments& args) {
        const tool_run run = run_tool(args);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.errors, "");
        return run.console;
    }

    // All files below the folder but the data files.
    static std::set<std::string> files() {
        std::set<std::string> found;
        for (const auto& entry : fs::recursive_directory_iterator(".")) {
            const std::string name = entry.path().lexically_normal().generic_string();
            if (entry.is_regular_file() && name.find("lomar5") && name.find("sgrots3")) {
                found.insert(name);
            }
        }
        return found;
    }

    scratch_dir dir;
};

TEST_F(Tool, GoldenFiles) {
    const struct {
        const char *symbol, *file;
    } rows[] = {{"C2/c", "c2oc.sg"},   {"F_d_d_d", "fddd.sg"}, {"P -1", "p-1.sg"},
                {"Am(m)2", "amm2.sg"}, {"B112", "b112.sg"},    {"I_-4", "i-4.sg"},
                {"R3:H", "r3.sg"},     {"P61", "p61.sg"},      {"p2(1)3", "p213.sg"}};
    for (const auto& row : rows) {
        EXPECT_EQ(console_of({row.symbol}), "");
        EXPECT_EQ(read_file(row.file), golden(row.file)) << row.symbol;
        // The file is there now: it is neither read nor written.
        write_file(row.file, "mine");
        EXPECT_EQ(console_of({row.symbol}), "");
        EXPECT_EQ(read_file(row.file), "mine");
    }
}

TEST_F(Tool, Messages) {
    const struct {
        arguments args;
        std::string console;
        std::set<std::string> files;
    } rows[] = {
        {{}, usage, {}},
        {{""}, " No Spacegroup\n", {}},
        {{"-hhh"}, bad_symbol, {}},
        {{"-dir", "P-1"}, bad_symbol, {}},
        {{"p999", "-dir", "nowhere"}, not_found, {}},
        {{"p" + std::string(10000, 'p')}, not_found, {}},
        {{"P-1", "-dir"}, " Missing value for -dir\n", {}},
        {{"P-1", "-compare"}, " Missing value for -compare\n", {"p-1.sg"}},
        {{"P-1", "-dir", "nowhere"}, not_opened("nowhere", "p-1.sg"), {}},
        {{"P-1", "-dir", std::string(5000, 'd')}, not_opened(std::string(5000, 'd'), "p-1.sg"), {}},
        {{"P-1", "-only", "-dir", "out/in/", "-dir", "out"}, "", {"out/in/p-1.sg"}},
        {{"P-1", "-compare", "P1"}, not_opened("sg", "p1.sg"), {"p-1.sg"}},
        {{"P-1", "-compare", "", "-hhh"}, " No Spacegroup\n", {"p-1.sg"}},
        {{"P-1", "-unknown", "-HHH", "-hh", "-e", "mark"}, "", {"p-1.sg"}},
        {{"P-1", "-hhh", "-e", "mark"}, has_details, {"p-1.sg", "mark"}},
        {{"x", "-e"}, bad_symbol, {}},
        {{"x", "-e", "nowhere/mark"}, bad_symbol, {}},
        {{"x", "-e", "mark", "-e", "other"}, bad_symbol, {"mark"}}};
    fs::create_directories("out/in");
    for (const auto& row : rows) {
        EXPECT_EQ(console_of(row.args), row.console) << testing::PrintToString(row.args);
        EXPECT_EQ(files(), row.files) << testing::PrintToString(row.args);
        for (const std::string& file : files()) fs::remove(file);
    }
    write_file("mark", "old");
    console_of({"P1", "-e", "mark"});
    EXPECT_EQ(read_file("mark"), "old");
    console_of({"x", "-e", "mark"});
    EXPECT_EQ(read_file("mark"), "");
    fs::create_directory("p-1.sg");
    EXPECT_EQ(console_of({"P-1"}), " Cannot open file p-1.sg\n");
}

TEST_F(Tool, Compare) {
    fs::create_directory("sg");
    const struct {
        arguments args;
        const char* console;
    } rows[] = {
        // A row may find the first file there, left by one before it.
        {{"P-1", "-compare", "2"}, " \nEqual"},
        {{"Fddd:2", "-compare", "Fddd"}, " \nNOT Equal"},
        {{"Fddd:2", "-compare", "Fdddz"}, " \nEqual"},
        {{"C2/c", "-dir", "sg", "-compare", "15"}, " \nEqual"},
        {{"R3", "-compare", "146:H"}, " \nEqual"},
        {{"R3", "-compare", "146:H"}, " \nEqual"},
        // Without centring these are one group.
        {{"C1", "-compare", "P1", "-only_asym"}, " \nEqual"},
        {{"I1", "-compare", "P1"}, " \nNOT Equal"},
        {{"Pnma", "-compare", "Pnma", "-hhh"}, " \nEqual hhh details already in *.sg file\n"},
        {{"Pnma", "-hhh", "-compare", "P9"}, not_found}};
    for (const auto& row : rows) {
        EXPECT_EQ(console_of(row.args), row.console) << row.args[0] << ' ' << row.args[2];
    }
    EXPECT_EQ(read_file("sg/c2oc.sg"), golden("c2oc.sg"));
    write_file("sg/p1.sg", "stale");
    console_of({"P-1", "-compare", "P1"});
    EXPECT_NE(read_file("sg/p1.sg"), "stale") << "the second file is written on every run";
    write_file("p-1.sg", "broken");
    EXPECT_EQ(console_of({"P-1", "-compare", "P1"}), " Cannot find: xyzs\n");
}

TEST_F(Tool, OperatorsWithoutCentring) {
    for (const std::string stem : {"c2oc", "p-1", "r3"}) {
        const std::string symbol = stem == "c2oc" ? "C2/c" : stem;
        const std::string file = stem + ".sg";
        const std::string whole = golden(file);
        const std::string plain =
            whole.substr(0, std::min(whole.find("\n\t' +"), whole.find("\n} "))) + "\n}";
        EXPECT_EQ(console_of({symbol, "-only_asym"}), "");
        EXPECT_EQ(read_file(file), plain);
        // The centring of these makes no difference to the details.
        const std::size_t details = whole.find("\n\n' Note");
        const std::string longer =
            plain + whole.substr(details, whole.find("\nequivalence") - details);
        EXPECT_EQ(console_of({symbol, "-hhh"}), "");
        EXPECT_EQ(read_file(file), longer);
        EXPECT_EQ(console_of({symbol, "-hhh"}), has_details);
        fs::remove(file);
        EXPECT_EQ(console_of({symbol, "-hhh", "-only_asym"}), "");
        EXPECT_EQ(read_file(file), longer) << "both in one run";
    }
}

TEST_F(Tool, DamagedDataFiles) {
    const std::string rotations = read_file("sgrots3.txt");
    const std::string p1 = "1 aap1a000 { p1 }";
    const struct {
        std::string catalogue, rotations;
        const char* console;
        unsigned files;
    } rows[] = {
        {"", rotations, not_found, 0},
        {"1 aap1a000 { p1", rotations, " Unclosed block }\n", 0},
        {"1 aap1a000 p1 }", rotations, " Missing: {\n", 0},
        {"/* " + p1, rotations, " Unclosed comment block\n", 0},
        {"1 aap1a000 { =p1 }", rotations, " Invalid point group\n", 0},
        {"1 a { p1 }", rotations, " Length of computer adapted space group symbol invalid\n", 1},
        {"1 xap1a000 { p1 }", rotations, " Bad crystal_system\n", 1},
        {"1 aap9z000 { p1 }", rotations, " Invalid rotation matrix type\n", 1},
        {std::string(10000, '1') + " aap1a000 {p1 =" + std::string(100000, 'x') + " }", rotations,
         "", 1},
        {p1, rotations + rotations,
         " Rotation matrix 1a in file sgrots3.txt listed more than once\n", 1},
        {p1, "rotation_matrix 1a { 1 1 0 0 1 0 0 0 1 }",
         " Rotation matrix failed consistency test\n", 1},
        {p1, "rotation_matrix\0001a\0{\0001 0 0\0000 1 0 0 0 1\0}\xff\xfe"s, "", 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.catalogue.substr(0, 40) + " | " + row.rotations.substr(0, 40));
        write_file("lomar5.txt", row.catalogue);
        write_file("sgrots3.txt", row.rotations);
        EXPECT_EQ(console_of({"p1"}), row.console);
        EXPECT_EQ(files().size(), row.files);
        fs::remove("p1.sg");
    }
    for (const std::string name : data_files) {
        fs::remove(name);
        EXPECT_EQ(console_of({"P1"}), " Cannot open file " + name + "\n");
        fs::remove("p1.sg");
    }
}

TEST_F(Tool, CutOffDataFiles) {
    const std::set<std::string> known = {"",
                                         not_found,
                                         " Missing: {\n",
                                         " Unclosed block }\n",
                                         " Invalid rotation matrix type\n",
                                         " Rotation matrix failed consistency test\n"};
    for (const char* name : data_files) {
        const std::string whole = read_file(name);
        for (std::size_t n = 0; n < whole.size(); n += whole.size() / 150 + 1) {
            write_file(name, whole.substr(0, n));
            EXPECT_TRUE(known.contains(console_of({"P432"}))) << name << ' ' << n;
            fs::remove("p432.sg");
        }
        write_file(name, whole);
    }
}

TEST_F(Tool, AnyByteAsSymbol) {
    for (int byte = 1; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        const bool letter = std::string_view("pabcifrPABCIFR").find(c) != std::string_view::npos;
        const std::string expected = c == '(' || c == ')' || c == ' ' ? " No Spacegroup\n"
                                     : letter                         ? not_found
                                     : c >= '1' && c <= '9'           ? ""
                                                                      : bad_symbol;
        EXPECT_EQ(console_of({std::string(1, c)}), expected) << byte;
        EXPECT_EQ(console_of({"P9" + std::string(1, c)}), not_found) << byte;
    }
}

TEST_F(Tool, DamagedSgFiles) {
    const std::pair<std::string, const char*> rows[] = {
        {"xyzs", " Cannot find { in stream p1.sg\n"},
        {"xyzs { x, y, -99999999999/-1 \n }", ""},
        {"xyzs {\0\xff, y, z\n"s, " Error loading symmetry xyz's\n"}};
    for (const auto& [text, console] : rows) {
        write_file("p1.sg", text);
        EXPECT_EQ(console_of({"P1", "-hhh"}), console) << text;
        EXPECT_EQ(read_file("p1.sg") == text, *console != 0);
    }
}

constexpr char inversion[] =
    "\n1 Generators\n\n\t-x, -y, -z \n\nGenerator 0\n\n\t-x, -y, -z \n\tx, y, z "
    "\n\nNumber of equivalent positions before keep_unique_6 2"
    "\n\nEquivalent positions for asymmetric unit\nNumber of positions 2\n\n"
    "\n\t                                  Order  Det\n"
    "\n\t-x, -y, -z                    0      2    -1   0 1"
    "\n\tx, y, z                       1      1     1   1";

// The mode needs no symbol and no data files, writes no file, and ends the run.
TEST_F(Tool, BillModeOnTheConsoleAlone) {
    for (const char* name : data_files) fs::remove(name);
    write_file("gens.txt", "symmetry { -x, -y, -z }");
    for (const arguments& args : {arguments{"-bill", "gens.txt"},
                                  {"no symbol", "-bill", "gens.txt"},
                                  {"P_1", "-hhh", "-e", "e", "-bill", "gens.txt"},
                                  {"P_1", "-bill", "gens.txt", "-dir"}}) {
        EXPECT_EQ(console_of(args), inversion) << testing::PrintToString(args);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1);
}

TEST_F(Tool, BillModeFailures) {
    const struct {
        const char *text, *console;
    } rows[] = {
        {"", " No generators in file gens.txt\n"},
        {"{ symmetry", " Missing: {\n"},
        {"symmetry { x, y, z; a, b, c }", " Error loading symmetry xyz's\n"},
        {"symmetry { /* x, y, z }", " Unclosed comment block\n"},
        {"symmetry { y, z, x+1/7 }",
         "\n1 Generators\n\n\ty, z, x+17/120  Identity matrix not found after 13 operations\n"}};
    for (const auto& row : rows) {
        write_file("gens.txt", row.text);
        EXPECT_EQ(console_of({"-bill", "gens.txt", "-e", "failed.txt"}), row.console);
        EXPECT_TRUE(fs::remove("failed.txt"));
    }
    EXPECT_EQ(console_of({"-bill"}), " Missing value for -bill\n");
    EXPECT_EQ(console_of({"-bill", "."}), " Cannot open file .\n");
}

TEST_F(Tool, HklFiles) {
    const struct {
        arguments args;
        const char *path, *bytes;
    } rows[] = {
        {{"F_m_-3_m", "-hkl", "3", "3", "3"},
         "fm-3m.hkl",
         "hkls 3 3 3\n{\n    1    1    1    8\n    2    0    0    6\n    2    2    0   12\n"
         "    2    2    2    8\n    3    1    1   24\n    3    3    1   24\n"
         "    3    3    3    8\n}"},
        {{"P_21", "-hkl", "-5", "+07x", "none"}, "p21.hkl", "hkls -5 7 0\n{\n}"},
        {{"P_1", "-dir", "out", "-hkl", "1", "0", "0"},
         "out/p1.hkl",
         "hkls 1 0 0\n{\n    1    0    0    2\n}"},
        {{"P_21", "-hkl", "0", "2", "-hkl"}, "p21.hkl", "hkls 0 2 0\n{\n    0    2    0    2\n}"}};
    fs::create_directory("out");
    for (const auto& row : rows) {
        EXPECT_EQ(console_of(row.args), "");
        EXPECT_EQ(read_file(row.path), row.bytes);
    }
}

// The operators alone don't do; once the similar reflections are there, they do. The list is then
// that of the cell as if it were primitive.
TEST_F(Tool, HklOfOperatorsWithoutCentring) {
    const arguments list = {"C_2", "-hkl", "1", "1", "0", "-e", "failed.txt"};
    EXPECT_EQ(console_of({"C_2", "-only_asym"}), "");
    EXPECT_EQ(console_of(list), " Cannot find: hkl\n");
    EXPECT_TRUE(fs::remove("failed.txt"));
    EXPECT_EQ(console_of({"C_2", "-hhh"}), "");
    EXPECT_EQ(console_of(list), "");
    EXPECT_EQ(read_file("c2.hkl"),
              "hkls 1 1 0\n{\n    0    1    0    2\n    1    0    0    2\n    1    1    0    4\n}");
    // In one run, and with the centring.
    EXPECT_EQ(console_of({"C_m", "-only_asym", "-hhh", "-hkl", "1", "0", "0"}), "");
    EXPECT_EQ(read_file("cm.hkl"), "hkls 1 0 0\n{\n    1    0    0    2\n}");
    fs::remove("c2.sg");
    EXPECT_EQ(console_of(list), "");
    EXPECT_EQ(read_file("c2.hkl"), "hkls 1 1 0\n{\n    1    1    0    4\n}");
}

TEST_F(Tool, HklFailures) {
    write_file("p1.hkl", "old");
    EXPECT_EQ(console_of({"P_1", "-e", "x", "-hkl", "1", "1"}), " Missing value for -hkl\n");
    EXPECT_EQ(console_of({"P_1", "-hkl", "-99999999999", "0", "0"}), " Index limits too large\n");
    EXPECT_EQ(read_file("p1.hkl"), "old");
    fs::remove("p1.hkl");
    fs::create_directory("p1.hkl");
    EXPECT_EQ(console_of({"P_1", "-hkl", "1", "1", "1"}), " Cannot open file p1.hkl\n");
}

}  // namespace
