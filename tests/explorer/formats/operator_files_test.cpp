#include "formats/operator_files.h"

#include <gtest/gtest.h>
#include <set>

#include "driver/sg_driver_3.h"
#include "formats/csv.h"
#include "formats/readers.h"
#include "support/scratch_dir.h"

namespace {

using namespace lomar;

const space_group group_named(std::string_view name) { return group_of(*find_setting(name)); }

std::set<symop> read_back(const std::string& text, const char* kind) {
    const operator_input input = read_operators(text);
    EXPECT_EQ(input.from, kind);
    std::set<symop> result;
    for (const given_operator& op : input.blocks.at(0).operators)
        result.insert({to_integers(op.rot), modulo_one(op.trans), op.time});
    EXPECT_EQ(result.size(), input.blocks[0].operators.size());
    return result;
}

TEST(operator_formats, are_read_back_for_every_setting) {
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        const std::set<symop> expected(group.operators.begin(), group.operators.end());
        EXPECT_EQ(read_back(xyz_lines(group), "xyz"), expected);
        EXPECT_EQ(read_back(shelx_cards(group), "shelx"), expected);
        EXPECT_EQ(read_back(sg_file(group), "sg"), expected);
        EXPECT_EQ(read_back(cif_block(group), "cif"), expected);
        const operator_block block = read_operators(cif_block(group)).blocks.at(0);
        EXPECT_EQ(block.number, row.number);
        EXPECT_EQ(block.symbol, row.name());
        EXPECT_EQ(block.hall, row.hall);
    }
}

TEST(sg_format, has_the_bytes_of_lomar6_for_every_setting) {
    const scratch_dir scratch;
    for (const char* name : {"lomar5.txt", "sgrots3.txt"})
        std::filesystem::copy_file(std::filesystem::path(DATA_DIR) / name, name);
    for (const setting& row : settings()) {
        const std::string symbol = row.name();
        const char* const arguments[] = {"lomar6", symbol.c_str()};
        sg_driver_3().run(2, arguments);
        std::string expected;
        for (const auto& entry : std::filesystem::directory_iterator(".")) {
            if (entry.path().extension() != ".sg") continue;
            expected = read_file(entry.path());
            std::filesystem::remove(entry.path());
        }
        ASSERT_EQ(sg_file(group_of(row)), expected) << symbol;
    }
}

TEST(sg_format, is_refused_for_axes_without_a_name) {
    space_group group = group_named("P 1");
    group.tabulated = false;
    EXPECT_THROW(sg_file(group), std::runtime_error);
}

struct shelx_case {
    const char* name;
    const char* first;  // the first card
    int cards;
};

// LATT of SHELX-97: 1 P, 2 I, 3 R obverse, 4 F, 5 A, 6 B, 7 C; negative without a centre at 0.
TEST(shelx_format, lattice_and_number_of_cards) {
    const shelx_case cases[] = {
        {"P 1", "LATT -1", 1},         {"P -1", "LATT 1", 1},
        {"P n n n:1", "LATT -1", 8},   {"P n n n:2", "LATT 1", 4},
        {"C 1 2/c 1", "LATT 7", 2},    {"A 1 2/a 1", "LATT 5", 2},
        {"B 1 1 b", "LATT -6", 2},     {"I 41/a m d:1", "LATT -2", 16},
        {"I 41/a m d:2", "LATT 2", 8}, {"R 3:H", "LATT -3", 3},
        {"R -3 m:H", "LATT 3", 6},     {"R -3 m:R", "LATT 1", 6},
        {"F d -3 m:1", "LATT -4", 48}, {"F m -3 m", "LATT 4", 24},
    };
    for (const shelx_case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string cards = shelx_cards(group_named(c.name));
        EXPECT_EQ(cards.substr(0, cards.find('\n')), c.first);
        EXPECT_EQ(std::count(cards.begin(), cards.end(), '\n'), c.cards);
    }
    EXPECT_EQ(shelx_cards(group_named("P 1 21/c 1")), "LATT 1\nSYMM -X,Y+1/2,-Z+1/2\n");
}

TEST(shelx_format, centring_without_a_number_is_written_out) {
    space_group group = group_named("P -1");
    const fraction_vector vector = {fraction(1, 5), fraction(2, 5), 0};
    group.centring.push_back(vector);
    for (int i = 0; i < 2; ++i) {
        symop op = group.operators[static_cast<std::size_t>(i)];
        op.trans = vector;
        group.operators.push_back(op);
    }
    EXPECT_EQ(shelx_cards(group), "LATT 1\nSYMM X+1/5,Y+2/5,Z\n");
}

TEST(cif_format, values) {
    const std::pair<const char*, const char*> cases[] = {
        {"monoclinic", "monoclinic"},
        {"", "''"},
        {"?", "'?'"},
        {"_x", "'_x'"},
        {"Data_x", "'Data_x'"},
        {"-P 2ybc", "'-P 2ybc'"},
        {"P 32 2\"", "'P 32 2\"'"},
        {"P 2' 2", "\"P 2' 2\""},
        {"P 2' 2\"", "\n;P 2' 2\"\n;"},
    };
    for (const auto& [text, expected] : cases) EXPECT_EQ(cif_value(text), expected);
}

TEST(csv_format, fields) {
    EXPECT_EQ(csv_row({"a", "", "x,y", "say \"no\"", "two\nlines"}),
              "a,,\"x,y\",\"say \"\"no\"\"\",\"two\nlines\"\n");
}

}  // namespace
