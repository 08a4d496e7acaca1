#include <gtest/gtest.h>
#include <set>
#include <string>

#include "foundation/platform.h"
#include "support/run_tool.h"

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using arguments = std::vector<std::string>;

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
std::string shipped(const std::string& name) { return read_file(std::string(DATA_DIR "/") + name); }
std::string golden(const std::string& name) {
    return read_file(std::string(GOLDEN_DIR "/") + name);
}

// A folder with the data files, in which the program runs.
struct Tool : testing::Test {
    Tool() {
        for (const char* name : {"lomar5.txt", "sgrots3.txt"}) write_file(name, shipped(name));
    }

    // Runs and expects the exit status that every run has; gives the console's bytes.
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
        const char* symbol;
        const char* file;
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
        {{"x"}, bad_symbol, {}},
        {{"-hhh"}, bad_symbol, {}},
        {{"-e"}, bad_symbol, {}},
        {{"-e", "mark"}, bad_symbol, {"mark"}},
        {{"p999", "-dir", "nowhere"}, not_found, {}},
        {{"p" + std::string(10000, 'p')}, not_found, {}},
        {{"P-1", "-dir"}, " Missing value for -dir\n", {}},
        {{"P-1", "-compare"}, " Missing value for -compare\n", {"p-1.sg"}},
        {{"P-1", "-dir", "nowhere"}, not_opened("nowhere", "p-1.sg"), {}},
        {{"P-1", "-dir", "lomar5.txt"}, not_opened("lomar5.txt", "p-1.sg"), {}},
        {{"P-1", "-compare", "P1"}, not_opened("sg", "p1.sg"), {"p-1.sg"}},
        {{"P-1", "-compare", "x"}, not_found, {"p-1.sg"}},
        {{"P-1", "-compare", "("}, " No Spacegroup\n", {"p-1.sg"}},
        {{"P-1", "-compare", "", "-hhh"}, " No Spacegroup\n", {"p-1.sg"}},
        {{"P-1", "-hhh"}, has_details, {"p-1.sg"}},
        {{"P-1", "-unknown", "-HHH", "-hh", "what"}, "", {"p-1.sg"}},
        {{"P-1", "-e", "mark"}, "", {"p-1.sg"}},
        {{"P-1", "-hhh", "-e", "mark"}, has_details, {"p-1.sg", "mark"}},
        {{"x", "-e"}, bad_symbol, {}},
        {{"x", "-e", "nowhere/mark"}, bad_symbol, {}},
        {{"x", "-e", "mark", "-e", "other"}, bad_symbol, {"mark"}},
    };
    for (const auto& row : rows) {
        std::string trace;
        for (const std::string& text : row.args) trace += text.substr(0, 20) + ' ';
        SCOPED_TRACE(trace);
        EXPECT_EQ(console_of(row.args), row.console);
        EXPECT_EQ(files(), row.files);
        for (const std::string& file : files()) fs::remove(file);
    }
    write_file("mark", "old");
    console_of({"P1", "-e", "mark"});
    EXPECT_EQ(read_file("mark"), "old");
    console_of({"x", "-e", "mark"});
    EXPECT_EQ(read_file("mark"), "");
}

TEST_F(Tool, OutputDirectory) {
    fs::create_directories("out/in");
    EXPECT_EQ(console_of({"C2/c", "-dir", "out"}), "");
    EXPECT_EQ(console_of({"-dir", "P-1"}), bad_symbol);
    EXPECT_EQ(console_of({"P-1", "-only", "-dir", "out/in/", "-dir", "out"}), "");
    EXPECT_EQ(files(), (std::set<std::string>{"out/c2oc.sg", "out/in/p-1.sg"}));
    EXPECT_EQ(read_file("out/c2oc.sg"), golden("c2oc.sg"));
    fs::create_directory("p-1.sg");
    EXPECT_EQ(console_of({"P-1"}), " Cannot open file p-1.sg\n");
    EXPECT_EQ(console_of({"P-1", "-dir", std::string(5000, 'd')}),
              not_opened(std::string(5000, 'd'), "p-1.sg"));
}

TEST_F(Tool, Compare) {
    fs::create_directory("sg");
    const struct {
        arguments args;
        const char* console;
    } rows[] = {
        // A row may find the first file there, left by one before it.
        {{"P-1", "-compare", "2"}, " \nEqual"},
        {{"P-1", "-compare", "2"}, " \nEqual"},
        {{"P-1", "-compare", "P1"}, " \nNOT Equal"},
        {{"Fddd:2", "-compare", "Fddd"}, " \nNOT Equal"},
        {{"Fddd:2", "-compare", "Fdddz"}, " \nEqual"},
        {{"C2/c", "-dir", "sg", "-compare", "15"}, " \nEqual"},
        {{"R3", "-compare", "146:H"}, " \nEqual"},
        {{"R3", "-compare", "146:H"}, " \nEqual"},
        // Without centring these are one group.
        {{"C1", "-compare", "P1", "-only_asym"}, " \nEqual"},
        {{"C1", "-compare", "P1", "-only_asym"}, " \nEqual"},
        {{"I1", "-compare", "P1"}, " \nNOT Equal"},
        {{"Pnma", "-compare", "Pnma", "-hhh"}, " \nEqual hhh details already in *.sg file\n"},
        {{"Pnma", "-hhh", "-compare", "P9"}, not_found},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(console_of(row.args), row.console) << row.args[0] << ' ' << row.args[2];
    }
    EXPECT_EQ(read_file("sg/c2oc.sg"), golden("c2oc.sg"));
    write_file("sg/p1.sg", "stale");
    console_of({"P-1", "-compare", "P1"});
    EXPECT_NE(read_file("sg/p1.sg"), "stale") << "the second file is written on every run";
    write_file("p-1.sg", "xyzs {");
    EXPECT_EQ(console_of({"P-1", "-compare", "P1"}), " \nNOT Equal");
    write_file("p-1.sg", "broken");
    EXPECT_EQ(console_of({"P-1", "-compare", "P1", "-e", "mark"}), " Cannot find: xyzs\n");
    EXPECT_TRUE(fs::exists("mark"));
}

