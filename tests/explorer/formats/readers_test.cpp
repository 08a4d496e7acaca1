#include "formats/readers.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using namespace lomar;

std::string texts_of(const operator_block& block) {
    std::string result;
    for (const given_operator& op : block.operators) {
        result += (result.empty() ? "" : ";") + given_text(op);
    }
    return result;
}

TEST(OperatorText, FormsThatPeopleWrite) {
    const struct {
        const char* text;
        const char* meaning;
    } cases[] = {
        {"x,y,z", "x,y,z"},
        {" -X , 1/2+y, .5 - Z ", "-x,y+1/2,-z+1/2"},
        {"2*x-z,y,3z", "2x-z,y,3z"},
        {"1/2*x+1/2y,y,z", "1/2x+1/2y,y,z"},
        {"-y+1/5,x-y-3/7,z", "-y+1/5,x-y-3/7,z"},
        {"'x, y, z'", "x,y,z"},
        {"(12) -x,-y,z", "-x,-y,z"},
        {"2 -x,-y,z", "-x,-y,z"},
        {"3. x, y, z;", "x,y,z"},
        {"-x y+1/2 -z", "-x,y+1/2,-z"},
        {"x,y,z,-1", "x,y,z,-1"},
        {"x,y,z,+1", "x,y,z"},
        {"\xe2\x88\x92x,y,z", "-x,y,z"},
        {"x+x-x,y,z+1/4+1/4", "x,y,z+1/2"},
        // Decimals of thirds and others, rounded or cut; not those that are exact.
        {"x+0.3333,y+.67,z+0.66667", "x+1/3,y+2/3,z+2/3"},
        {"x+0.166,y+0.1667,z-0.33", "x+1/6,y+1/6,z-1/3"},
        {"x+0.1429,y+0.0417,z+0.583", "x+1/7,y+1/24,z+7/12"},
        {"x+0.34,y+0.12,z+0.125", "x+17/50,y+3/25,z+1/8"},
        {"x+0.1234,y+0.0625,z+1.3333", "x+617/5000,y+1/16,z+4/3"},
        {"x+0.33333333333333333333333,y,z", "x+1/3,y,z"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.text);
        EXPECT_EQ(given_text(parse_operator(test.text, 0)), test.meaning);
    }
}

TEST(OperatorText, RefusedWithTheReason) {
    const struct {
        const char* text;
        const char* reason;
    } cases[] = {
        {"", "three coordinates"},
        {"x,y", "three coordinates"},
        {"x,y,z,1,1", "three coordinates"},
        {"x,y,z -x,-y,z", "three coordinates"},
        {"x,,z", "empty"},
        {"x+,y,z", "missing"},
        {"xy,y,z", "sign is missing"},
        {"x,y,w", "missing"},
        {"x,y,z,0", "time reversal"},
        {"x+1/0,y,z", "denominator is 0"},
        {"x+1/,y,z", "missing after '/'"},
        {"x+1..5,y,z", "two points"},
        {"x+.,y,z", "no digits"},
        {"x*2,y,z", "before its letter"},
        {"x+99999999999999999999,y,z", "too large"},
        {"999999999999999x+999999999999999/7+999999999999999/11+999999999999999/13+1/1009,y,z",
         "too large"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.text);
        try {
            parse_operator(test.text, 7);
            ADD_FAILURE() << "was read";
        } catch (const unreadable_input& failure) {
            const std::string message = failure.what();
            EXPECT_TRUE(message.starts_with("line 7: ")) << message;
            EXPECT_NE(message.find(test.reason), std::string::npos) << message;
        }
    }
}

