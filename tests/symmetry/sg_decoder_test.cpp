#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "support/expect_failure.h"
#include "support/operators.h"
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
        const char *symbol, *axes, *axis_change, *ops;  // the operators as they stand
    } rows[] = {
        {"pmci1a000p2b066", "abc", "x,y,z", "-x,-y,-z;-x,y+1/2,-z+1/2;x,-y+1/2,z+1/2;x,y,z"},
        {"pmci1a000p2b066", "cab", "z,x,y", "-x,-y,-z;-x+1/2,-y,z+1/2;x,y,z;x+1/2,y,-z+1/2"},
        {"PMCI1A000P2B066", "mcba", "-z,y,x", "-x,-y,-z;-x+1/2,y+1/2,-z;x,y,z;x+1/2,-y+1/2,z"},
        {"ro?p2b066", "bamc", "y,x,-z", "x,y,z;x+1/2,-y,-z+1/2"},
        {"fhxi1a000", "abc", "x,y,z", "-x,-y,-z;x,y,z"},
        {"pmci1a000i1a000", "abc", "x,y,z", "-x,-y,-z;x,y,z"},
        {"bcxx1ax6+", "abc", "x,y,z", "x,y,z;x,y+1/2,z"},
        {"atxp4c003", "abc", "x,y,z", "-x,-y,z+1/2;-y,x,z+1/4;y,-x,z+3/4;x,y,z"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.symbol) + ' ' + row.axes);
        const sg_decoder_3 decoder = decode(row.symbol, row.axes);
        EXPECT_EQ(arrays_of(decoder.ops), arrays_of(xyz_list_of(row.ops)));
        EXPECT_EQ(array_of(decoder.axis_change), array_of(xyz_op_of(row.axis_change)));
    }
    const sg_decoder_3 decoder = decode("pmci1a000p2b066");
    ASSERT_EQ(decoder.generator_lists.n, 2);
    EXPECT_EQ(arrays_of(decoder.generator_lists[0]), arrays_of(xyz_list_of("-x,-y,-z;x,y,z")));
    EXPECT_EQ(arrays_of(decoder.generator_lists[1]),
              arrays_of(xyz_list_of("-x,y+1/2,-z+1/2;x,y,z")));
}

TEST(SgDecoder, TranslationDigits) {
    constexpr int values[] = {0, 30, 60, 90, 120, 300, 180, 210, 240, 270};
    for (int digit = 0; digit < 10; ++digit) {
        const char text[] = {static_cast<char>('0' + digit), '5', "a \xff"[digit % 3], 0};
        triple_3 v;
        read_translation_digits(v, text);
        EXPECT_EQ(v, (triple_3{{values[digit], 300, 0}}));
    }
}

TEST(SgDecoder, FailuresInOrder) {
    constexpr char axes[] = " cab error";
    constexpr char bad_key[] = " Invalid rotation matrix type";
    constexpr char length[] = " Length of computer adapted space group symbol invalid";
    const struct {
        std::string symbol;
        const char *axes, *message;
    } rows[] = {{"", "abd", axes},
                {"pmap2b000", "", axes},
                {"pmap2b000", "ab", axes},
                {"pmap2b000", "mmabc", axes},
                {"pmap2b000", "Abc", axes},
                {"pmap2b000", "a bc", axes},
                {"pmap2b000", "aab", axes},
                {"pmap2b000", "abcc", axes},
                {"", "abc", length},
                {"xxap2b00", "abc", length},
                {"pmap2b0001", "abc", length},
                {"pmap2b000p2b00", "abc", length},
                {"xxap9z000", "abc", " Bad lattice_type"},
                {"hmap2b000", "abc", " Bad lattice_type"},
                {"pxap9z000", "abc", " Bad crystal_system"},
                {"pmap2b000p 2000", "abc", bad_key},
                {"pma" + std::string(9996, '\xff'), "abc", bad_key},
                {"paap1a100p1a010p1a001p4c100p6c111p3q321i1a111p2f010p6c100p4c010", "abc",
                 " Rotation matrix failed consistency test"}};
    for (const auto& row : rows) {
        EXPECT_FAILURE(decode(row.symbol, row.axes), row.message) << row.symbol << ' ' << row.axes;
    }
    std::string longest = "pma";
    for (int i = 0; i < 1700; ++i) longest += "i1a000";
    EXPECT_EQ(arrays_of(decode(longest).ops), arrays_of(xyz_list_of("-x,-y,-z;x,y,z")));
}

}  // namespace
