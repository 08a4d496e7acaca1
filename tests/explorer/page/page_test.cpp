#include <gtest/gtest.h>
#include <set>

#include "explorer/drawing/picture_reader.h"
#include "page/atlas.h"
#include "page/diagrams.h"
#include "page/group_page.h"
#include "page/magnetic_page.h"
#include "page/operator_table.h"
#include "page/symbol_markup.h"

namespace lomar {
namespace {

using drawing_test::read_tags;
using drawing_test::split;
using drawing_test::tag;

// What a reader copies from the markup.
std::string text_of(const std::string& markup) {
    std::string result;
    bool in_tag = false;
    for (const char c : markup) {
        if (c == '<') in_tag = true;
        if (!in_tag) result += c;
        if (c == '>') in_tag = false;
    }
    for (const auto& [entity, character] :
         {std::pair("&lt;", "<"), {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}) {
        for (std::size_t at = 0; (at = result.find(entity, at)) != std::string::npos; ++at) {
            result.replace(at, std::string_view(entity).size(), character);
        }
    }
    return result;
}

TEST(symbols, print_as_people_write_them) {
    const auto bare = [](const std::string& symbol) {
        const std::string markup = symbol_markup(symbol);
        return markup.substr(21, markup.size() - 28);
    };
    EXPECT_EQ(bare("P 42/n:2"), "<i>P</i> 4<sub>2</sub>/<i>n</i>:2");
    EXPECT_EQ(bare("-3"), "<span class=\"unseen\">-</span><span class=\"bar\">3</span>");
    EXPECT_EQ(bare("P_c2_1'"),
              "<i>P</i><span class=\"unseen\">_</span><sub>c</sub>2"
              "<span class=\"unseen\">_</span><sub>1</sub>'");
    // A twofold axis in each of three directions is no screw.
    EXPECT_EQ(bare("222"), "222");
    EXPECT_EQ(bare("<b>&"), "&lt;<i>b</i>&gt;&amp;");
    EXPECT_EQ(symbol_markup("hall:-P 2\""), "<code>hall:-P 2&quot;</code>");
    EXPECT_EQ(text_of(schoenflies_markup("D2h^16")), "D2h^16");
}

TEST(symbols, are_copied_to_the_letter) {
    for (const setting& row : settings()) {
        EXPECT_EQ(text_of(symbol_markup(row.name())), row.name());
        EXPECT_EQ(text_of(symbol_markup(row.full_symbol)), row.full_symbol);
    }
    for (const magnetic_facts& row : magnetic_groups()) {
        for (const std::string_view symbol : {row.bns_symbol, row.og_symbol, row.uni_symbol}) {
            EXPECT_EQ(text_of(symbol_markup(symbol)), symbol);
        }
    }
}

TEST(meaning, of_each_kind) {
    const auto of = [](const int_matrix& rot, const fraction_vector& trans) {
        return meaning_text(element_of({rot, trans}));
    };
    const int_matrix two = {{{-1, 0, 0}, {0, 1, 0}, {0, 0, -1}}};
    const int_matrix three = {{{0, -1, 0}, {1, -1, 0}, {0, 0, 1}}};
    const fraction half(1, 2);
    EXPECT_EQ(of(unit_matrix, {}), "identity");
    EXPECT_EQ(of(unit_matrix, {0, half, half}), "translation");
    EXPECT_EQ(of(two, {0, half, half}), "2-fold screw rotation about [0 1 0]");
    EXPECT_EQ(of(two, {half, 0, 0}), "2-fold rotation about [0 1 0]");
    EXPECT_EQ(of(negated(two), {0, half, half}), "glide reflection, normal [0 1 0]");
    EXPECT_EQ(of(negated(two), {0, half, 0}), "reflection, normal [0 1 0]");
    EXPECT_EQ(of(negated(unit_matrix), {half, 0, 0}), "inversion");
    EXPECT_EQ(of(three, {}), "3-fold rotation about [0 0 1], anticlockwise");
    EXPECT_EQ(of(negated(three), {}), "3-fold rotoinversion about [0 0 1], anticlockwise");
}

// Reads the content of a page: it is well formed, no id is there twice, links within the page lead
// somewhere, and all that is drawn is a row of the table. Answers the rows.
std::vector<std::string> check_content(const std::string& markup) {
    std::set<std::string> ids;
    std::set<std::string> drawn;
    std::vector<std::string> rows;
    const std::vector<tag> tags = read_tags("<main>" + markup + "</main>");
    for (const tag& each : tags) {
        const auto& attributes = each.attributes;
        if (const auto id = attributes.find("id"); id != attributes.end()) {
            EXPECT_TRUE(ids.insert(id->second).second) << id->second;
        }
        if (attributes.contains("data-operator")) rows.push_back(attributes.at("data-operator"));
        if (!attributes.contains("data-operators")) continue;
        for (const std::string& op : split(attributes.at("data-operators"), ';')) drawn.insert(op);
    }
    for (const tag& each : tags) {
        for (const char* name : {"href", "aria-labelledby"}) {
            const auto found = each.attributes.find(name);
            if (found == each.attributes.end()) continue;
            for (std::string id : split(found->second, ' ')) {
                if (name[0] == 'h' && id[0] != '#') continue;
                EXPECT_TRUE(ids.contains(id.substr(id[0] == '#' ? 1 : 0))) << id;
            }
        }
    }
    const std::set<std::string> listed(rows.begin(), rows.end());
    for (const std::string& op : drawn) EXPECT_TRUE(listed.contains(op)) << op;
    return rows;
}

TEST(pages, of_every_setting_hold_together) {
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const group_report report = report_of({group_of(row), {"a < b"}, {}});
        const space_group& group = report.group.group;
        // The drawings take the time; those of one row in eight stand for all.
        const std::string drawings =
            row.index % 8 == 0 ? diagram_section({group.operators, group.name, false}) : "";
        const std::string table = operator_table(group.operators, group.centring, false);
        const std::string markup = group_article(report, {}, drawings, table);
        std::vector<std::string> expected;
        for (const symop& op : group.operators) expected.push_back(xyz_text(op));
        EXPECT_EQ(check_content(markup), expected);
        const std::string text = text_of(markup);
        EXPECT_NE(text.find("Assumed: a < b"), std::string::npos);
        for (const std::string& name : report.other_settings) {
            EXPECT_NE(text.find(name), std::string::npos) << name;
        }
        for (const reflection_condition& condition : report.conditions) {
            EXPECT_NE(text.find(condition.text.substr(condition.text.find(": ") + 2)),
                      std::string::npos);
        }
        for (const wyckoff_position& position : report.positions) {
            for (const std::string& point : position.positions) {
                EXPECT_NE(text.find(point), std::string::npos) << point;
            }
        }
    }
}

TEST(pages, of_magnetic_groups_hold_together) {
    for (std::size_t i = 0; i < magnetic_groups().size(); i += 50) {
        const magnetic_facts& row = magnetic_groups()[i];
        SCOPED_TRACE(row.bns_number);
        const magnetic_group group = group_of(row);
        std::vector<std::string> expected;
        for (const symop& op : group.operators) expected.push_back(xyzt_text(op));
        const std::string drawings = diagram_section({group.operators, magnetic_name(row), true});
        const std::string table = operator_table(group.operators, group.centring, true);
        EXPECT_EQ(check_content(magnetic_article(group, "", {}, drawings, table)), expected);
    }
}

TEST(atlas, has_names_for_every_file_system) {
    std::set<std::string> names;
    const auto check = [&](const std::string& folder, std::string name) {
        for (char& c : name) {
            EXPECT_TRUE(std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '_' ||
                        c == '.')
                << name;
            c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
        EXPECT_TRUE(names.insert(folder + name).second) << name;
    };
    for (const setting& row : settings()) check("settings/", file_name(row));
    for (const magnetic_facts& row : magnetic_groups()) check("magnetic/", file_name(row));
    const std::string index = atlas_index();
    std::size_t links = 0;
    for (std::size_t at = 0; (at = index.find("<td><a href=\"", at)) != std::string::npos; ++at) {
        std::string target = index.substr(at + 13, index.find('"', at + 13) - at - 13);
        for (char& c : target) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        EXPECT_TRUE(names.contains(target)) << target;
        ++links;
    }
    EXPECT_EQ(links, names.size());
    EXPECT_EQ(atlas_size(), links + 1);
}

}  // namespace
}  // namespace lomar
