#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

#include "analysis/symmetry_element.h"
#include "drawing/diagram.h"
#include "group/magnetic_group.h"
#include "group/space_group.h"
#include "picture_reader.h"
#include "support/pace.h"

namespace {

using namespace lomar;
using namespace lomar::drawing_test;

std::string drawn(const space_group& group, int axis) {
    diagram_options options;
    options.axis = axis;
    options.name = group.name;
    return diagram_svg(group.operators, options);
}

// The drawn coordinates, in the order of data-at.
std::array<std::size_t, 2> drawn_coordinates(int axis) {
    return axis == 0   ? std::array<std::size_t, 2>{1, 2}
           : axis == 1 ? std::array<std::size_t, 2>{0, 2}
                       : std::array<std::size_t, 2>{0, 1};
}

std::string letters_of(int axis) {
    const auto [i, j] = drawn_coordinates(axis);
    return {"xyz"[i], "xyz"[j]};
}

// A drawn element but a plane parallel to the page.
struct drawn_element {
    place where;
    fraction part;  // of the drawn axes that the picture shows
    std::string kind;
    int_vector direction{};  // of an inclined axis
    std::vector<std::string> operators;

    bool is_inclined() const { return direction != int_vector{}; }
    std::string key() const { return place_key(where, direction, part); }

