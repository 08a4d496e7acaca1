#include "analysis/identify.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "explorer/support/random_groups.h"

namespace lomar {

void PrintTo(const setting* row, std::ostream* out) { *out << (row ? row->name() : "none"); }

}  // namespace lomar

namespace {

using namespace lomar;

fraction cost_of(const basis_change& change) {
    fraction total;
    for (const auto& row : change.matrix) {
        for (const fraction& entry : row) total += entry < fraction(0) ? -entry : entry;
    }
    return total;
}

// Every setting is found in its own axes; of rows with the same operators the first.
TEST(Identify, EverySettingExactly) {
    std::map<std::set<symop>, const setting*> first;
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        const std::set<symop> key(group.operators.begin(), group.operators.end());
        const bool repeated = !first.try_emplace(key, &row).second;
        const identification found = identify(group.operators);
        EXPECT_EQ(found.row, first.at(key));
        EXPECT_EQ(found.match, match_kind::exact);
        EXPECT_EQ(found.change, basis_change{});
        if (repeated) {
            EXPECT_EQ(found.also, std::vector<const setting*>{&row});
        }
    }
    EXPECT_EQ(settings().size() - first.size(), 4u);
}

// Each setting in random axes, right-handed and left-handed, and with a random origin: the number,
// which is that of the enantiomorph in left-handed axes, operators that the answer takes onto those
// of the setting, and no greater sum of entries than that of the way back.
TEST(Identify, EverySettingDisguised) {
    random_groups random(20240607);
    for (const setting& row : settings()) {
        for (const hand axes : {hand::right, hand::left}) {
            const bool left = axes == hand::left;
            const auto kind = static_cast<disguise>((row.index + (left ? 2 : 0)) % 4);
            const space_group group = group_of(row);
            const basis_change change = random.change(group.centring, kind, axes);
            SCOPED_TRACE(row.name() + " in " + basis_text(change) + " at " + text(change.origin));
            const auto given = random.operators(group.operators, change, kind);
            const identification found = identify(complete(given));
            const bool turned = left && row.enantiomorph != 0;
            ASSERT_EQ(found.row->number, turned ? row.enantiomorph : row.number);
            EXPECT_GT(determinant(found.change.matrix), fraction(0));
            const space_group answer = group_of(*found.row);
            const std::set<symop> wanted(answer.operators.begin(), answer.operators.end());
            for (const symop& op : group.operators) {
                const symop now = modulo_lattice(transformed(op, change * found.change));
                EXPECT_TRUE(wanted.contains(now)) << xyz_text(op);
            }
            if (found.match != match_kind::transformed) {
                EXPECT_EQ(found.change.matrix, to_fractions(unit_matrix));
            } else if (!left) {
                EXPECT_LE(cost_of(found.change), cost_of(inverse(change) * row.to_standard()));
            }
        }
    }
}

struct worked_case {
    const char* setting;
    const char* basis;
    const char* origin;
    const char* found;
    match_kind match;
    const char* back_basis;
    const char* back_origin;
};

// What can be worked out by hand: a primitive cell of Fm-3m, cell choices of P 21/c, shifts that no
// setting has.
TEST(Identify, WorkedCases) {
    const worked_case cases[] = {
        {"F m -3 m", "1/2b+1/2c,1/2a+1/2c,1/2a+1/2b", "0,0,0", "F m -3 m", match_kind::transformed,
         "a-b+c,a+b-c,-a+b+c", "0,0,0"},
        {"P 1 21/c 1", "-a-c,b,a", "0,0,0", "P 1 21/n 1", match_kind::exact, "a,b,c", "0,0,0"},
        {"P 1 21/c 1", "a,b,c", "1/5,0,1/7", "P 1 21/c 1", match_kind::origin, "a,b,c",
         "3/10,0,5/14"},
        {"P n n n:2", "a,b,c", "1/4,1/4,1/4", "P n n n:1", match_kind::exact, "a,b,c", "0,0,0"},
        {"P 41", "a,b,c", "0,0,1/3", "P 41", match_kind::exact, "a,b,c", "0,0,0"},
        {"P a -3", "b,-a,c", "0,0,0", "P a -3", match_kind::transformed, "a,c,-b", "0,0,0"},
        {"P -4 m 2", "a-b,a+b,c", "0,0,0", "C -4 2 m", match_kind::exact, "a,b,c", "0,0,0"},
        // No table has C -4 2 b.
        {"P -4 b 2", "a-b,a+b,c", "0,0,0", "P -4 b 2", match_kind::transformed,
         "1/2a-1/2b,1/2a+1/2b,c", "0,0,0"},
    };
    for (const worked_case& test : cases) {
        const space_group group = group_of(*find_setting(test.setting));
        const basis_change change{parse_basis(test.basis), parse_point(test.origin)};
        SCOPED_TRACE(std::string(test.setting) + " in " + test.basis);
        std::vector<given_operator> given;
        for (const symop& op : group.operators) given.emplace_back(transformed(op, change));
        for (std::size_t i = 0; i < 3; ++i) {
            given.emplace_back();
            given.back().trans = column(inverse(change.matrix), i);
        }
        const identification found = identify(complete(given));
        EXPECT_EQ(found.row->name(), test.found);
        EXPECT_EQ(found.match, test.match);
        EXPECT_EQ(basis_text(found.change), test.back_basis);
        EXPECT_EQ(text(found.change.origin), test.back_origin);
    }
}

}  // namespace
