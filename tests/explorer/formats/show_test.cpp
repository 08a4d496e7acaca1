#include <gtest/gtest.h>
#include <sstream>

#include "formats/json.h"
#include "formats/show_json.h"
#include "formats/show_text.h"
#include "formats/text_layout.h"

namespace {

using namespace lomar;

group_report report_named(const std::string& symbol) { return report_of(resolve_symbol(symbol)); }

// The keys in their order, and what their values may be.
struct key_rule {
    const char* key;
    std::string types;  // s text, n number, b flag, a array, o object, 0 null
};

char type_letter(const json& value) {
    if (value.is_string()) return 's';
    if (value.is_number_integer()) return 'n';
    if (value.is_boolean()) return 'b';
    if (value.is_array()) return 'a';
    return value.is_object() ? 'o' : '0';
}

void check_keys(const json& object, const std::vector<key_rule>& rules) {
    auto member = object.begin();
    for (const key_rule& rule : rules) {
        ASSERT_NE(member, object.end()) << rule.key;
        ASSERT_EQ(member.key(), rule.key);
        EXPECT_NE(rule.types.find(type_letter(*member)), std::string::npos) << rule.key;
        ++member;
    }
    EXPECT_EQ(member, object.end());
}

const std::vector<key_rule> show_rules = {{"name", "s"},
                                          {"number", "n"},
                                          {"hermann_mauguin", "s0"},
                                          {"hermann_mauguin_full", "s0"},
                                          {"setting", "s0"},
                                          {"hall", "s"},
                                          {"schoenflies", "s"},
                                          {"crystal_system", "s"},
                                          {"point_group", "s"},
                                          {"laue_class", "s"},
                                          {"lattice", "s"},
                                          {"order", "n"},
                                          {"centrosymmetric", "b"},
                                          {"sohncke", "b"},
                                          {"symmorphic", "b"},
                                          {"polar_directions", "a"},
                                          {"enantiomorph", "n0"},
                                          {"assumed", "a"},
                                          {"other_settings", "a"},
                                          {"to_standard", "o"},
                                          {"centring", "a"},
                                          {"operators", "a"},
                                          {"conditions", "a"},
                                          {"wyckoff", "a"}};
const std::vector<key_rule> operator_rules = {
    {"xyz", "s"},       {"kind", "s"},      {"sense", "n"}, {"axis", "a0"},
    {"intrinsic", "a"}, {"location", "s0"}, {"seitz", "s"}};
const std::vector<key_rule> condition_rules = {{"class", "s"},   {"pattern", "a"}, {"linear", "a"},
                                               {"modulus", "n"}, {"text", "s"},    {"causes", "a"}};
const std::vector<key_rule> position_rules = {
    {"letter", "s"}, {"multiplicity", "n"}, {"site_symmetry", "s"}, {"positions", "a"}};

void check_json(const json& shown, const setting& row) {
    check_keys(shown, show_rules);
    EXPECT_EQ(find_setting(shown["name"].get<std::string>()), &row);
    EXPECT_EQ(shown["order"], shown["operators"].size());
    EXPECT_EQ(shown["centring"][0], json({"0", "0", "0"}));
    EXPECT_EQ(shown["operators"][0]["xyz"], "x,y,z");
    for (const json& op : shown["operators"]) {
        check_keys(op, operator_rules);
        const std::string kind = op["kind"];
        EXPECT_EQ(op["axis"].is_null(), kind == "1" || kind == "-1");
        EXPECT_EQ(op["location"].is_null(), kind == "1");
        EXPECT_EQ(op["sense"] == 0, kind.find_first_of("346") == std::string::npos);
    }
    for (const json& condition : shown["conditions"]) check_keys(condition, condition_rules);
    for (const json& position : shown["wyckoff"]) {
        check_keys(position, position_rules);
        EXPECT_EQ(position["positions"].size() * shown["centring"].size(),
                  position["multiplicity"]);
    }
    EXPECT_EQ(shown["wyckoff"].back()["multiplicity"], shown["order"]);
}

void check_text(const std::string& text, const space_group& group) {
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LE(line.size(), 80U) << line;
        EXPECT_FALSE(line.ends_with(' ')) << line;
    }
    EXPECT_TRUE(text.starts_with(group.name));
    EXPECT_EQ(text.find('\x1b'), std::string::npos);
    for (const symop& op : group.representatives())
        EXPECT_NE(text.find("  " + xyz_text(op) + " "), std::string::npos) << xyz_text(op);
}