    static std::string place_key(const place& at, int_vector along, const fraction& part) {
        for (const int step : along) {
            if (step == 0) continue;
            if (step < 0) along = {-along[0], -along[1], -along[2]};
            break;
        }
        return at.key(part) + " " + text({along[0], along[1], along[2]});
    }
};

std::vector<drawn_element> elements_in(const std::vector<tag>& tags, int axis) {
    const std::string letters = letters_of(axis);
    const fraction part = part_of(tags);
    std::vector<drawn_element> result;
    for (const tag& each : tags) {
        const std::string page = {letters[0], ',', letters[1]};
        if (!each.has_class("element")) continue;
        if (each.at("data-at") == page && each.attributes.contains("data-height")) {
            if (!std::isdigit(static_cast<unsigned char>(each.at("data-kind")[0]))) continue;
        }
        drawn_element element;
        element.part = part;
        element.where = read_place(each.at("data-at"), letters);
        element.kind = each.at("data-kind");
        element.operators = split(each.at("data-operators"), ';');
        if (each.attributes.contains("data-direction")) {
            std::istringstream(each.at("data-direction")) >> element.direction[0] >>
                element.direction[1] >> element.direction[2];
        }
        result.push_back(element);
    }
    return result;
}

plane_operator in_plane(const symop& op, int axis) {
    const auto [i, j] = drawn_coordinates(axis);
    return {{{{op.rot[i][i], op.rot[i][j]}, {op.rot[j][i], op.rot[j][j]}}},
            {op.trans[i], op.trans[j]}};
}

// Where a line of the cell pierces height 0.
place piercing_point(const fraction_vector& point, const int_vector& direction, int axis) {
    const auto up = static_cast<std::size_t>(axis);
    const fraction steps = point[up] / fraction(direction[up]);
    place result;
    for (std::size_t n = 0; n < 2; ++n) {
        const std::size_t i = drawn_coordinates(axis)[n];
        result.point[n] = point[i] - steps * fraction(direction[i]);
    }
    return result;
}

// Where an operator takes an element.
std::string image_of(const drawn_element& element, const symop& op, int axis) {
    if (!element.is_inclined())
        return drawn_element::place_key(in_plane(op, axis)(element.where), {}, element.part);
    const auto [i, j] = drawn_coordinates(axis);
    fraction_vector point;
    point[i] = element.where.point[0];
    point[j] = element.where.point[1];
    const int_vector direction = op.rot * element.direction;
    return drawn_element::place_key(piercing_point(op * point, direction, axis), direction,
                                    element.part);
}

// A kind without what an operator may change: the hand of a screw, the name of a glide in the page.
std::string kind_for(std::string kind, bool turns_hand, int axis) {
    const std::size_t length = std::min(kind.find('\''), kind.size());
    if (turns_hand && length == 2 && kind[0] >= '2' && kind[0] <= '6') {
        kind[1] = static_cast<char>('0' + (kind[0] - kind[1]));
    }
    const auto [i, j] = drawn_coordinates(axis);
    if (kind[0] == "abc"[i] || kind[0] == "abc"[j]) kind[0] = 'g';
    return kind;
}

// Under the operators that leave the direction of the view.
void expect_invariant(const std::vector<drawn_element>& elements,
                      const std::vector<symop>& operators, int axis) {
    const auto up = static_cast<std::size_t>(axis);
    const auto [i, j] = drawn_coordinates(axis);
    std::set<std::string> known;
    for (const drawn_element& each : elements) {
        known.insert(kind_for(each.kind, false, axis) + "@" + each.key());
    }
    for (const symop& op : operators) {
        if (op.rot[up][i] != 0 || op.rot[up][j] != 0 || op.rot[i][up] != 0 || op.rot[j][up] != 0) {
            continue;
        }
        for (const drawn_element& each : elements) {
            const std::string image =
                kind_for(each.kind, determinant(op.rot) < 0, axis) + "@" + image_of(each, op, axis);
            EXPECT_TRUE(known.contains(image)) << xyz_text(op) << " takes " << each.kind << " at "
                                               << each.key() << " to " << image;
        }
    }
}

// Where an operator's element is to be seen, if it is no plane inclined or parallel to the page.
std::string place_of(const symop& op, int axis, const fraction& part) {
    const auto up = static_cast<std::size_t>(axis);
    const auto [i, j] = drawn_coordinates(axis);
    const symmetry_element element = element_of(op);
    place where;
    where.point = {element.point[i], element.point[j]};
    if (element.kind == -2) {
        if (op.rot[i][up] != 0 || op.rot[j][up] != 0 || op.rot[up][up] != 1) return {};
        for (const int_vector& along : element.directions) {
            if (along[i] != 0 || along[j] != 0) where.direction = {along[i], along[j]};
        }
    } else if (element.kind != -1 && element.axis[up] == 0) {
        where.direction = {element.axis[i], element.axis[j]};
    } else if (element.axis[i] != 0 || element.axis[j] != 0) {
        return drawn_element::place_key(piercing_point(element.point, element.axis, axis),
                                        element.axis, part);
    }
    return drawn_element::place_key(where, {}, part);
}

// Each operator is drawn wherever it or its product with a lattice translation has its element in
// the cell, and nowhere else.
void expect_complete(const std::vector<drawn_element>& elements,
                     const std::vector<symop>& operators, bool with_time, int axis) {
    std::set<std::string> drawn_places;
    for (const drawn_element& each : elements) {
        EXPECT_TRUE(each.where.meets_cell(each.part)) << each.key();
        for (const std::string& op : each.operators) drawn_places.insert(op + "@" + each.key());
    }
    const fraction part = elements.empty() ? fraction(1) : elements.front().part;
    std::set<std::string> near, further;
    for (const symop& op : operators) {
        if (op.rot == unit_matrix) continue;
        const std::string name = (with_time ? xyzt_text(op) : xyz_text(op)) + "@";
        for (int shift = 0; shift < 27; ++shift) {
            const int_vector steps = {shift / 9 - 1, shift / 3 % 3 - 1, shift % 3 - 1};
            symop shifted = op;
            for (std::size_t i = 0; i < 3; ++i) shifted.trans[i] += fraction(steps[i]);
            const std::string where = place_of(shifted, axis, part);
            if (where.empty()) continue;
            const bool is_near = std::ranges::all_of(steps, [](int step) { return step >= 0; });
            (is_near ? near : further).insert(name + where);
        }
    }
    for (const std::string& each : near) EXPECT_TRUE(drawn_places.contains(each)) << each;
    for (const std::string& each : drawn_places) {
        EXPECT_TRUE(near.contains(each) || further.contains(each)) << each;
    }
}

TEST(DiagramInvariants, EveryOperatorIsDrawnOrListedAndNoOther) {
    for (const setting& row : settings()) {
        const space_group group = group_of(row);
        std::set<std::string> wanted;
        for (const symop& op : group.operators) {
            if (op.rot != unit_matrix) wanted.insert(xyz_text(op));
        }
        for (int axis = 0; axis < 3; ++axis) {
            SCOPED_TRACE(row.name() + " along " + "abc"[axis]);
            std::set<std::string> found;
            const auto tags = read_tags(drawn(group, axis));
            for (const tag& each : tags) {
                if (!each.has_class("element") && !each.has_class("unshown")) continue;
                const auto operators = split(each.at("data-operators"), ';');
                found.insert(operators.begin(), operators.end());
            }
            EXPECT_EQ(found, wanted);
            EXPECT_GT(small_text_of(tags), 8);
            const auto elements = elements_in(tags, axis);
            expect_invariant(elements, group.operators, axis);
            expect_complete(elements, group.operators, false, axis);
            if (HasFailure()) return;
        }
    }
}

// Primes agree with the times of the operators, and what has both times is told beneath.
TEST(DiagramInvariants, EveryMagneticGroup) {
    for (const magnetic_facts& row : magnetic_groups()) {
        if (row.uni_number % pace != 0) continue;
        SCOPED_TRACE(row.bns_number);
        const magnetic_group group = group_of(row);
        std::set<std::string> wanted;
        bool has_antitranslation = false;
        for (const symop& op : group.operators) {
            if (op.rot == unit_matrix && op.time < 0) has_antitranslation = true;
            if (op != symop() && (op.rot != unit_matrix || op.time < 0)) {
                wanted.insert(xyzt_text(op));
            }
        }
        diagram_options options;
        options.with_time = true;
        options.axis = row.uni_number % 3;
        const auto tags = read_tags(diagram_svg(group.operators, options));
        const auto elements = elements_in(tags, options.axis);
        expect_invariant(elements, group.operators, options.axis);
        expect_complete(elements, group.operators, true, options.axis);
        std::set<std::string> found;
        bool tells_antitranslation = false;
        for (const tag& each : tags) {
            if (!each.has_class("element") && !each.has_class("unshown")) continue;
            const std::string kind = each.at("data-kind");
            int times[2] = {0, 0};
            for (const std::string& op : split(each.at("data-operators"), ';')) {
                found.insert(op);
                ++times[op.ends_with(",-1")];
            }
            if (kind == "1'") tells_antitranslation = true;
            const bool primed = kind.find('\'') != std::string::npos;
            if (primed) {
                EXPECT_GT(times[1], 0) << kind;
            }
            if (row.type == 1) {
                EXPECT_EQ(times[1], 0) << kind;
            }
            if (row.type == 2 && kind != "1'") {
                EXPECT_EQ(times[0], times[1]) << kind;
            }
            if (row.type == 3 && !primed) {
                EXPECT_EQ(times[1], 0) << kind;
            }
        }
        EXPECT_EQ(found, wanted);
        EXPECT_EQ(tells_antitranslation, has_antitranslation);
        if (HasFailure()) return;
    }
}

}  // namespace
