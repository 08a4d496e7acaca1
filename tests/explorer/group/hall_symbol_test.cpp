#include "group/hall_symbol.h"

#include <gtest/gtest.h>
#include <set>

#include "group/names.h"

namespace {

using namespace lomar;

std::set<std::string> as_set(const std::vector<symop>& ops) {
    std::set<std::string> result;
    for (const symop& op : ops) result.insert(xyz_text(op));
    return result;
}

TEST(HallSymbol, EverySymbolOfTheTable) {
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.hall);
        const hall_group found = decode_hall(row.hall);
        const space_group wanted = group_of(row);
        EXPECT_EQ(found.symbol, row.hall);
        EXPECT_EQ(found.operators.size(), wanted.operators.size());
        EXPECT_EQ(as_set(found.operators), as_set(wanted.operators));
        EXPECT_EQ(found.operators[0], symop());
    }
}

// What the rules say of symbols that the table lacks: a setting that has the same operators.
TEST(HallSymbol, OtherWaysToWriteASetting) {
    const struct {
        const char* hall;
        const char* name;
    } cases[] = {
        {"P 21 2", "P 2 2 21"},
        {"P 2z 2x", "P 2 2 2"},
        {"P 41 2c", "P 41 2 2"},
        {"P 31 2 (0 0 4)", "P 31 1 2"},
        {"P 31 2 (0,0,4)", "P 31 1 2"},
        {"P 31 2 (x,y,z+1/3)", "P 31 1 2"},
        {"P 63 -2c", "P 63 m c"},
        {"C 2y (x,y,-x+z)", "I 1 2 1"},
        {"-P 2yc (z, x, y)", "P 1 1 2/a"},
        {"P 4x (y,z,x)", "P 4"},
        {"P 3x (y,z,x)", "P 3"},
        {"P 6y (z,x,y)", "P 6"},
        {"P 2y 2x", "P 2 2 2"},
        {"P 3 2'", "P 3 1 2"},
        {"P 3 2\"", "P 3 2 1"},
        {"P 4 2'", "P 4 2 2"},
        {"P 1 -1", "P -1"},
        {"R 3 (x+z,-x+y+z,-y+z)", "R 3:R"},
        {"P 3* (2/3*x-1/3*y-1/3*z,1/3*x+y/3-2z/3,x/3+y/3+z/3)", "R 3:H"},
        {"S 3y 2\" (z,x,y)", "R 3 2:H"},
        {"T 3x 2\" (y,z,x)", "R 3 2:H"},
        {"H 3 (x+y,-x+2*y,z)", "P 3"},
        {"-P 4 2 3", "P m -3 m"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.hall);
        const space_group wanted = group_of(*find_setting(one.name));
        EXPECT_EQ(as_set(decode_hall(one.hall).operators), as_set(wanted.operators));
    }
}

TEST(HallSymbol, AxesThatTheTableLacks) {
    const struct {
        const char* hall;
        const char* standard;
        char lattice;
        std::size_t operators;
        const char* origin;
    } cases[] = {
        {"P 2yb (x,y,z+1/4)", "P 1 21 1", 'P', 2, "0,0,1/4"},
        {"-P 2ybc (x+1/5,y,z)", "P 1 21/c 1", 'P', 4, "1/5,0,0"},
        {"-P 2ybc (0 0 1)", "P 1 21/c 1", 'P', 4, "0,0,1/12"},
        {"-P 4 (x-y,x+y,2*z) ", "", 0, 0, ""},
        {"-P 4 (1/2*x-1/2*y,1/2*x+1/2*y,z)", "P 4/m", 'C', 16, "0,0,0"},
        {"P 2 (x/2,y,z)", "P 1 2 1", '\0', 4, "0,0,0"},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.hall);
        if (one.operators == 0) {
            EXPECT_THROW(decode_hall(one.hall), unknown_symbol);
            continue;
        }
        const space_group found = resolve_symbol(one.hall).group;
        EXPECT_FALSE(found.tabulated);
        EXPECT_EQ(found.row, find_setting(one.standard));
        EXPECT_EQ(found.lattice, one.lattice);
        EXPECT_EQ(found.operators.size(), one.operators);
        EXPECT_EQ(text(found.to_standard.origin), one.origin);
        const std::set<std::string> standard = as_set(group_of(*found.row).operators);
        for (const symop& op : found.operators) {
            const symop changed = modulo_lattice(transformed(op, found.to_standard));
            EXPECT_TRUE(standard.contains(xyz_text(changed))) << xyz_text(op);
        }
        const space_group again = resolve_symbol(found.name).group;
        EXPECT_EQ(as_set(again.operators), as_set(found.operators));
        EXPECT_EQ(again.name, found.name);
    }
}

