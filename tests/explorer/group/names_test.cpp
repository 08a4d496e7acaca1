#include "group/names.h"

#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

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

TEST(Names, EverySettingByItsOwnNames) {
    for (const setting& row : settings()) {
        EXPECT_EQ(found_name(row.name()), row.name());
        for (const std::string& other : other_settings(group_of(row))) {
            EXPECT_EQ(resolve_symbol(other).group.row->number, row.number) << other;
            EXPECT_NE(other, row.name());
        }
    }
}

}  // namespace
