#include "group/names.h"

#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include "support/pace.h"

namespace {

using namespace lomar;

std::vector<std::string> fields_of(const std::string& line) {
    std::vector<std::string> fields;
    std::istringstream in(line);
    for (std::string field; std::getline(in, field, '\t');) fields.push_back(field);
    return fields;
}

std::vector<std::vector<std::string>> table(const char* file) {
    std::ifstream in(std::string(TEST_DATA_DIR "/") + file);
    std::vector<std::vector<std::string>> rows;
    std::string line;
    std::getline(in, line);
    while (std::getline(in, line)) rows.push_back(fields_of(line));
    return rows;
}

std::string name_of(const std::vector<std::string>& row) {
    return row[1] + (row[2].empty() ? "" : ":" + row[2]);
}

// The operators of a symbol, or the message that refuses it.
std::string found_name(std::string_view symbol) {
    try {
        return resolve_symbol(symbol).group.name;
    } catch (const unknown_symbol& refused) {
        return std::string("refused: ") + refused.what();
    }
}

// Settings with the very same operators share names.
bool same_operators(const std::string& a, const std::string& b) {
    const space_group first = group_of(*find_setting(a));
    const space_group second = group_of(*find_setting(b));
    return std::set(first.operators.begin(), first.operators.end()) ==
           std::set(second.operators.begin(), second.operators.end());
}

TEST(Names, EveryTypedName) {
    const auto rows = table("settings.tsv");
    const auto names = table("names.tsv");
    ASSERT_EQ(names.size(), 5448u);
    for (const auto& line : names) {
        const std::string wanted = name_of(rows[std::stoul(line[2]) - 1]);
        const std::string found = found_name(line[0]);
        if (found == wanted) continue;
        ASSERT_NE(find_setting(found), nullptr) << line[0] << " " << found;
        EXPECT_TRUE(same_operators(found, wanted)) << line[0] << " " << found << " " << wanted;
    }
}

// Each setting by its own names: name(), full symbol, Schoenflies symbol, Hall symbol.
TEST(Names, EverySettingByItsOwnNames) {
    for (const setting& row : settings()) {
        EXPECT_EQ(found_name(row.name()), row.name());
        for (const std::string& other : other_settings(group_of(row))) {
            EXPECT_EQ(resolve_symbol(other).group.row->number, row.number) << other;
            EXPECT_NE(other, row.name());
        }
        const std::string choice = row.choice.empty() ? "" : ":" + std::string(row.choice);
        if (!row.full_symbol.empty()) {
            const named_group full = resolve_symbol(std::string(row.full_symbol) + choice);
            EXPECT_EQ(full.group.row->full_symbol, row.full_symbol);
        }
        EXPECT_EQ(resolve_symbol(row.schoenflies).group.row->number, row.number);
        const std::string hall = found_name("hall:" + std::string(row.hall));
        EXPECT_TRUE(same_operators(hall, row.name())) << row.hall << " " << hall;
    }
}

TEST(Names, AsPeopleWriteThem) {
    const struct {
        const char* name;
        std::vector<std::string> typed;
    } cases[] = {
        {"P 1 21/c 1",
         {"P121/c1", "P2(1)/c", "p 21/c", "P21/C", "P_2_1/c", "P 1 2_1/c 1", "'P 21/c'", "P 2 1/c",
          "P2\xe2\x82\x81/c", "$P2_{1}/c$", "P [21/c]", "C2h^5", "C2h5", "C_{2h}^5",
          "C2h\xe2\x81\xb5", "P21/c:b1", "P21/c:b", "14:1", "\tP21/c\n"}},
        {"P 1 1 21/a", {"14:c", "P21/c:c", "C2h^5:c"}},
        {"P 1 21/n 1", {"14b2", "014:b2"}},
        {"P -4 2 m", {"Vd^1", "vd1", "D2d^1"}},
        {"P -1", {"S2^1", "02"}},
        {"F d -3 m:2",
         {"Fd-3m:2", "Fd-3mZ", "FD-3M Z", "Fd3m:2", "227:2", "Oh^7:2",
          "Fd\xcc\x85"
          "3m:2"}},
        {"F d -3 m:1",
         {"Fd3m", "Fd3\xcc\x85m", "Fd3\xcc\x84m", "Fd\\bar{3}m", "Fd bar3 m", "Fd3barm", "Fd-3mS",
          "227", "F 41/d 3 2/m", "F d -3 2/m"}},
        {"P -1",
         {"P\xe2\x88\x92"
          "1",
          "P1bar", "Ci^1", "P\\overline{1}"}},
        {"P 63/m m c", {"P6_3/mmc", "P 63/mmc", "P 6 3/m m c", "P6(3)/mmc", "D6h^4", "d6h4"}},
        {"R -3:R", {"R-3:R", "R -3 R", "148r", "C3i^2:R"}},
        {"R -3:H", {"R-3", "R-3H", "R -3 :H", "148 H"}},
        {"R 3 2:H", {"H 3 2", "H32", "R 32", "R32:h"}},
        {"R -3 m:H", {"H -3 m", "H-3m", "H3bar m"}},
        {"C m c a", {"Cmca", "Cmce", "Cmcb", "C 2/m 2/c 21/e", "C 2/m c e"}},
        {"P n m a", {"PNMA", "p_n_m_a", "Pnma:abc", "P 21/n m a", "(Pnma)"}},
        {"P b n m", {"Pbnm", "Pnma:cab", "62:cab", "Pbnm:cab"}},
        {"P n n n:2", {"Pnnn:2", "48:2cab", "PnnnZ", "Pnnn:2abc"}},
        {"P 4/m b m", {"P4/mbm", "P 4/m 21/b m", "P 4/m 21/b 2/m"}},
        {"P 3 1 2", {"P312", "P 3 12", "P3 1 2"}},
        {"P 3 1 m", {"P 31m", "P 31 m"}},
        {"F 4 3 2", {"F 43 2", "O^3"}},
        {"P 42", {"P 4 2", "P42", "P4(2)"}},
        {"I 1 2 1", {"I 2", "I2"}},
        {"C 1 21 1", {"C21", "c 21"}},
        {"P 1 2 1", {"C2^1", "P2"}},
        {"P 4 2 2", {"hall:P 4 2", "HALL: p  4  2", "hall:P_4_2"}},
        {"I 1 1 2", {"hall:I 2"}},
        {"P 2 2 2", {"P 2 2"}},
        {"P 1 21/m 1", {"-P 2yb", "-p 2YB", " -P   2yb ", "-P_2yb"}},
    };
    for (const auto& one : cases) {
        for (const std::string& typed : one.typed) EXPECT_EQ(found_name(typed), one.name) << typed;
    }
}

TEST(Names, WhatTheyLeaveOpen) {
    using texts = std::vector<std::string>;
    const struct {
        const char* typed;
        texts assumed;
        texts alternatives;
    } cases[] = {
        {"Fd-3m", {"origin choice 1"}, {"F d -3 m:2 (origin choice 2)"}},
        {"Fd-3mS", {}, {}},
        {"227:2", {}, {}},
        {"141", {"origin choice 1"}, {"I 41/a m d:2 (origin choice 2)"}},
        {"R3m", {"hexagonal axes"}, {"R 3 m:R (rhombohedral axes)"}},
        {"R3mH", {}, {}},
        {"H 3", {"H read as R on hexagonal axes"}, {"R 3:R (rhombohedral axes)"}},
        {"Pm", {"unique axis b"}, {"P 1 1 m (unique axis c)", "P m 1 1 (unique axis a)"}},
        {"P1m1", {}, {}},
        {"14:c", {"cell choice 1"}, {"P 1 1 21/n (cell choice 2)", "P 1 1 21/b (cell choice 3)"}},
        {"14:c3", {}, {}},
        {"C2/c",
         {"unique axis b", "cell choice 1"},
         {"A 1 1 2/a (unique axis c)", "B 2/b 1 1 (unique axis a)", "A 1 2/n 1 (cell choice 2)",
          "I 1 2/a 1 (cell choice 3)"}},
        {"B2/b",
         {"unique axis c", "cell choice 1"},
         {"C 1 2/c 1 (unique axis b)", "B 2/b 1 1 (unique axis a)", "A 1 1 2/n (cell choice 2)",
          "I 1 1 2/a (cell choice 3)"}},
        {"Cmme", {"e read as in C m m a"}, {"C m m b (the other letter for e)"}},
        {"Ccce:2", {"e read as in C c c a"}, {"C c c b:2 (the other letter for e)"}},
        {"Aem2", {"e read as in A b m 2"}, {}},
        {"Pnma", {}, {}},
        {"P 4 2", {}, {"hall:P 4 2 (the Hall symbol, P 4 2 2)"}},
        {"P 2 2", {"read as a Hall symbol"}, {}},
    };
    for (const auto& one : cases) {
        const named_group found = resolve_symbol(one.typed);
        EXPECT_EQ(found.assumed, one.assumed) << one.typed;
        EXPECT_EQ(found.alternatives, one.alternatives) << one.typed;
    }
}

// What an alternative offers before its bracket is a symbol of the same group.
TEST(Names, EveryAlternativeIsTakenBack) {
    for (const setting& row : settings()) {
        const named_group found = resolve_symbol(std::string(row.symbol));
        for (const std::string& text : found.alternatives) {
            const named_group other = resolve_symbol(text.substr(0, text.find(" (")));
            EXPECT_NE(other.group.name, found.group.name) << text;
        }
    }
}

// The tool reads the first of each pair as the second.
TEST(Names, NoOtherGroupInSilence) {
    const char* const refused[] = {"P6:1",   "P3:1",   "P6:3",    "I4:1",     "P2:1",    "R3H2",
                                   "P21/cH", "P4h2",   "P6_22",   "P6(2)2",   "P 62 2",  "P 31 2",
                                   "P 32 1", "P 42 2", "P 43 2",  "P:m",      "R3:m",    "Pnma:1",
                                   "R-3:2",  "Pnnn:R", "Fd-3m:3", "Fd-3mZ:1", "P21/n:c", "14:4",
                                   "P 21n",  "P 21 2", "P21/c:"};
    for (const char* const typed : refused) {
        EXPECT_TRUE(found_name(typed).starts_with("refused: '"))
            << typed << " " << found_name(typed);
    }
}

TEST(Names, Refusals) {
    const struct {
        std::string typed;
        const char* message;
    } cases[] = {
        {"P-43n1", "'P-43n1' names no space group; near: P -4 3 n"},
        {"P6:1", "'P6:1' names no space group; near: P 6, P 61"},
        {"Fd-3m:3", "'Fd-3m:3' names no space group; near: F d -3 m, F d -3 m:1, F d -3 m:2"},
        {"Fd-3m:", "'Fd-3m:' names no space group: nothing follows the colon"},
        {"P2(1)/c2", "'P2(1)/c2' names no space group; near: P 1 21/c 1, P 21/c 1 1, P 1 2/c 1"},
        {"R-33m (hex)", "'R-33m (hex)' names no space group; near: R -3 m"},
        {"-R3", "'-R3' names no space group; near: R -3, R 3, R -3 c, R -3 m"},
        {"P 42 2", "'P 42 2' names no space group; near: P 4 2 2, P 42 2 2, P 42 21 2, P 42 3 2"},
        {"622", "'622' names no space group: their numbers run from 1 to 230; near: P 6 2 2"},
        {"231", "'231' names no space group: their numbers run from 1 to 230"},
        {"14.79", "'14.79' names no space group but a magnetic one, 14.79 P2_1'/c'"},
        {"", "the symbol is empty"},
        {" _ ", "the symbol is empty"},
        {"\x1b\x7f\x80", "'\\x1b\\x7f\\x80' names no space group"},
        {"-P 2q",
         "'-P 2q' is no Hall symbol: no axis, screw or translation is written so (at "
         "character 5)"},
        {std::string(300, 'P'),
         "'PPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPPP...' "
         "names no space group: it has 300 characters"},
    };
    for (const auto& one : cases)
        EXPECT_EQ(found_name(one.typed), "refused: " + std::string(one.message));
}

// One line of printable text, whatever the bytes are.
TEST(Names, AnyBytes) {
    std::string typed = "Pnma";
    for (int first = 0; first < 256; first += pace) {
        for (std::size_t i = 0; i < 4; ++i) {
            typed = "Pnma";
            typed[i] = static_cast<char>(first);
            const std::string answer = found_name(typed);
            for (const char c : answer) EXPECT_GE(static_cast<unsigned char>(c), 0x20) << first;
            EXPECT_EQ(answer.find('\x7f'), std::string::npos);
        }
    }
}

}  // namespace
