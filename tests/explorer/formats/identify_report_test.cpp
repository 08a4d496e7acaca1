#include "formats/identify_report.h"

#include <gtest/gtest.h>

#include "formats/operator_files.h"
#include "formats/show_json.h"

namespace {

using namespace lomar;

identify_report report_on(const std::string& text) {
    const operator_input input = read_operators(text);
    return identify_block(input.blocks.at(0), input.from);
}

// The operators of a setting in a CIF that tells other things of its group.
std::string cif_of(const char* setting_name, const char* items) {
    std::string text = "data_x\n" + std::string(items) + "\nloop_\n_symmetry_equiv_pos_as_xyz\n";
    for (const symop& op : group_of(*find_setting(setting_name)).operators) {
        text += xyz_text(op) + "\n";
    }
    return text;
}

TEST(IdentifyReport, NamesAndNumbersAgainstOperators) {
    const struct {
        const char* setting;
        const char* items;
        const char* told;  // a part of the only contradiction; empty if there is none
    } cases[] = {
        {"P 1 21/c 1", "_symmetry_space_group_name_H-M 'P 21/c'", ""},
        {"P 1 21/c 1", "_space_group_IT_number 14", ""},
        {"P 1 21/c 1", "_space_group_name_Hall '-P 2ybc'", ""},
        // What a bare symbol leaves open is no contradiction.
        {"P 1 1 2/m", "_space_group_name_H-M_alt 'P 2/m'", ""},
        {"P n n n:2", "_space_group_name_H-M_alt 'P n n n'", ""},
        {"R -3 m:R", "_space_group_name_H-M_alt 'R -3 m'", ""},
        {"C m c a", "_space_group_name_H-M_alt 'C m c e'", ""},
        {"P 1 21/c 1", "_space_group_name_H-M_alt ?\n_space_group_IT_number .", ""},
        {"P 1 2/c 1", "_space_group_name_H-M_alt 'P 1 21/c 1'",
         "'P 1 21/c 1' means P 1 21/c 1 (14), but the operators are those of P 1 2/c 1 (13)"},
        {"P 1 21/n 1", "_space_group_name_H-M_alt 'P 21/c'", "in the axes of P 1 21/n 1"},
        {"P 1 1 2", "_space_group_name_H-M_alt 'P 1 2 1'", "in the axes of P 1 1 2"},
        {"P 1 1 21/b", "_space_group_name_H-M_alt 'P 21/b'", ""},
        {"P b n m", "_space_group_name_H-M_alt 'P n m a'", "in the axes of P b n m"},
        {"P n n n:1", "_space_group_name_H-M_alt 'P n n n:2'", "means P n n n:2"},
        {"P 1 21/c 1", "_space_group_IT_number 15", "the number 15"},
        {"P 1 21/c 1", "_space_group_name_H-M_alt 'Q 7'", "'Q 7' names no space group"},
        {"P 1 21/n 1", "_space_group_name_Hall '-P 2ybc'", "other axes or another origin"},
        {"P 1 21/c 1", "_space_group_name_Hall '-P 2yc'", "P 1 2/c 1 (13)"},
        {"P 1 21/c 1", "_space_group_name_Hall '9 9'", "can't be read"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.items);
        const identify_report report = report_on(cif_of(test.setting, test.items));
        EXPECT_EQ(report.space->row->name(), test.setting);
        EXPECT_EQ(report.block, "x");
        const bool told = *test.told != '\0';
        ASSERT_EQ(report.contradictions.size(), told ? 1u : 0u);
        if (told) {
            EXPECT_NE(report.contradictions[0].find(test.told), std::string::npos)
                << report.contradictions[0];
        }
    }
}

// A primitive cell has other axes than its symbol says.
TEST(IdentifyReport, ASymbolForOtherAxes) {
    const identify_report report = report_on(
        "data_x\n_space_group_name_H-M_alt 'I 1 2 1'\nloop_\n"
        "_space_group_symop_operation_xyz\nx,y,z\ny,x,-z\n");
    EXPECT_EQ(report.space->match, match_kind::transformed);
    ASSERT_EQ(report.contradictions.size(), 1u);
    EXPECT_NE(report.contradictions[0].find("axes that no table has"), std::string::npos);
}

TEST(IdentifyReport, MagneticNamesAgainstOperators) {
    const std::string start = "data_x\n_space_group_magn.number_BNS 14.79\n";
    const std::string names = "_space_group_magn.name_BNS \"P2_1'/c\"\n";
    const std::string operators =
        "loop_\n_space_group_symop_magn_operation.xyz\nx,y,z,+1\n-x,y+1/2,-z+1/2,-1\n"
        "-x,-y,-z,+1\nx,-y+1/2,z+1/2,-1\n";
    const identify_report right = report_on(start + operators);
    EXPECT_EQ(right.magnetic->row->bns_number, "14.79");
    EXPECT_TRUE(right.contradictions.empty());
    const identify_report wrong = report_on(start + names + operators);
    ASSERT_EQ(wrong.contradictions.size(), 1u);
    EXPECT_NE(wrong.contradictions[0].find("P2_1'/c'"), std::string::npos);
}

TEST(IdentifyReport, JsonIsThatOfShowAndMore) {
    const identify_report report = report_on("-x,y+1/2,-z+1/2\n-x,-y,-z\n");
    const json value = identify_json(report);
    named_group named;
    named.group = group_of(*find_setting("P 1 21/c 1"));
    const json shown_group = show_json(report_of(named));
    for (const auto& [key, member] : shown_group.items()) {
        EXPECT_EQ(value.at(key), member) << key;
    }
    EXPECT_EQ(value.at("input").at("operators"), 2);
    EXPECT_EQ(value.at("input").at("from"), "xyz");
    EXPECT_EQ(value.at("input").at("generators_completed"), true);
    EXPECT_EQ(value.at("match"), "exact");
    EXPECT_EQ(value.at("transformation").at("basis"), "a,b,c");
    EXPECT_EQ(value.at("also"), json::array());
    // What the program writes, it reads.
    EXPECT_EQ(identify_json(report_on(json_text(value))).at("name"), "P 1 21/c 1");
}

// Every setting as each file of operators, and read back.
TEST(IdentifyReport, WhatIsWrittenIsRead) {
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        for (const std::string& text :
             {xyz_lines(group), cif_block(group), shelx_cards(group), sg_file(group)}) {
            const identify_report report = report_on(text);
            EXPECT_EQ(report.space->row->number, row.number) << text;
            EXPECT_EQ(report.space->match, match_kind::exact) << text;
            EXPECT_FALSE(report.completed) << text;
            EXPECT_TRUE(report.contradictions.empty()) << text << report.contradictions.at(0);
        }
    }
}

