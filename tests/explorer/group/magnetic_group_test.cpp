#include "group/magnetic_group.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "group/basis_change.h"
#include "group/space_group.h"

namespace {

using namespace lomar;

std::set<symop> without_time(const std::vector<symop>& ops) {
    std::set<symop> result;
    for (symop op : ops) {
        op.time = 1;
        result.insert(op);
    }
    return result;
}

std::set<symop> unprimed(const std::vector<symop>& ops) {
    std::set<symop> result;
    std::ranges::copy_if(ops, std::inserter(result, result.end()),
                         [](const symop& op) { return op.time == 1; });
    return result;
}

std::set<symop> standard_operators(int number) {
    return without_time(group_of(standard_setting(number)).operators);
}

// `(0,0,1/4;a,b,2c)`: the origin and the axes of the BNS cell in the OG cell.
basis_change change_of(std::string_view text) {
    const std::size_t middle = text.find(';');
    return {parse_basis(text.substr(middle + 1, text.size() - middle - 2)),
            parse_point(text.substr(1, middle - 1))};
}

// Whether the operators are those of a space group in another cell, all of them.
void expect_changed(const std::set<symop>& ops, const std::set<symop>& from,
                    const basis_change& change) {
    const basis_change back = inverse(change);
    for (const symop& op : ops) {
        EXPECT_TRUE(from.contains(modulo_lattice(transformed(op, back)))) << xyz_text(op);
    }
    const fraction volume = determinant(change.matrix);
    EXPECT_EQ(fraction(static_cast<int>(ops.size())),
              fraction(static_cast<int>(from.size())) * (volume < 0 ? -volume : volume));
}

TEST(MagneticGroup, EveryNameFindsItsGroup) {
    ASSERT_EQ(magnetic_groups().size(), 1651u);
    int shared = 0;
    std::string notation;
    for (const magnetic_facts& row : magnetic_groups()) {
        for (const std::string_view name :
             {row.bns_number, row.bns_symbol, row.og_number, row.uni_symbol}) {
            EXPECT_EQ(&find_magnetic(name), &row) << name;
        }
        const magnetic_facts& by_og = find_magnetic(row.og_symbol, &notation);
        EXPECT_EQ(notation, by_og.bns_symbol == row.og_symbol ? "BNS symbol" : "OG symbol");
        if (&by_og != &row) ++shared;
    }
    EXPECT_EQ(shared, 28);
}

// What the type says of the operators, and what the facts say of family, parent and OG cell.
TEST(MagneticGroup, EveryGroupIsOfItsType) {
    for (const magnetic_facts& row : magnetic_groups()) {
        SCOPED_TRACE(row.bns_symbol);
        const magnetic_group group = group_of(row);
        EXPECT_EQ(group.operators[0], symop());
        const std::set<symop> all(group.operators.begin(), group.operators.end());
        EXPECT_EQ(all.size(), group.operators.size());
        const std::set<symop> plain = unprimed(group.operators);
        const std::set<symop> any = without_time(group.operators);
        EXPECT_EQ(plain.size(), row.type == 1 ? all.size() : all.size() / 2);
        EXPECT_EQ(any.size(), row.type == 2 ? all.size() / 2 : all.size());
        if (row.type == 4) {
            EXPECT_EQ(plain, standard_operators(row.parent_number));
        } else {
            EXPECT_EQ(any, standard_operators(row.family_number));
            EXPECT_EQ(row.parent_number, row.family_number);
        }
        expect_changed(any, standard_operators(row.family_number), change_of(row.og_to_bns));
    }
}

// Only type 4 has more in its UNI symbol than the BNS symbol.
TEST(MagneticGroup, UniSymbols) {
    for (const magnetic_facts& row : magnetic_groups()) {
        const std::string bns(row.bns_symbol);
        const std::string uni(row.uni_symbol);
        if (row.type < 4) {
            const std::string plain = bns.substr(0, bns.size() - (row.type == 2 ? 2 : 0));
            EXPECT_EQ(uni, plain + (row.type == 1 ? ".1" : row.type == 2 ? ".1'" : ""));
            continue;
        }
        const auto colourless = std::ranges::find_if(magnetic_groups(), [&](const auto& other) {
            return other.type == 1 && other.parent_number == row.parent_number;
        });
        EXPECT_TRUE(uni.starts_with(std::string(colourless->bns_symbol) + ".1'_")) << uni;
        EXPECT_TRUE(uni.ends_with(']')) << uni;
    }
}

TEST(MagneticGroup, NamesAsTyped) {
    const struct {
        const char* typed;
        const char* number;
        const char* notation;
    } cases[] = {
        {"P 2_1' / c'", "14.79", "BNS symbol"},
        {"P2_1^/c^", "14.79", "BNS symbol"},
        {"P2_1\xe2\x80\xb2/c\xe2\x80\xb2", "14.79", "BNS symbol"},
        {"P_a2_1/c", "14.80", "BNS symbol"},
        {"P_A2_1/c", "14.83", "BNS symbol"},
        {"P_C2", "3.6", "BNS symbol"},
        {"5.5.23", "3.6", "OG number"},
        {"P_2s1", "1.3", "OG symbol"},
        {"P1.1'_c[P1]", "1.3", "UNI symbol"},
        {" 14.79 ", "14.79", "BNS number"},
    };
    for (const auto& one : cases) {
        std::string notation;
        EXPECT_EQ(find_magnetic(one.typed, &notation).bns_number, one.number) << one.typed;
        EXPECT_EQ(notation, one.notation) << one.typed;
    }
}

TEST(MagneticGroup, Refusals) {
    const struct {
        std::string typed;
        const char* start;
    } cases[] = {
        {"P21/c", "'P21/c' names no magnetic group; near: P2_1/c"},
        {"p_a2_1/c", "'p_a2_1/c' names no magnetic group; near: P_a2_1/c"},
        {"P2_1'c'", "'P2_1'c'' names no magnetic group; near: P2_1'/c'"},
        {"2", "'2' names no magnetic group; near: 2.4, 2.5, 2.6, 2.7"},
        {"14.799", "'14.799' names no magnetic group; near: 14.79"},
        {"", "'' names no magnetic group"},
        {"\n\x01", "'\\x0a\\x01' names no magnetic group"},
        {std::string(1000, 'P'), "'PPPPP"},
    };
    for (const auto& one : cases) {
        try {
            find_magnetic(one.typed);
            ADD_FAILURE() << one.typed;
        } catch (const unknown_symbol& refused) {
            EXPECT_TRUE(std::string(refused.what()).starts_with(one.start)) << refused.what();
        }
    }
}

}  // namespace
