#include "formats/magnetic_report.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>

#include "analysis/completion.h"
#include "formats/readers.h"

namespace {

using namespace lomar;

TEST(MagneticReport, OneGroup) {
    const magnetic_group group = group_of(find_magnetic("P_S-1"));
    EXPECT_EQ(magnetic_xyz(group), "x,y,z,1\n-x,-y,-z,1\nx,y,z+1/2,-1\n-x,-y,-z+1/2,-1\n");
    EXPECT_EQ(magnetic_cif(group),
              "data_2.7\n"
              "_space_group_magn.number_BNS  2.7\n"
              "_space_group_magn.name_BNS  P_S-1\n"
              "_space_group_magn.number_OG  2.4.7\n"
              "_space_group_magn.name_OG  P_2s-1\n"
              "loop_\n"
              "_space_group_symop_magn_operation.id\n"
              "_space_group_symop_magn_operation.xyz\n"
              "1 x,y,z,+1\n"
              "2 -x,-y,-z,+1\n"
              "loop_\n"
              "_space_group_symop_magn_centering.id\n"
              "_space_group_symop_magn_centering.xyz\n"
              "1 x,y,z,+1\n"
              "2 x,y,z+1/2,-1\n");
    const auto parsed = nlohmann::json::parse(magnetic_json(group, "BNS symbol"));
    EXPECT_EQ(parsed["uni_symbol"], "P-1.1'_c[P-1]");
    EXPECT_EQ(parsed["operators"][3]["xyz"], "-x,-y,-z+1/2");
    EXPECT_EQ(parsed["operators"][3]["time_reversal"], -1);
    EXPECT_EQ(parsed["operators"][3]["location"], "0,0,1/4");
    EXPECT_EQ(parsed["order"], 4);
}

// What is written is read, of every group.
TEST(MagneticReport, ReadBack) {
    for (const magnetic_facts& row : magnetic_groups()) {
        const magnetic_group group = group_of(row);
        for (const std::string& text :
             {magnetic_cif(group), magnetic_json(group, ""), magnetic_xyz(group)}) {
            const operator_input input = read_operators(text);
            SCOPED_TRACE(std::string(row.bns_symbol) + " as " + input.from);
            ASSERT_EQ(input.blocks.size(), 1u);
            EXPECT_TRUE(input.blocks[0].magnetic);
            if (input.from != "xyz") {
                EXPECT_EQ(input.blocks[0].bns_number, row.bns_number);
            }
            const std::vector<symop> found = operators_of_cell(complete(input.blocks[0].operators));
            EXPECT_EQ(std::set(found.begin(), found.end()),
                      std::set(group.operators.begin(), group.operators.end()));
        }
    }
}

}  // namespace