// Entries that aren't whole: the lattice of these axes is centred, and by hand the product is a
// threefold rotation.
TEST(IdentifyReport, OrthohexagonalAxes) {
    const identify_report report = report_on("1/2x+1/2y,3/2x-1/2y,-z\n-x,y,-z\n");
    ASSERT_TRUE(report.space.has_value()) << report.failure;
    EXPECT_EQ(report.space->row->name(), "P 3 2 1");
}

TEST(IdentifyReport, OperatorsThatMakeNoGroup) {
    const std::pair<const char*, const char*> cases[] = {
        {"x,y,z\nx+y,y,z\n", "'x+y,y,z' (line 2): no power"},
        {"x,y,z\nx,x,z\n", "'x,x,z' (line 2): its determinant is 0"},
        {"2x,y,z\n", "'2x,y,z' (line 1): no power"},
        {"y,x,-z\n-x,2x+y,-z\n", "the product of 'y,x,-z' (line 1) and '-x,2x+y,-z' (line 2)"},
        {"1/2x+1/2y,3/2x-1/2y,-z\ny,x,-z\n", "the product of"},
        {"99999999999x+y,y,z\n", "no power"},
        {"x,y,z\nx+1/99999999999999,y+1/99999999999977,z+1/99999999999923\n",
         "too large at 'x+1/99999999999999,y+1/99999999999977,z+1/99999999999923' (line 2)"},
        {"99999999999x+99999999989y,99999999977x-99999999979y,99999999999z\n", "(line 1)"},
    };
    for (const auto& [text, reason] : cases) {
        const identify_report report = report_on(text);
        EXPECT_FALSE(report.space.has_value()) << text;
        EXPECT_NE(report.failure.find(reason), std::string::npos) << report.failure;
    }
}

}  // namespace
