#include <gtest/gtest.h>
#include <optional>
#include <string>

#include "support/run_tool.h"

namespace {

namespace fs = std::filesystem;
using arguments = std::vector<std::string>;

// A folder with the data files, in which the program runs.
struct HklMode : testing::Test {
    HklMode() {
        for (const char* name : {"lomar5.txt", "sgrots3.txt"}) {
            fs::copy_file(fs::path(DATA_DIR) / name, name);
        }
    }

    static std::string console_of(const arguments& args) {
        const tool_run run = run_tool(args);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.errors, "");
        return run.console;
    }

    scratch_dir dir;
};

TEST_F(HklMode, Files) {
    const struct {
        arguments args;
        const char* path;
        const char* bytes;
    } rows[] = {
        {{"P_21", "-hkl", "0", "2", "1"},
         "p21.hkl",
         "hkls 0 2 1\n{\n    0    0    1    2\n    0    1    1    4\n    0    2    0    2\n"
         "    0    2    1    4\n}"},
        {{"F_m_-3_m", "-hkl", "3", "3", "3"},
         "fm-3m.hkl",
         "hkls 3 3 3\n{\n    1    1    1    8\n    2    0    0    6\n    2    2    0   12\n"
         "    2    2    2    8\n    3    1    1   24\n    3    3    1   24\n"
         "    3    3    3    8\n}"},
        {{"P_21", "-hkl", "-5", "+07x", "none"}, "p21.hkl", "hkls -5 7 0\n{\n}"},
        {{"-hkl_is_found", "x", "-hkl", "0", "0", "0"}, nullptr, " Error in space group symbol\n"},
        {{"P_1", "-dir", "out", "-hkl", "1", "0", "0"},
         "out/p1.hkl",
         "hkls 1 0 0\n{\n    1    0    0    2\n}"},
        {{"P_1", "-hkl", "0", "1", "-hkl"}, "p1.hkl", "hkls 0 1 0\n{\n    0    1    0    2\n}"},
    };
    fs::create_directory("out");
    for (const auto& row : rows) {
        const std::string console = console_of(row.args);
        EXPECT_EQ(console, row.path != nullptr ? "" : row.bytes);
        if (row.path != nullptr) {
            EXPECT_EQ(read_file(row.path), row.bytes);
        }
    }
}

// The operators alone don't do; once the similar reflections are there, they do. The list is then
// that of the cell as if it were primitive.
TEST_F(HklMode, OperatorsWithoutCentring) {
    const arguments list = {"C_2", "-hkl", "1", "1", "0", "-e", "failed.txt"};
    EXPECT_EQ(console_of({"C_2", "-only_asym"}), "");
    EXPECT_EQ(console_of(list), " Cannot find: hkl\n");
    EXPECT_TRUE(fs::exists("failed.txt"));
    EXPECT_FALSE(fs::exists("c2.hkl"));
    fs::remove("failed.txt");
    EXPECT_EQ(console_of({"C_2", "-hhh"}), "");
    EXPECT_EQ(console_of(list), "");
    EXPECT_FALSE(fs::exists("failed.txt"));
    EXPECT_EQ(read_file("c2.hkl"),
              "hkls 1 1 0\n{\n    0    1    0    2\n    1    0    0    2\n    1    1    0    4\n}");
    // In one run, and with the centring.
    EXPECT_EQ(console_of({"C_m", "-only_asym", "-hhh", "-hkl", "1", "0", "0"}), "");
    EXPECT_EQ(read_file("cm.hkl"), "hkls 1 0 0\n{\n    1    0    0    2\n}");
    fs::remove("c2.sg");
    EXPECT_EQ(console_of(list), "");
    EXPECT_EQ(read_file("c2.hkl"), "hkls 1 1 0\n{\n    1    1    0    4\n}");
}

TEST_F(HklMode, Failures) {
    const std::string too_large = " Index limits too large\n";
    const std::string missing = " Missing value for -hkl\n";
    const struct {
        arguments args;
        std::string console;
    } rows[] = {
        {{"P_1", "-hkl"}, missing},
        {{"P_1", "-hkl", "1"}, missing},
        {{"P_1", "-hkl", "1", "1"}, missing},
        {{"P_1", "-e", "x", "-hkl", "1", "1"}, missing},
        {{"P_1", "-hkl", "2147483647", "0", "0"}, too_large},
        {{"P_1", "-hkl", "-99999999999", "0", "0"}, too_large},
        {{"P_1", "-hkl", "99999", "99999", "99999"}, too_large},
        {{"P_1", "-dir", "absent", "-hkl", "1", "1", "1"}, " Cannot open file absent/p1.sg\n"},
    };
    EXPECT_EQ(console_of({"P_1"}), "");
    write_file("p1.hkl", "old");
    for (const auto& row : rows) {
        EXPECT_EQ(console_of(row.args), row.console) << testing::PrintToString(row.args);
        EXPECT_EQ(read_file("p1.hkl"), "old");
    }
    fs::remove("p1.hkl");
    fs::create_directory("p1.hkl");
    EXPECT_EQ(console_of({"P_1", "-hkl", "1", "1", "1"}), " Cannot open file p1.hkl\n");
    fs::remove("p1.hkl");
    write_file("p1.sg", "cut off");
    EXPECT_EQ(console_of({"P_1", "-hkl", "1", "1", "1"}), " Cannot find: xyzs\n");
    EXPECT_FALSE(fs::exists("p1.hkl"));
}

}  // namespace