TEST(show, json_and_text_of_every_setting) {
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const group_report report = report_of({group_of(row), {}, {}});
        const json shown = show_json(report);
        check_json(shown, row);
        EXPECT_EQ(json::parse(json_text(shown)), shown);
        check_text(show_text(report, false), report.group.group);
    }
}

struct fact_case {
    const char* symbol;
    const char* key;
    const char* value;  // as JSON
};

TEST(show, facts) {
    const fact_case cases[] = {
        {"P n n n:2", "setting", "\"2\""},
        {"P 1 21/c 1", "setting", "\"b1\""},
        {"R -3:R", "setting", "\"R\""},
        {"R -3:R", "lattice", "\"R\""},
        {"R -3:R", "centring", "[[\"0\",\"0\",\"0\"]]"},
        {"P b n m", "setting", "\"cab\""},
        {"P -1", "setting", "null"},
        {"P 41", "enantiomorph", "78"},
        {"P 41", "polar_directions", "[[0,0,1]]"},
        {"P 1 m 1", "polar_directions", "[[1,0,0],[0,0,1]]"},
        {"P m -3 m", "polar_directions", "[]"},
        {"P m -3 m", "enantiomorph", "null"},
        {"Fd-3m", "assumed", "[\"origin choice 1\"]"},
        {"F d -3 m:1", "to_standard", "{\"basis\":\"a,b,c\",\"origin\":[\"1/8\",\"1/8\",\"1/8\"]}"},
    };
    for (const fact_case& c : cases)
        EXPECT_EQ(show_json(report_named(c.symbol))[c.key], json::parse(c.value)) << c.symbol;
}

// The same axes under a Hall symbol's name: what is said in the axes of a row doesn't apply.
TEST(show, group_in_axes_that_the_table_lacks) {
    group_report report = report_named("P 41");
    space_group& group = report.group.group;
    group.tabulated = false;
    group.to_standard.matrix = to_fractions({{{0, 1, 0}, {0, 0, 2}, {1, 0, 0}}});
    const json shown = show_json(report);
    check_keys(shown, show_rules);
    EXPECT_TRUE(shown["hermann_mauguin"].is_null());
    EXPECT_TRUE(shown["setting"].is_null());
    EXPECT_EQ(shown["polar_directions"], json::parse("[[0,1,0]]"));
}

TEST(show, colour_is_for_headings_alone) {
    const group_report report = report_named("P -1");
    std::string text = show_text(report, true);
    EXPECT_TRUE(text.starts_with("\x1b[1mP -1\x1b[0m"));
    for (const std::string code : {"\x1b[1m", "\x1b[0m"}) {
        for (std::size_t i = text.find(code); i != std::string::npos; i = text.find(code))
            text.erase(i, code.size());
    }
    EXPECT_EQ(text, show_text(report, false));
}

TEST(json_layout, members_on_lines_of_their_own) {
    const json value =
        json::parse(R"({"a":1,"b":[[1,2],[3]],"c":[],"d":{"e":[{"f":1}]},"g":["x"]})");
    EXPECT_EQ(json_text(value),
              "{\n  \"a\": 1,\n  \"b\": [\n    [1, 2],\n    [3]\n  ],\n  \"c\": [],\n"
              "  \"d\": {\"e\": [{\"f\": 1}]},\n  \"g\": [\"x\"]\n}\n");
    EXPECT_EQ(json_text(json("\xff")), "\"\xef\xbf\xbd\"\n");
}

TEST(text_layout, wrapping_and_tables) {
    const std::string item(30, 'x');
    EXPECT_EQ(wrapped("Name", {item, item, item}),
              "Name            " + item + ", " + item + ",\n" + std::string(16, ' ') + item + "\n");
    EXPECT_EQ(wrapped("Name", {}), "");
    EXPECT_EQ(wrapped("Name", {std::string(100, 'y')}),
              "Name            " + std::string(100, 'y') + "\n");
    EXPECT_EQ(table_text({{"a", "bb", ""}, {"ccc", "d", "e"}}), "  a    bb\n  ccc  d   e\n");
}

}  // namespace
