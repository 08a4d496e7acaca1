#include <gtest/gtest.h>
#include <string>

#include "catalogue/sg_catalogue_entry_3.h"
#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/scratch_dir.h"
#include "textout/sstring_out.h"

namespace {

using namespace std::string_literals;

sg_catalogue_entry_3 find(const char* symbol) {
    sg_file_names_3 names;
    names.set_symbol(symbol);
    return find_catalogue_entry(names);
}

std::string record_of(sg_catalogue_entry_3 entry) {
    sstring_out out;
    entry.write_record(out);
    return out.text();
}

struct Catalogue : testing::Test {
    scratch_dir dir;
};

constexpr char catalogue[] =
    "' a comment {\n"
    "3 Mtail/* inner /* } */ */{ paaa - pbbb = pccc =pd-d pddd pEEE pe pf =pf2 pg pa-\n- pab}\r\n"
    "16 otail\n{\n- i0-\t-\tiii - a1 =c2 b3 =x9 }\n"
    "74 t74 { p0 p1 p2 p3 p4 p5 p6 }"
    "75 ttail { =pearly q0 - - qr r5r = r6 rtr=r7 r-3crs r-3crss } "
    "9 twice { paaa - - - - - pg } 2 n2 { 15:2 - 15 = 15:r - =fin }";

// - and = as items and within names, the return to the first slot after the sixth, a further name
// without a main one, which keeps the main name that came last, and names on rhombohedral axes.
TEST_F(Catalogue, Slots) {
    write_file("lomar5.txt", catalogue);
    // The symbol, and of its entry the number, the main name, the axes, the computer symbol and the
    // unique axis or the r.
    constexpr char rows[] =
        "paaa 3 paaa abc pMtail y;pccc 3 pbbb cab pMtail z;pddd 3 pddd acmb pMtail z;"
        "pe 3 pe mbac pMtail x;pf 3 pf abc pMtail y;pg 3 pg cmba pMtail y;"
        "pa- 3 pa- cab pMtail z;pab 3 pab bca pMtail x;i0- 16 i0- bamc iotail;"
        "iii 16 iii mcba iotail;c2 16 a1 amcb aotail;b3 16 b3 abc botail;p2 74 p2 cab pt74;"
        "p4 74 p4 bca pt74;p6 74 p6 abc pt74;pearly 75 p6 abc pttail;r5r 75 r5r abc pttail r;"
        "r6 75 r5r abc rttail;rtr=r7 75 rtr=r7 abc rttail;r-3crs 75 r-3crs abc pttail r;"
        "r-3crss 75 r-3crss abc rttail;15:2 2 15:2 abc 1n2;15:R 2 15 abc pn2 r;"
        "fin 2 15 abc 1n2";
    for (const std::string& row : split(rows, ';')) {
        const std::string symbol = row.substr(0, row.find(' '));
        const sg_catalogue_entry_3 e = find(symbol.c_str());
        sstring_out text;
        text << symbol.c_str() << ' ' << e.number << ' ' << e.symbol << ' ' << e.axes << ' '
             << e.computer_symbol;
        if (!e.unique_axis.is_empty()) text << ' ' << e.unique_axis;
        if (!e.rhombohedral_hexagonal.is_empty()) text << ' ' << e.rhombohedral_hexagonal;
        EXPECT_EQ(text.text(), row);
        EXPECT_TRUE(e.point_group.is_empty());
    }
    // Only the symbol is made lower case: a name in the file with capitals is never found.
    for (const char* symbol : {"pEEE", "paa", "paaaa", "p-", "b3 = x9", "1"}) {
        EXPECT_FAILURE(find(symbol), " Space group not found in lomar5.txt") << symbol;
    }
}

TEST_F(Catalogue, Failures) {
    constexpr char not_there[] = " Space group not found in lomar5.txt";
    const struct {
        const char* message;
        std::vector<const char*> texts;
    } rows[] = {{not_there, {"", "' 1 t { p9 }", "/* 1 t { p9 } */", "1 t { } 2 t { p8 p99 }"}},
                {" Missing: {", {"1 t { } 2 t{ p8 }", "1", "1 t { p8 } x"}},
                {" Unclosed block }", {"1 t { p9 { }", "1 t { p8 /* } */", "1 t { 'p9 }"}},
                {" Unclosed comment block", {"1 t { p9 } /*"}}};
    for (const auto& row : rows) {
        for (const char* text : row.texts) {
            write_file("lomar5.txt", text);
            EXPECT_FAILURE(find("p9"), row.message) << text;
        }
    }
    write_file("lomar5.txt", "99999999999999\xff\0t\0{\0p2\0=\0p3\0}\0-9 u{p4 }"s);
    EXPECT_EQ(find("p3").number, 2147483647);
    EXPECT_FAILURE(find("p4"), " Missing: {");
}

TEST(SpaceGroupRecord, WritesAndReads) {
    sg_catalogue_entry_3 entry;
    entry.number = 14;
    entry.symbol = "P21/C";
    entry.point_group = "2/M";
    entry.computer_symbol = "PMTAIL";
    entry.unique_axis = "Y";
    entry.rhombohedral_hexagonal = "R";
    entry.axes = "Abc";
    const std::string text =
        "space_group\n{\n\tnumber 14\n\tsymbol p21/c\n\tpoint_group 2/m\n"
        "\tcomputer_symbol pmtail\n\tunique_axis y\n\trhombohedral_hexagonal r\n\taxes Abc\n}";
    EXPECT_EQ(record_of(entry), text);
    sg_catalogue_entry_3 back;
    sstring_in in(text.c_str());
    back.read_record(in);
    EXPECT_EQ(record_of(back), text);
    EXPECT_TRUE(in.at_end());
    in.set_text("space_groups { number 1 } space_group x{ note number -7x symbol a b axes } }");
    back.read_record(in);
    EXPECT_EQ(back.number, -7);
    EXPECT_EQ(back.symbol, "a");
    EXPECT_EQ(back.axes, "}");
    in.set_text("space_group { symbol");
    back.read_record(in);
    EXPECT_TRUE(back.symbol.is_empty());
    in.set_text("{ space_group{ }");
    EXPECT_FAILURE(back.read_record(in), " Cannot find: space_group");
    in.set_text("space_group number");
    EXPECT_FAILURE(back.read_record(in), " Cannot find { in stream sstring_in");
}

}  // namespace