// The same two operators in each kind of input, with what it tells beside them.
const struct {
    const char* kind;
    const char* text;
    const char* operators;
} samples[] = {
    {"xyz", "# two\nx,y,z\r\n\n-x,-y,z+1/2 # screw\n", "x,y,z;-x,-y,z+1/2"},
    {"xyz", "(1) x,y,z (2) -x,-y,z+1/2;x,y,z+1", "x,y,z;-x,-y,z+1/2;x,y,z+1"},
    {"cif",
     "data_one\n_symmetry_space_group_name_H-M 'P 1 1 21'\n_space_group_IT_number 4\nloop_\n"
     "_symmetry_equiv_pos_site_id\n_symmetry_equiv_pos_as_xyz\n1 x,y,z\n2 '-x, -y, 1/2+z'\n",
     "x,y,z;-x,-y,z+1/2"},
    {"cif", "#comment\nDATA_two\n_space_group_symop.operation_xyz x,y,z\n", "x,y,z"},
    {"cif",
     "data_m\nloop_\n_space_group_symop_magn_operation.id\n"
     "_space_group_symop_magn_operation.xyz\n1 x,y,z,+1\n2 -x,y,-z,-1\nloop_\n"
     "_space_group_symop_magn_centering.xyz\nx,y,z,+1\nx+1/2,y,z,-1\n",
     "x,y,z;-x,y,-z,-1;x+1/2,y,z,-1;-x+1/2,y,-z"},
    {"shelx",
     "TITL test\nCELL 0.7 1 1 1 90 90 90\nLATT -7\nSYMM -X, 0.5+Y, 0.5-Z\nHKLF 4\nSYMM X\n",
     "x,y,z;-x,y+1/2,-z+1/2;x+1/2,y+1/2,z;-x+1/2,y+1,-z+1/2"},
    {"shelx", "REM\nSYMM -x,y,-z ! axis\nEND\n", "x,y,z;-x,y,-z;-x,-y,-z;x,-y,z"},
    {"sg",
     "' banner\nspace_group {\n\tnumber 4\n\tsymbol p1121\n}\n\nxyzs {\n\tx, y, z \n' centred\n"
     "\t-x, -y, z+1/2 \n} 2\n",
     "x,y,z;-x,-y,z+1/2"},
    {"sg", "xyzs { x, y,\n z, 1\n -x\n-y,z+1/2, -1 }", "x,y,z;-x,-y,z+1/2,-1"},
    {"generators", "title\nsymmetry { -x, y+1/2, -z+1/2; /* and */ -x, -y,\n -z }",
     "-x,y+1/2,-z+1/2;-x,-y,-z"},
    {"json", R"({"name":"P 21/c","number":14,"operators":[{"xyz":"x,y,z"},{"xyz":"-x,-y,-z"}]})",
     "x,y,z;-x,-y,-z"},
    {"json", R"(["x,y,z","-x,-y,-z,-1"])", "x,y,z;-x,-y,-z,-1"},
    {"json", R"({"operators":[{"xyz":"-x,-y,-z","time_reversal":-1},{"xyz":"x,y,z"}]})",
     "-x,-y,-z,-1;x,y,z"},
    {"shelx", "TITL\nLATT -1\nSYMM -y, x-y,=\n  z\nSYMM -x+y, =  ! on\n -x, z\nEND \nSYMM X\n",
     "x,y,z;-y,x-y,z;-x+y,-x,z"},
};

TEST(Readers, EveryKindIsRecognisedAndRead) {
    for (const auto& sample : samples) {
        SCOPED_TRACE(sample.text);
        const operator_input input = read_operators(sample.text);
        EXPECT_EQ(input.from, sample.kind);
        ASSERT_EQ(input.blocks.size(), 1u);
        EXPECT_EQ(texts_of(input.blocks[0]), sample.operators);
    }
}

