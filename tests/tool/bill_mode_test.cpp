#include <gtest/gtest.h>
#include <string>

#include "support/run_tool.h"

namespace {

namespace fs = std::filesystem;

constexpr char inversion[] =
    "\n1 Generators\n\n\t-x, -y, -z \n\nGenerator 0\n\n\t-x, -y, -z \n\tx, y, z "
    "\n\nNumber of equivalent positions before keep_unique_6 2"
    "\n\nEquivalent positions for asymmetric unit\nNumber of positions 2\n\n"
    "\n\t                                  Order  Det\n"
    "\n\t-x, -y, -z                    0      2    -1   0 1"
    "\n\tx, y, z                       1      1     1   1";

// The mode needs no symbol and no data files, writes no file, and ends the run.
TEST(BillMode, ConsoleAlone) {
    const scratch_dir dir;
    write_file("gens.txt", "symmetry { -x, -y, -z }");
    for (const std::vector<std::string>& args : {std::vector<std::string>{"-bill", "gens.txt"},
                                                 {"no symbol", "-bill", "gens.txt"},
                                                 {"P_1", "-hhh", "-e", "e", "-bill", "gens.txt"},
                                                 {"P_1", "-bill", "gens.txt", "-dir"}}) {
        const tool_run run = run_tool(args);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.console, inversion) << testing::PrintToString(args);
        EXPECT_EQ(run.errors, "");
    }
    EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1);
}

TEST(BillMode, Failures) {
    const struct {
        const char* text;  // null: there is no file
        const char* console;
    } rows[] = {
        {nullptr, " Cannot open file gens.txt\n"},
        {"", " No generators in file gens.txt\n"},
        {"{ symmetry", " Missing: {\n"},
        {"symmetry {}", " No generators in file gens.txt\n"},
        {"symmetry { x, y, z; a, b, c }", " Error loading symmetry xyz's\n"},
        {"symmetry { x, y, z+1/ }", " Error loading symmetry xyz's\n"},
        {"symmetry { x, y, z+1/0 }", " Error loading symmetry xyz's\n"},
        {"symmetry { /* x, y, z }", " Unclosed comment block\n"},
        {"symmetry { y, z, x+1/7 }",
         "\n1 Generators\n\n\ty, z, x+17/120  Identity matrix not found after 13 operations\n"},
    };
    const scratch_dir dir;
    for (const auto& row : rows) {
        if (row.text != nullptr) write_file("gens.txt", row.text);
        const tool_run run = run_tool({"-bill", "gens.txt", "-e", "failed.txt"});
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.console, row.console);
        EXPECT_EQ(run.errors, "");
        EXPECT_TRUE(fs::remove("failed.txt"));
    }
    EXPECT_EQ(run_tool({"-bill"}).console, " Missing value for -bill\n");
    EXPECT_EQ(run_tool({"-bill", "."}).console, " Cannot open file .\n");
}

}  // namespace