TEST(HallSymbol, IllegalOnes) {
    const struct {
        const char* hall;
        const char* why;
    } cases[] = {
        {"Q 2", "it must begin with a lattice letter, one of PABCIRSTFH (at character 1)"},
        {"-", "it must begin with a lattice letter, one of PABCIRSTFH (at character 2)"},
        {"P2", "a blank must follow the lattice letter (at character 2)"},
        {"P", "a rotation must follow the lattice letter (at character 2)"},
        {"-P", "a rotation must follow the lattice letter (at character 3)"},
        {"P 5", "a rotation is 1, 2, 3, 4 or 6 (at character 3)"},
        {"P 2 -", "a rotation is 1, 2, 3, 4 or 6 (at character 6)"},
        {"P 2e", "no axis, screw or translation is written so (at character 4)"},
        {"P 2xy", "a rotation has one axis (at character 5)"},
        {"P 2aa", "a translation twice (at character 5)"},
        {"P 22", "no screw axis 22 (at character 4)"},
        {"P 2 4", "no axis is implied here; write it (at character 5)"},
        {"P 3 2 2", "no axis is implied here; write it (at character 7)"},
        {"P 1x", "1 has no axis (at character 3)"},
        {"P 4'", "this axis is for 2 alone (at character 3)"},
        {"P 2*", "this axis is for 3 alone (at character 3)"},
        {"P 3 21'", "a screw axis is along an edge of the cell (at character 5)"},
        {"P 2 2 3 -1 -1", "there are at most four rotations (at character 12)"},
        {"P 2d", "its operators make the translation 0,0,1/2, which its lattice lacks"},
        {"P 4 2a", "its operators make the translation 1/2,1/2,0, which its lattice lacks"},
        {"A 3*", "its rotations don't keep its lattice"},
        {"P 4 6x", "its rotations make no point group"},
        {"P 2 (0 0 1", "a closing bracket is missing (at character 11)"},
        {"P 2 (0 0)", "'0 0' is not three numbers (at character 6)"},
        {"P 2 (x,y)", "three coordinates are wanted (at character 6)"},
        {"P 2 (x,y,z,x)", "three coordinates are wanted (at character 6)"},
        {"P 2 (x,y,q+z)", "(at character 6)"},
        {"P 2 (x,x,z)", "the new axes lie in one plane (at character 6)"},
        {"P 2 (2x,y,z)", "its new axes are no vectors of its lattice"},
        {"P 4 (x/2,y,z)", "its new axes don't fit its rotations"},
        {"P 2 (x/1000,y,z)", "its new cell is too large"},
        {"P 2 (x+y/999999999999999999,y+z/999999999999999989,z)", "its numbers are too large"},
    };
    for (const auto& one : cases) {
        try {
            decode_hall(one.hall);
            ADD_FAILURE() << one.hall;
        } catch (const unknown_symbol& refused) {
            const std::string start = "'" + std::string(one.hall) + "' is no Hall symbol: ";
            EXPECT_TRUE(std::string(refused.what()).starts_with(start)) << refused.what();
            EXPECT_TRUE(std::string(refused.what()).ends_with(one.why)) << refused.what();
        }
    }
}

}  // namespace