TEST(Readers, WhatTheInputSaysOfTheGroup) {
    const operator_block cif = read_operators(samples[2].text).blocks[0];
    EXPECT_EQ(cif.symbol, "P 1 1 21");
    EXPECT_EQ(cif.number, 4);
    EXPECT_EQ(cif.name, "one");
    EXPECT_TRUE(read_operators(samples[4].text).blocks[0].magnetic);
    EXPECT_TRUE(read_operators("x,y,z,1").blocks[0].magnetic);
    EXPECT_FALSE(read_operators("x,y,z").blocks[0].magnetic);
    EXPECT_EQ(read_operators(samples[7].text).blocks[0].symbol, "p1121");
    const auto blocks =
        read_operators(
            "data_a\n_cell_length_a 3\ndata_b\n_space_group_symop_operation_xyz "
            "x,y,z\ndata_c\nloop_\n"
            "_space_group_symop_operation_xyz\nx,y,z\n-x,-y,-z\n_space_group_name_H-M_alt ?\n"
            "_space_group_name_Hall '-P 1'\n")
            .blocks;
    ASSERT_EQ(blocks.size(), 2u);
    EXPECT_EQ(blocks[1].name, "c");
    EXPECT_EQ(blocks[1].symbol, "");
    EXPECT_EQ(blocks[1].hall, "-P 1");
}

// Every start of every sample is read or refused in one line, as any kind or the one it seems.
TEST(Readers, InputCutOffAnywhere) {
    std::vector<std::string> kinds = input_kinds();
    kinds.emplace_back();
    std::size_t refused = 0;
    for (const auto& sample : samples) {
        const std::string text = sample.text;
        for (std::size_t size = 0; size <= text.size(); ++size) {
            for (const std::string& kind : kinds) {
                try {
                    EXPECT_FALSE(read_operators(text.substr(0, size), kind).blocks.empty());
                } catch (const unreadable_input& failure) {
                    ++refused;
                    EXPECT_EQ(std::string(failure.what()).find('\n'), std::string::npos);
                }
            }
        }
    }
    EXPECT_GT(refused, 5000u);
}

TEST(Readers, BadInputNamesThePlace) {
    std::string many;
    for (int i = 0; i < 100'001; ++i) many += "x,y,z\n";
    const struct {
        std::string text;
        const char* message;
    } cases[] = {
        {"x,y,z\n\n-x,q,z\n", "line 3: '-x,q,z' is no operator"},
        {many, "line 100001: more than 100000 operators"},
        {"", "there are no operators"},
        {"data_x\n_cell_length_a 3\n", "the CIF has no operators"},
        {"data_x\n_space_group_name_H-M_alt 'P 21'\n", "data_x names 'P 21'"},
        {"data_x\nloop_\n_space_group_symop_operation_xyz\nx,y,z\nx,y\n",
         "data_x, _space_group_symop_operation_xyz of line 2, value 2: 'x,y'"},
        {"data_x\nloop_\n_a\n_b\n1\n", "line 2"},
        {"data_x\n_a 'b\n", "line 2: this is no CIF"},
        {"TITL\nLATT 8\n", "line 2: LATT takes"},
        {"TITL\nLATT 1 2\n", "line 2: LATT takes"},
        {"TITL\nLATT 1\nLATT 1\n", "line 3: a second LATT"},
        {"LATT 1\nSYMM 1,2\n", "line 2: '1,2'"},
        {"space_group { }", "no section xyzs"},
        {"xyzs {\n x,y,z\n x,y\n}", "line 3"},
        {"xyzs {\n x,y,z\n -x,-y,-z", "line 1: the section xyzs has no end"},
        {"symmetry { x,y,z\n-x,-y,-z }", "line 1: a comma or semicolon is missing"},
        {"symmetry {\n/* x,y,z }", "line 2: a comment has no end"},
        {"{\"operators\": [1]}", "operator 1: it has no text"},
        {"{\n\"operators\" [1]}", "line 2, column 13: this is no JSON"},
        {"{\"operators\": [{\"xyz\": \"x,y,z\", \"time_reversal\": 2}]}",
         "operator 1: time_reversal is 1 or -1"},
        {"[1,\n 0.22E47487]", "line 2: a number is too large"},
        {"[]", "there are no operators"},
        {"{}", "no list of operators"},
    };
    for (const auto& test : cases) {
        SCOPED_TRACE(test.text.substr(0, 80));
        try {
            read_operators(test.text);
            ADD_FAILURE() << "was read";
        } catch (const unreadable_input& failure) {
            EXPECT_NE(std::string(failure.what()).find(test.message), std::string::npos)
                << failure.what();
        }
    }
}

}  // namespace
