#include "group/space_group.h"

#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <sstream>

namespace {

using namespace lomar;

// The operators of each setting's table row by the setting's name.
std::map<std::string, std::set<std::string>> table_of_settings() {
    std::map<std::string, std::set<std::string>> table;
    std::ifstream file(TEST_DATA_DIR "/settings.tsv");
    std::string line;
    std::getline(file, line);
    while (std::getline(file, line)) {
        std::vector<std::string> fields;
        std::istringstream in(line);
        for (std::string field; std::getline(in, field, '\t');) fields.push_back(field);
        const std::string name = fields[1] + (fields[2].empty() ? "" : ":" + fields[2]);
        std::istringstream ops(fields[9]);
        for (std::string op; std::getline(ops, op, ';');) table[name].insert(op);
    }
    return table;
}

TEST(SpaceGroup, OperatorsOfEverySetting) {
    const auto table = table_of_settings();
    ASSERT_EQ(settings().size(), 558u);
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        EXPECT_EQ(group.operators[0], symop());
        std::set<std::string> found;
        for (const symop& op : group.operators) found.insert(xyz_text(op));
        EXPECT_EQ(found, table.at(row.name()));
        EXPECT_EQ(found.size(), group.operators.size());
        EXPECT_EQ(find_setting(row.name()), &row);
    }
}

// The facts' transformation takes the operators onto those of the standard setting.
TEST(SpaceGroup, EverySettingToStandard) {
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group standard = group_of(standard_setting(row.number));
        const std::set<symop> wanted(standard.operators.begin(), standard.operators.end());
        const basis_change change = row.to_standard();
        std::set<symop> found;
        for (const symop& op : group_of(row).operators) {
            found.insert(modulo_lattice(transformed(op, change)));
        }
        // A smaller cell holds fewer of the translations, a larger one more.
        for (const symop& op : found) EXPECT_TRUE(wanted.contains(op)) << xyz_text(op);
        EXPECT_EQ(parse_basis(basis_text(change)), change.matrix);
    }
}

}  // namespace
