#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "support/expect_failure.h"
#include "support/operators.h"
#include "symmetry/centring_table.h"
#include "symmetry/sg_decoder_3.h"

namespace {

sg_decoder_3 decode(const std::string& symbol, const char* axes = "abc") {
    std::filesystem::current_path(DATA_DIR);
    sg_decoder_3 decoder;
    decoder.set_computer_symbol(symbol.c_str());
    decoder.decode(axes);
    return decoder;
}

TEST(SgDecoder, WorkedExamples) {
    const struct {
        const char *symbol, *axes, *axis_change, *ops;  // the operators in this order
    } rows[] = {
        {"pmci1a000p2b066", "abc", "x,y,z", "-x,-y,-z;-x,y+1/2,-z+1/2;x,-y+1/2,z+1/2;x,y,z"},
        {"pmci1a000p2b066", "cab", "z,x,y", "-x,-y,-z;-x+1/2,-y,z+1/2;x,y,z;x+1/2,y,-z+1/2"},
        {"PMCI1A000P2B066", "mcba", "-z,y,x", "-x,-y,-z;-x+1/2,y+1/2,-z;x,y,z;x+1/2,-y+1/2,z"},
        {"ro?p2b066", "bamc", "y,x,-z", "x,y,z;x+1/2,-y,-z+1/2"},
        {"bcxx1ax6+", "abc", "x,y,z", "x,y,z;x,y+1/2,z"},
        {"pmxx2b?65", "abc", "x,y,z", "-x,y+1/2,-z+5/6;x,y,z"},
        {"atxp4c003", "abc", "x,y,z", "-x,-y,z+1/2;-y,x,z+1/4;y,-x,z+3/4;x,y,z"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.symbol) + ' ' + row.axes);
        const sg_decoder_3 decoder = decode(row.symbol, row.axes);
        EXPECT_EQ(arrays_of(decoder.ops), arrays_of(xyz_list_of(row.ops)));
        EXPECT_EQ(array_of(decoder.axis_change), op_of(row.axis_change));
    }
}

TEST(CentringTable, RepeatedOperatorsAreCopiedOnce) {
    xyz_list_3 ops = xyz_list_of("x,y,z;x,y,z;-x,-y,z;-x+1/2,-y+1/2,z+1/2");
    add_centring_copies(ops, 'I');
    EXPECT_EQ(arrays_of(ops), arrays_of(xyz_list_of("x,y,z;x,y,z;-x,-y,z;-x+1/2,-y+1/2,z+1/2;"
                                                    "x+1/2,y+1/2,z+1/2")));
}

TEST(SgDecoder, FailuresInOrder) {
    constexpr char axes[] = " cab error";
    constexpr char bad_key[] = " Invalid rotation matrix type";
    constexpr char length[] = " Length of computer adapted space group symbol invalid";
    for (const char* bad : {"abd", "", "mmabc", "Abc", "aab", "abcc"}) {
        for (const char* symbol : {"", "pmap2b000"}) EXPECT_FAILURE(decode(symbol, bad), axes);
    }
    const struct {
        std::string symbol;
        const char* message;
    } rows[] = {{"", length},
                {"pma", length},
                {"xxap2b00", length},
                {"pmap2b000p2b00", length},
                {"xxap9z000", " Bad lattice_type"},
                {"pxap9z000", " Bad crystal_system"},
                {"pmap2b000p 2000", bad_key},
                {"pma" + std::string(9996, '\xff'), bad_key},
                {"paap1a100p1a010p1a001p4c100p6c111p3q321i1a111p2f010p6c100p4c010",
                 " Rotation matrix failed consistency test"}};
    for (const auto& row : rows) EXPECT_FAILURE(decode(row.symbol), row.message) << row.symbol;
    std::string longest = "pma";
    for (int i = 0; i < 1700; ++i) longest += "i1a000";
    EXPECT_EQ(arrays_of(decode(longest).ops), arrays_of(xyz_list_of("-x,-y,-z;x,y,z")));
}

}  // namespace