TEST_F(Tool, OperatorsWithoutCentring) {
    const struct {
        const char* symbol;
        const char* file;
    } rows[] = {{"C2/c", "c2oc.sg"}, {"P-1", "p-1.sg"}, {"R3", "r3.sg"}};
    for (const auto& row : rows) {
        const std::string whole = golden(row.file);
        const std::string plain =
            whole.substr(0, std::min(whole.find("\n\t' +"), whole.find("\n} "))) + "\n}";
        EXPECT_EQ(console_of({row.symbol, "-only_asym"}), "");
        EXPECT_EQ(read_file(row.file), plain);
        // The centring of these makes no difference to the details.
        const std::size_t details = whole.find("\n\n' Note");
        const std::string longer =
            plain + whole.substr(details, whole.find("\nequivalence") - details);
        EXPECT_EQ(console_of({row.symbol, "-hhh"}), "");
        EXPECT_EQ(read_file(row.file), longer);
        EXPECT_EQ(console_of({row.symbol, "-hhh"}), has_details);
        EXPECT_EQ(read_file(row.file), longer);
        fs::remove(row.file);
        EXPECT_EQ(console_of({row.symbol, "-hhh", "-only_asym"}), "");
        EXPECT_EQ(read_file(row.file), longer) << "both in one run";
    }
}

TEST_F(Tool, DamagedDataFiles) {
    const std::string rotations = shipped("sgrots3.txt");
    const std::string p1 = "1 aap1a000 { p1 }";
    const struct {
        std::string catalogue;
        std::string rotations;
        const char* console;
        bool leaves_file;
    } rows[] = {
        {"", rotations, not_found, false},
        {"1 aap1a000 { p1", rotations, " Unclosed block }\n", false},
        {"1 aap1a000 p1 }", rotations, " Missing: {\n", false},
        {"/* " + p1, rotations, " Unclosed comment block\n", false},
        {"1 aap1a000 { =p1 }", rotations, " Invalid point group\n", false},
        {"1 a { p1 }", rotations, " Length of computer adapted space group symbol invalid\n", true},
        {"1 xap1a000 { p1 }", rotations, " Bad crystal_system\n", true},
        {"1 aap9z000 { p1 }", rotations, " Invalid rotation matrix type\n", true},
        {std::string(10000, '1') + " aap1a000 {p1 =" + std::string(100000, 'x') + " }", rotations,
         "", true},
        {"1\0aap1a000\0{\0p1 =p1\xff\0}\xff"s, rotations, "", true},
        {p1, "", " Invalid rotation matrix type\n", true},
        {p1, rotations + rotations,
         " Rotation matrix 1a in file sgrots3.txt listed more than once\n", true},
        {p1, "rotation_matrix 1a { 1 1 0 0 1 0 0 0 1 }",
         " Rotation matrix failed consistency test\n", true},
        {p1, "rotation_matrix 1a { 99999999999 -99999999999 3 4 5 6 7 8 9 }",
         " Rotation matrix failed consistency test\n", true},
        {p1, "rotation_matrix 1a { 1 0 0 0 1 0 0 0 1", "", true},
        {p1, "rotation_matrix\0001a\0{\0001 0 0\0000 1 0 0 0 1\0}\xff\xfe"s, "", true},
        {p1, "rotation_matrix", " Invalid rotation matrix type\n", true},
        {p1, "/*", " Unclosed comment block\n", true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.catalogue.substr(0, 40) + " | " + row.rotations.substr(0, 40));
        write_file("lomar5.txt", row.catalogue);
        write_file("sgrots3.txt", row.rotations);
        EXPECT_EQ(console_of({"p1"}), row.console);
        EXPECT_EQ(files().size(), row.leaves_file ? 1U : 0U);
        for (const std::string& file : files()) fs::remove(file);
    }
    for (const std::string name : {"sgrots3.txt", "lomar5.txt"}) {
        fs::remove(name);
        EXPECT_EQ(console_of({"P1"}), " Cannot open file " + name + "\n");
        fs::remove("p1.sg");
        fs::create_directory(name);
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
    for (const std::string name : {"lomar5.txt", "sgrots3.txt"}) {
        const std::string whole = shipped(name);
        std::set<std::string> seen;
        for (std::size_t n = 0; n < whole.size(); n += whole.size() / 150 + 1) {
            write_file(name, whole.substr(0, n));
            const std::string console = console_of({"P432"});
            EXPECT_TRUE(known.contains(console)) << name << ' ' << n << console;
            seen.insert(console);
            fs::remove("p432.sg");
        }
        EXPECT_GE(seen.size(), 2U);
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
    const struct {
        std::string text;
        const char* console;
    } rows[] = {{"xyzs", " Cannot find { in stream p1.sg\n"},
                {"xyzs { x, y, -99999999999/-1 \n }", ""},
                {"xyzs {\0\xff, y, z\n"s, " Error loading symmetry xyz's\n"},
                {"xyzs { /* }", " Unclosed comment block\n"},
                {"hkl", has_details}};
    for (const auto& row : rows) {
        write_file("p1.sg", row.text);
        EXPECT_EQ(console_of({"P1", "-hhh"}), row.console) << row.text;
        EXPECT_EQ(read_file("p1.sg") == row.text, *row.console != 0);
    }
}

}  // namespace
