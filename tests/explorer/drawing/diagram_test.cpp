#include "drawing/diagram.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include "group/magnetic_group.h"
#include "group/space_group.h"
#include "picture_reader.h"

namespace {

using namespace lomar;
using namespace lomar::drawing_test;

std::string drawn(const space_group& group, int axis, diagram_part what = diagram_part::elements) {
    diagram_options options;
    options.axis = axis;
    options.what = what;
    options.name = group.name;
    return diagram_svg(group.operators, options);
}

std::map<std::string, int> counts_in(const std::string& picture) {
    std::map<std::string, int> counts;
    for (const tag& each : read_tags(picture)) {
        if (each.has_class("element")) ++counts[each.at("data-kind")];
    }
    return counts;
}

TEST(Diagram, CountsThatOneCanFindByHand) {
    const struct {
        const char* name;
        char axis;
        std::map<std::string, int> counts;
    } rows[] = {
        {"P 1 21/c 1", 'b', {{"21", 6}, {"-1", 9}, {"c", 1}}},
        {"P 1 21/c 1", 'c', {{"21", 3}, {"-1", 9}, {"c", 2}}},
        {"C 1 2/c 1", 'b', {{"2", 6}, {"21", 4}, {"-1", 15}, {"c", 1}, {"n", 1}}},
        {"P n m a", 'c', {{"21", 11}, {"-1", 9}, {"m", 2}, {"n", 2}, {"a", 1}}},
        {"F d d 2", 'c', {{"2", 13}, {"21", 12}, {"d", 8}}},
        {"P 4", 'c', {{"4", 5}, {"2", 4}}},
        {"P 41", 'c', {{"41", 5}, {"21", 4}}},
        {"P 42", 'c', {{"42", 5}, {"2", 4}}},
        {"P 43", 'c', {{"43", 5}, {"21", 4}}},
        {"P -4", 'c', {{"-4", 5}, {"2", 4}}},
        {"P 4/m", 'c', {{"4/m", 5}, {"2/m", 4}, {"m", 1}}},
        {"P 42/m", 'c', {{"42/m", 5}, {"2/m", 4}, {"m", 1}}},
        {"I 4", 'c', {{"4", 5}, {"42", 4}, {"21", 4}}},
        {"P 3", 'c', {{"3", 6}}},
        {"P -3", 'c', {{"-3", 4}, {"3", 2}, {"-1", 5}}},
        {"P -6", 'c', {{"-6", 6}, {"m", 1}}},
        {"P 61", 'c', {{"61", 4}, {"31", 2}, {"21", 5}}},
        {"P 62", 'c', {{"62", 4}, {"32", 2}, {"2", 5}}},
        {"P 63", 'c', {{"63", 4}, {"3", 2}, {"21", 5}}},
        {"P 64", 'c', {{"64", 4}, {"31", 2}, {"2", 5}}},
        {"P 65", 'c', {{"65", 4}, {"32", 2}, {"21", 5}}},
        {"P 63/m", 'c', {{"63/m", 4}, {"-6", 2}, {"21/m", 5}, {"m", 1}}},
        {"R 3 c:H", 'c', {{"3", 6}, {"31", 5}, {"32", 5}, {"c", 5}, {"n", 8}}},
        {"P 2 3", 'c', {{"2", 15}, {"3", 16}, {"31", 4}, {"32", 4}}},
        {"F 2 3", 'c', {{"2", 11}, {"21", 10}, {"3", 16}, {"31", 4}, {"32", 4}}},  // a quarter
        {"F m m 2", 'c', {{"2", 13}, {"21", 12}, {"m", 6}, {"e", 4}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.name) + " along " + row.axis);
        const setting* found = find_setting(row.name);
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(counts_in(drawn(group_of(*found), row.axis - 'a')), row.counts);
    }
}

// A threefold axis along 1 1 1 takes the view along a to that along b.
TEST(Diagram, CubicGroupsLookAlikeAlongAllAxes) {
    for (const setting& row : settings()) {
        if (row.crystal_system != "cubic") continue;
        std::vector<std::map<std::string, int>> counts(3);
        for (int axis = 0; axis < 3; ++axis) {
            for (const auto& [kind, n] : counts_in(drawn(group_of(row), axis))) {
                const auto turned = static_cast<char>('a' + (kind[0] - 'a' + 2 - axis) % 3);
                const bool is_axial = kind[0] >= 'a' && kind[0] <= 'c';
                counts[static_cast<std::size_t>(axis)][is_axial ? std::string(1, turned) : kind] +=
                    n;
            }
        }
        EXPECT_EQ(counts[0], counts[2]) << row.name();
        EXPECT_EQ(counts[1], counts[2]) << row.name();
    }
}

// All ids of one page are different, and each reference has its target.
TEST(Diagram, SeveralPicturesInOnePage) {
    const space_group group = group_of(*find_setting("P 63/m m c"));
    std::string page = "<html>";
    for (int axis = 0; axis < 3; ++axis) {
        diagram_options options;
        options.axis = axis;
        options.what = diagram_part::both;
        options.standalone = false;
        options.prefix = std::string("view") + "abc"[axis] + "-";
        page += diagram_svg(group.operators, options);
        EXPECT_EQ(page.find("xmlns"), std::string::npos);
        EXPECT_EQ(page.find("<style"), std::string::npos);
    }
    std::set<std::string> ids;
    std::set<std::string> targets;
    for (const tag& each : read_tags(page + "</html>")) {
        for (const auto& [name, value] : each.attributes) {
            if (name == "id") {
                EXPECT_TRUE(ids.insert(value).second) << value;
            }
            if (name == "href") targets.insert(value.substr(1));
            if (name != "aria-labelledby") continue;
            for (const std::string& id : split(value, ' ')) targets.insert(id);
        }
    }
    EXPECT_GT(targets.size(), 20u);
    for (const std::string& id : targets) EXPECT_TRUE(ids.contains(id)) << id;
}

// Every operator has its position, and as many are in the cell as there are operators.
TEST(Diagram, GeneralPositionsOfEverySetting) {
    for (const setting& row : settings()) {
        const space_group group = group_of(row);
        SCOPED_TRACE(row.name());
        std::set<std::string> found;
        const auto tags = read_tags(drawn(group, row.index % 3, diagram_part::positions));
        EXPECT_GT(small_text_of(tags), 7.5);
        for (const tag& each : tags) {
            if (!each.has_class("position")) continue;
            for (const std::string& op : split(each.at("data-operators"), ';')) found.insert(op);
        }
        EXPECT_EQ(found.size(), group.operators.size());
    }
}

TEST(Diagram, NamesAreEscaped) {
    diagram_options options;
    options.name = "</title><script>&\"\x01\xff";
    const std::vector<symop> identity(1);
    const std::string picture = diagram_svg(identity, options);
    EXPECT_NE(picture.find("&lt;/title&gt;&lt;script&gt;&amp;&quot;??,"), std::string::npos);
    EXPECT_EQ(picture.find("<script"), std::string::npos);
}

TEST(Diagram, WhatCantBeDrawn) {
    const auto refuse = [](const std::vector<symop>& operators,
                           std::optional<cell_parameters> cell) {
        diagram_options options;
        options.cell = cell;
        EXPECT_THROW(diagram_svg(operators, options), std::domain_error);
    };
    refuse({symop(), symop{{{{2, 0, 0}, {0, 1, 0}, {0, 0, 1}}}, {}, 1}}, {});
    refuse({symop()}, cell_parameters{0, 1, 1, 90, 90, 90});
    refuse({symop()}, cell_parameters{1, 1, 1, 60, 60, 120});
    refuse({symop()}, cell_parameters{1, 1, NAN, 90, 90, 90});
    std::vector<symop> fine(2);
    fine[1].trans[0] = fraction(1, 4'000'000'007);
    EXPECT_THROW(diagram_svg(fine, {}), std::overflow_error);
}

TEST(Diagram, PrimesThatOneCanFindByHand) {
    const struct {
        const char* number;
        char axis;
        std::map<std::string, int> counts;
    } rows[] = {
        {"14.79", 'b', {{"21'", 6}, {"-1", 9}, {"c'", 1}}},
        {"14.78", 'b', {{"21", 6}, {"-1'", 9}, {"c'", 1}}},
        {"14.76", 'b', {{"21", 6}, {"-1", 9}, {"c", 1}}},
        {"75.3", 'c', {{"4'", 5}, {"2", 4}}},
        {"75.4", 'c', {{"4", 5}, {"42'", 5}, {"2", 4}, {"21'", 4}}},
        {"83.45", 'c', {{"4'/m", 5}, {"2/m", 4}, {"m", 1}}},
        {"83.47", 'c', {{"4'/m'", 5}, {"2/m'", 4}, {"m'", 1}}},
        {"147.15", 'c', {{"-3'", 4}, {"3", 2}, {"-1'", 5}}},
        {"168.111", 'c', {{"6'", 4}, {"3", 2}, {"2'", 5}}},
        {"174.135", 'c', {{"-6'", 6}, {"m'", 1}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        diagram_options options;
        options.axis = row.axis - 'a';
        EXPECT_EQ(counts_in(diagram_svg(group_of(find_magnetic(row.number)).operators, options)),
                  row.counts);
    }
}

std::string text_of(const std::string& picture) {
    std::ifstream file(DATA_DIR "/../docs/pictures/" + picture);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

// The pictures of docs/ are what the program draws today.
TEST(Diagram, PicturesOfTheDocumentation) {
    const struct {
        const char* file;
        const char* name;
        int axis;
        diagram_part what;
    } rows[] = {
        {"P21_c.svg", "P 1 21/c 1", 1, diagram_part::both},
        {"Pnma.svg", "P n m a", 2, diagram_part::both},
        {"P41212.svg", "P 41 21 2", 2, diagram_part::both},
        {"P-3m1.svg", "P -3 m 1", 2, diagram_part::both},
        {"Fd-3m.svg", "F d -3 m:2", 2, diagram_part::elements},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(text_of(row.file), drawn(group_of(*find_setting(row.name)), row.axis, row.what))
            << row.file;
    }
    diagram_options options;
    options.name = "Pn'm'a (62.446)";
    EXPECT_EQ(text_of("Pnma_magnetic.svg"),
              diagram_svg(group_of(find_magnetic("62.446")).operators, options));
}

}  // namespace
