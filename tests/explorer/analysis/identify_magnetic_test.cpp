#include "analysis/identify_magnetic.h"

#include <gtest/gtest.h>
#include <set>

#include "explorer/support/random_groups.h"
#include "support/pace.h"

namespace {

using namespace lomar;

// All 1651 groups in their own axes and in random ones.
TEST(IdentifyMagnetic, EveryGroup) {
    random_groups random(1651);
    for (const magnetic_facts& facts : magnetic_groups()) {
        if (facts.uni_number % pace != 0) continue;
        SCOPED_TRACE(facts.bns_number);
        const magnetic_group group = group_of(facts);
        const std::set<symop> wanted(group.operators.begin(), group.operators.end());
        const magnetic_identification own = identify_magnetic(complete(group.operators));
        EXPECT_EQ(own.row, &facts);
        EXPECT_EQ(own.match, match_kind::exact);
        EXPECT_EQ(own.change, basis_change{});

        const auto kind = static_cast<disguise>(facts.uni_number % 4);
        const basis_change change = random.change(group.centring, kind);
        const auto given = random.operators(group.operators, change, kind);
        const magnetic_identification found = identify_magnetic(complete(given));
        ASSERT_EQ(found.row->bns_number, facts.bns_number) << basis_text(change);
        EXPECT_GT(determinant(found.change.matrix), fraction(0));
        for (const symop& op : group.operators) {
            const symop now = modulo_lattice(transformed(op, change * found.change));
            EXPECT_TRUE(wanted.contains(now)) << xyzt_text(op);
        }
    }
}

}  // namespace
