#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

#include "support/run_tool.h"

namespace {

struct usage_case {
    std::vector<std::string> arguments;
    int status;
    std::string told;  // a part of the line on standard error; nothing is told when it is empty
};

class usage : public ::testing::TestWithParam<usage_case> {};

TEST_P(usage, status_and_one_line) {
    const scratch_dir scratch;
    const tool_run run = run_tool(GetParam().arguments);
    EXPECT_EQ(run.status, GetParam().status) << run.errors;
    if (GetParam().status == 0) {
        EXPECT_EQ(run.errors, "");
        EXPECT_NE(run.console, "");
        return;
    }
    EXPECT_EQ(run.console, "");
    EXPECT_TRUE(run.errors.starts_with("lomar: ")) << run.errors;
    EXPECT_NE(run.errors.find(GetParam().told), std::string::npos) << run.errors;
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
    EXPECT_TRUE(std::filesystem::is_empty(scratch.path()));
}

// The command line: what gtest would print by itself holds addresses, which change from run to run.
void PrintTo(const usage_case& row, std::ostream* out) {
    *out << "lomar";
    for (const std::string& argument : row.arguments) *out << " '" << argument << "'";
}

INSTANTIATE_TEST_SUITE_P(
    command_line, usage,
    ::testing::Values(
        usage_case{{"--help"}, 0, ""}, usage_case{{"-h"}, 0, ""}, usage_case{{"--version"}, 0, ""},
        usage_case{{"show", "--help"}, 0, ""}, usage_case{{"show", "P -1"}, 0, ""},
        usage_case{{"show", "--", "P -1"}, 0, ""},
        usage_case{{"show", "--format", "xyz", "P 1"}, 0, ""},
        usage_case{{"show", "P 1", "--format=xyz"}, 0, ""}, usage_case{{}, 2, "no command"},
        usage_case{{"shwo"}, 2, "'shwo'"}, usage_case{{"show"}, 2, "SYMBOL is required"},
        usage_case{{"show", "P", "21/c"}, 2, "'21/c' is one argument too many"},
        usage_case{{"show", "P 1", "--form", "xyz"}, 2, "no option '--form'"},
        usage_case{{"show", "P 1", "-x"}, 2, "no option '-x'"},
        usage_case{{"show", "P 1", "--format", "xml"}, 2, "no format 'xml'; it has text"},
        usage_case{{"show", "P 1", "--format="}, 2, "no format ''"},
        usage_case{{"show", "P 1", "--format"}, 2, "--format lacks a value"},
        usage_case{{"show", "P 1", "--help=1"}, 2, "takes no value"},
        usage_case{{"show", "P 1", "-o", "a", "-o", "b"}, 2, "--output is given twice"},
        usage_case{{"show", "P 1", "-o", ""}, 2, "-o"},
        usage_case{{"show", "P 1", "-o", "no_folder/file"}, 1, "'no_folder/file'"},
        usage_case{{"show", "P 1", "-o", "."}, 1, "'.'"},
        usage_case{{"show", "--", "-o"}, 1, "'-o'"}, usage_case{{"show", "-.5"}, 1, "'-.5'"},
        usage_case{{"show", "-1/4"}, 1, "'-1/4'"}, usage_case{{"show", "-P no"}, 1, "'-P no'"},
        usage_case{{"show", "-p no"}, 1, "'-p no'"}, usage_case{{"show", ""}, 1, "empty"},
        usage_case{{"show", "[q]"}, 1, "'[q]'"}, usage_case{{"show", "Q\n1"}, 1, "'Q\\x0a1'"},
        usage_case{{"show", "\x1b[2J"}, 1, "\\x1b[2J"}));

// Arguments that only these commands have.
INSTANTIATE_TEST_SUITE_P(
    numbers, usage,
    ::testing::Values(
        usage_case{{"site", "P -1", "0", "-1/2", "-.25"}, 0, ""},
        usage_case{{"site", "P -1", "-1.2e-17", "0.25(3)", "0.3333333333333333333333"}, 0, ""},
        usage_case{{"site", "P -1", "0", "0", "1e"}, 2, "'1e' is not a number"},
        usage_case{{"magnetic", ""}, 1, ""},
        usage_case{{"site", "P -1", "0", "0"}, 2, "Z is required"},
        usage_case{{"site", "P -1", "0", "0", "1/0"}, 2, "'1/0' is not a number"},
        usage_case{{"site", "P -1", "0", "0", "1x3"}, 2, "'1x3' is not a number"},
        usage_case{{"site", "P -1", "0", "0", "0", "--tolerance", "0.2"}, 2, "from 0 to 1/10"},
        usage_case{{"site", "P -1", "0", "0", "12345678"}, 1, "12345678 is too far"},
        usage_case{{"site", "Q", "0", "0", "0"}, 1, "'Q'"},
        usage_case{{"reflections", "P 1", "--limits", "0", "0", "0"}, 0, ""},
        usage_case{{"reflections", "P 1"}, 2, "either --limits or --cell"},
        usage_case{{"reflections", "P 1", "--limits", "1", "1"}, 2, "--limits lacks a value"},
        usage_case{{"reflections", "P 1", "--limits", "1", "-1", "1"}, 2, "below 0"},
        usage_case{
            {"reflections", "P 1", "--limits", "1", "x", "1"}, 2, "--limits can't be '1,x,1'"},
        usage_case{{"reflections", "P 1", "--limits", "1", "99999999999", "1"}, 2, "--limits"},
        usage_case{{"reflections", "P 1", "--limits", "999999", "1", "1"}, 1, "too large"},
        usage_case{{"reflections", "P 1", "--limits", "1", "1", "1", "--wavelength", "1"},
                   2,
                   "--wavelength wants --cell"},
        usage_case{{"reflections", "P 1", "--limits", "1", "1", "1", "--d-min", "1"},
                   2,
                   "want each other"},
        usage_case{{"reflections", "P 1", "--cell", "4", "5", "6", "90", "90", "90"},
                   2,
                   "want each other"},
        usage_case{
            {"reflections", "P 1", "--cell", "4", "5", "6", "90", "90", "90", "--d-min", "nan"},
            2,
            "--d-min wants a number above 0"},
        usage_case{
            {"reflections", "P 1", "--cell", "4", "5", "-6", "90", "90", "90", "--d-min", "2"},
            1,
            "c = -6 is no length"},
        usage_case{
            {"reflections", "P 4", "--cell", "4", "5", "6", "90", "90", "90", "--d-min", "2"},
            1,
            "a = b is broken by 4 and 5"},
        usage_case{
            {"reflections", "P 1", "--cell", "4", "5", "6", "90", "90", "90", "--d-min", "1e-9"},
            1,
            "more than 10000000 reflections"},
        usage_case{{"identify"}, 2, "FILE is required"},
        usage_case{{"identify", "no_file"}, 1, "'no_file'"},
        usage_case{{"identify", "no_file", "--from", "pdf"}, 2, "reads no 'pdf'"},
        usage_case{{"subgroups", "P 1"}, 0, ""},
        usage_case{{"subgroups", "P 21/c", "--to", "P -1", "--format", "csv"}, 0, ""},
        usage_case{{"subgroups", "P 21/c", "--to", "P 21/c"}, 1, "no proper subgroup"},
        usage_case{{"subgroups", "P 21/c", "--to", "Q"}, 1, "'Q'"}));

TEST(help, fits_a_terminal_of_80_columns) {
    const scratch_dir scratch;
    std::istringstream overview(run_tool({"--help"}).console);
    std::vector<std::string> commands = {"--help"};
    for (std::string line; std::getline(overview, line) && line != "Options of every command:";) {
        if (line.starts_with("  ")) commands.push_back(line.substr(2, line.find(' ', 2) - 2));
    }
    EXPECT_GE(commands.size(), 10u);
    for (const std::string& command : commands) {
        std::istringstream help(run_tool({command, "--help"}).console);
        for (std::string line; std::getline(help, line);) EXPECT_LE(line.size(), 80u) << line;
    }
}

TEST(output_file, holds_the_answer_and_replaces_what_was_there) {
    const scratch_dir scratch;
    const std::string answer = run_tool({"show", "P -1"}).console;
    write_file("file", std::string(100000, 'x'));
    for (const std::string name : {"new", "file"}) {
        const tool_run run = run_tool({"show", "P -1", "-o", name});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.console, "");
        EXPECT_EQ(read_file(name), answer);
    }
    std::filesystem::remove("new");
    std::filesystem::remove("file");
    EXPECT_TRUE(std::filesystem::is_empty(scratch.path()));
}

TEST(output_file, is_untouched_by_a_failure) {
    const scratch_dir scratch;
    write_file("file", "before");
    EXPECT_EQ(run_tool({"show", "no such group", "-o", "file"}).status, 1);
    EXPECT_EQ(run_tool({"show", "P 1", "-o", "file", "--format", "xml"}).status, 2);
    EXPECT_EQ(read_file("file"), "before");
}

}  // namespace
