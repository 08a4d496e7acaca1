#include <gtest/gtest.h>
#include <set>
#include <string>

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
            if (entry.is_regular_file()) found.insert(name);
        }
        for (const char* name : data_files) found.erase(name);
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
    } rows[] = {{{}, usage, {}},
                {{""}, " No Spacegroup\n", {}},
                {{"-dir", "P-1"}, bad_symbol, {}},
                {{"p999", "-dir", "nowhere"}, not_found, {}},
                {{"p" + std::string(10000, 'p')}, not_found, {}},
                {{"P-1", "-dir"}, " Missing value for -dir\n", {}},
                {{"P-1", "-compare"}, " Missing value for -compare\n", {"p-1.sg"}},
                {{"P-1", "-dir", std::string(5000, 'd')},
                 " Cannot open file " + std::string(5000, 'd') + "/p-1.sg\n",
                 {}},
                {{"P-1", "-only", "-HHH", "-dir", "out/in/", "-dir", "out"}, "", {"out/in/p-1.sg"}},
                {{"P-1", "-compare", "P1"}, " Cannot open file sg/p1.sg\n", {"p-1.sg"}},
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
        {{"Fddd:2", "-compare", "Fddd"}, " \nNOT Equal"},
        {{"C2/c", "-dir", "sg", "-compare", "15"}, " \nEqual"},
        {{"R3", "-compare", "146:H"}, " \nEqual"},
        {{"R3", "-compare", "146:H"}, " \nEqual"},  // the first file is there now
        // Without centring these are one group.
        {{"C2/m", "-compare", "P2/m", "-only_asym"}, " \nEqual"},
        {{"I1", "-compare", "P1"}, " \nNOT Equal"},
        {{"Pnma", "-compare", "Pnma", "-hhh"}, " \nEqual hhh details already in *.sg file\n"}};
    for (const auto& row : rows) {
        EXPECT_EQ(console_of(row.args), row.console) << row.args[0] << ' ' << row.args[2];
    }
    write_file("sg/p-1.sg", "stale");
    EXPECT_EQ(console_of({"P1", "-compare", "P-1"}), " \nNOT Equal");
    EXPECT_EQ(read_file("sg/p-1.sg"), golden("p-1.sg")) << "written on every run";
    write_file("p1.sg", "broken");
    EXPECT_EQ(console_of({"P1", "-compare", "P1"}), " Cannot find: xyzs\n");
}

TEST_F(Tool, OperatorsWithoutCentring) {
    for (const auto& [symbol, file] : {std::pair{"C2/c", "c2oc.sg"}, std::pair{"R3", "r3.sg"}}) {
        const std::string whole = golden(file);
        const std::string plain = whole.substr(0, whole.find("\n\t' +")) + "\n}";
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
    const struct {
        std::string catalogue, rotations;
        const char* console;
        unsigned files;
    } rows[] = {{"1 aap1a000 { p1", rotations, " Unclosed block }\n", 0},
                {"1 aap1a000 { =p1 }", rotations, " Invalid point group\n", 0},
                {"1 xap1a000 { p1 }", rotations, " Bad crystal_system\n", 1},
                {std::string(10000, '1') + " aap1a000 {p1 =" + std::string(100000, 'x') + " }",
                 "rotation_matrix\0001a\0{\0001 0 0\0000 1 0 0 0 1\0}\xff\xfe"s, "", 1}};
    for (const auto& row : rows) {
        write_file("lomar5.txt", row.catalogue);
        write_file("sgrots3.txt", row.rotations);
        EXPECT_EQ(console_of({"p1"}), row.console);
        EXPECT_EQ(files().size(), row.files) << row.console;
        fs::remove("p1.sg");
    }
    const std::set<std::string> known = {"", " Invalid rotation matrix type\n",
                                         " Rotation matrix failed consistency test\n"};
    write_file("lomar5.txt", read_file(DATA_DIR "/lomar5.txt"));
    for (std::size_t n = 0; n < rotations.size(); n += rotations.size() / 50 + 1) {
        write_file("sgrots3.txt", rotations.substr(0, n));
        EXPECT_TRUE(known.contains(console_of({"P432"}))) << n;
        fs::remove("p432.sg");
    }
    for (const std::string name : data_files) {
        fs::remove(name);
        EXPECT_EQ(console_of({"P1"}), " Cannot open file " + name + "\n");
        fs::remove("p1.sg");
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
    write_file("gens.txt", "symmetry { y, z, x+1/7 }");
    EXPECT_EQ(
        console_of({"-bill", "gens.txt", "-e", "failed.txt"}),
        "\n1 Generators\n\n\ty, z, x+17/120  Identity matrix not found after 13 operations\n");
    EXPECT_TRUE(fs::exists("failed.txt"));
    EXPECT_EQ(console_of({"-bill"}), " Missing value for -bill\n");
    EXPECT_EQ(console_of({"-bill", "."}), " Cannot open file .\n");
}

TEST_F(Tool, HklFiles) {
    fs::create_directory("out");
    EXPECT_EQ(console_of({"F_m_-3_m", "-dir", "out", "-hkl", "3", "3", "3"}), "");
    EXPECT_EQ(read_file("out/fm-3m.hkl"),
              "hkls 3 3 3\n{\n    1    1    1    8\n    2    0    0    6\n    2    2    0   12\n"
              "    2    2    2    8\n    3    1    1   24\n    3    3    1   24\n"
              "    3    3    3    8\n}");
    EXPECT_EQ(console_of({"P_21", "-hkl", "-5", "+07x", "none"}), "");
    EXPECT_EQ(read_file("p21.hkl"), "hkls -5 7 0\n{\n}");
    EXPECT_EQ(console_of({"P_21", "-hkl", "0", "2", "-hkl"}), "");
    EXPECT_EQ(read_file("p21.hkl"), "hkls 0 2 0\n{\n    0    2    0    2\n}");
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
}

TEST_F(Tool, HklFailures) {
    write_file("p1.hkl", "old");
    EXPECT_EQ(console_of({"P_1", "-e", "x", "-hkl", "1", "1"}), " Missing value for -hkl\n");
    EXPECT_EQ(console_of({"P_1", "-hkl", "99999999999", "0", "0"}), " Index limits too large\n");
    EXPECT_EQ(read_file("p1.hkl"), "old");
    fs::remove("p1.hkl");
    fs::create_directory("p1.hkl");
    EXPECT_EQ(console_of({"P_1", "-hkl", "1", "1", "1"}), " Cannot open file p1.hkl\n");
}

}  // namespace
