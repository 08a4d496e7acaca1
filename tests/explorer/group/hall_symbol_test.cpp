#include "group/hall_symbol.h"

#include <gtest/gtest.h>
#include <set>

#include "group/generated_group.h"
#include "group/space_group.h"

namespace {

using namespace lomar;

std::set<symop> as_set(const std::vector<symop>& ops) { return {ops.begin(), ops.end()}; }

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

}  // namespace
