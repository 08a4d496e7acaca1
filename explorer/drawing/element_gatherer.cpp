#include "drawing/element_gatherer.h"

#include <algorithm>
#include <numeric>
#include <set>

#include "analysis/symmetry_element.h"

namespace lomar {

namespace {

std::string letters_of_view(int axis) {
    const auto first = static_cast<std::size_t>(axis + 1);
    return std::string("abcabc").substr(first, 3);
}

constexpr int_vector upward = {0, 0, 1};

// The line of the page along a direction, as coefficients whose first is positive or 0.
std::array<int, 2> line_along(const int_vector& direction) {
    const bool turned = direction[1] < 0 || (direction[1] == 0 && direction[0] < 0);
    return turned ? std::array{-direction[1], direction[0]}
                  : std::array{direction[1], -direction[0]};
}

std::int64_t along(const std::array<int, 2>& line, const scaled_vector& point) {
    return line[0] * point[0] + line[1] * point[1];
}

void append(std::vector<std::size_t>& to, const std::vector<std::size_t>& from) {
    to.insert(to.end(), from.begin(), from.end());
    std::sort(to.begin(), to.end());
    to.erase(std::unique(to.begin(), to.end()), to.end());
}

// The offsets that differ by multiples of `part` and whose line has more than a corner of the
// square from 0 to `part`.
std::vector<page_line> lines_in_cell(const std::array<int, 2>& line, const fraction& offset,
                                     const fraction& part) {
    const int corners[] = {0, line[0], line[1], line[0] + line[1]};
    const int lowest_corner = *std::min_element(std::begin(corners), std::end(corners));
    const int highest_corner = *std::max_element(std::begin(corners), std::end(corners));
    const fraction lowest = part * fraction(lowest_corner);
    const fraction highest = part * fraction(highest_corner);
    const bool along_edge = line[0] == 0 || line[1] == 0;
    std::vector<page_line> result;
    for (fraction at = lowest + part * ((offset - lowest) / part).modulo_one(); at <= highest;
         at += part) {
        if (along_edge || (lowest < at && at < highest)) result.push_back({line, at});
    }
    return result;
}

std::vector<std::array<fraction, 2>> places_in_cell(const fraction& down, const fraction& right,
                                                    const fraction& part) {
    std::vector<std::array<fraction, 2>> result;
    for (int i = 0; i < 4; ++i) {
        const std::array<fraction, 2> place = {down + part * fraction(i / 2),
                                               right + part * fraction(i % 2)};
        if (place[0] <= part && place[1] <= part) result.push_back(place);
    }
    return result;
}

// The rotations and screws of a line, in an order of their own.
std::set<std::array<int, 3>> kinds_of(const std::vector<axis_member>& members) {
    std::set<std::array<int, 3>> result;
    for (const axis_member& each : members) result.insert({each.kind, each.screw, each.time});
    return result;
}

}  // namespace

element_gatherer::element_gatherer(std::span<const symop> all, int axis)
    : given(all),
      view(axis),
      letters(letters_of_view(axis)),
      operators(to_view(all, axis)),
      translations(operators) {
    for (std::size_t op = 0; op < operators.size(); ++op) {
        if (translations.is_grey()) operators[op].time = 1;
        if (operators[op].rot != unit_matrix) gather(op);
    }
}

void element_gatherer::gather(std::size_t op) {
    const symop& each = operators[op];
    auto known = actions.find(each.rot);
    if (known == actions.end()) known = actions.emplace(each.rot, each.rot).first;
    const operator_action& action = known->second;
    const scaled_vector start = translations.scaled(each.trans);
    const int n = action.spread;
    for (int i = 0; i < n * n * n; ++i) {
        scaled_vector shift = {i / (n * n), i / n % n, i % n};
        for (std::int64_t& steps : shift) steps *= translations.unit();
        if (action.kind == -2) {
            add_plane(action, op, shift);
            continue;
        }
        const scaled_vector w = {start[0] + shift[0], start[1] + shift[1], start[2] + shift[2]};
        add_point(member_of(action, op, action.intrinsic(w)), action.axis, action.fixed_point(w));
    }
}

axis_member element_gatherer::member_of(const operator_action& action, std::size_t op,
                                        const scaled_vector& intrinsic) const {
    axis_member member{op, action.kind, 0, operators[op].time, 0};
    if (action.kind < 0) return member;
    for (std::size_t i = 0; i < 3; ++i) {
        if (action.axis[i] == 0) continue;
        const std::int64_t length = intrinsic[i] / action.axis[i];
        const auto turns = action.kind * length / translations.period(action.axis);
        const auto screw = static_cast<int>((action.sense < 0 ? -turns : turns) % action.kind);
        member.screw = screw < 0 ? screw + action.kind : screw;
        break;
    }
    return member;
}

void element_gatherer::add_point(const axis_member& member, const int_vector& axis,
                                 const scaled_vector& point) {
    axis_member each = member;
    each.height = translations.modulo_one(point[2]);
    const std::int64_t down = translations.modulo_one(point[0]);
    const std::int64_t right = translations.modulo_one(point[1]);
    if (axis == upward || axis == int_vector{}) {
        normal[{upward, {down, right}}].push_back(each);
        return;
    }
    if (axis[2] == 0) {
        const std::int64_t offset = translations.modulo_one(along(line_along(axis), point));
        flat[{axis, {offset, each.height}}].push_back(each);
        return;
    }
    for (int level = 0; level < std::abs(axis[2]); ++level) {
        const std::int64_t rise = point[2] + level * translations.unit();
        const std::int64_t x = point[0] - rise * axis[0] / axis[2];
        const std::int64_t y = point[1] - rise * axis[1] / axis[2];
        inclined[{axis, {translations.modulo_one(x), translations.modulo_one(y)}}].push_back(each);
    }
}

void element_gatherer::add_plane(const operator_action& action, std::size_t op,
                                 const scaled_vector& shift) {
    scaled_vector w = translations.scaled(operators[op].trans);
    for (std::size_t i = 0; i < 3; ++i) w[i] += shift[i];
    const scaled_vector point = action.fixed_point(w);
    std::int64_t offset = 0;
    for (std::size_t i = 0; i < 3; ++i) offset += action.plane[i] * point[i];
    plane_group& group =
        planes[{action.plane, translations.modulo_one(offset), operators[op].time}];
    if (group.operators.empty()) {
        group.glide = action.intrinsic(w);
        if (action.plane[2] != 0) group.location = location_of(op, shift);
    }
    append(group.operators, {op});
}

std::string element_gatherer::location_of(std::size_t op, const scaled_vector& shift) const {
    symop shifted = given[op];
    for (std::size_t i = 0; i < 3; ++i) {
        shifted.trans[(static_cast<std::size_t>(view) + 1 + i) % 3] += translations.exact(shift[i]);
    }
    return location_text(element_of(shifted));
}

bool element_gatherer::repeats_by_halves() const {
    const std::int64_t half = translations.unit() / 2;
    const std::array<std::int64_t, 2> steps[] = {{half, 0}, {0, half}};
    const auto has_all_shifted = [&](const auto& step) {
        return std::all_of(inclined.begin(), inclined.end(), [&](const auto& axis) {
            line_key key = axis.first;
            for (std::size_t i = 0; i < 2; ++i) {
                key.place[i] = translations.modulo_one(key.place[i] + step[i]);
            }
            const auto found = inclined.find(key);
            return found != inclined.end() && kinds_of(found->second) == kinds_of(axis.second);
        });
    };
    return std::all_of(std::begin(steps), std::end(steps), [&](const auto& step) {
        return translations.has_over({step[0], step[1]}) && has_all_shifted(step);
    });
}

void element_gatherer::draw_quarter() {
    part = {1, 2};
    const std::int64_t half = translations.unit() / 2;
    for (lines* each : {&normal, &flat, &inclined}) {
        lines folded;
        for (auto& [key, members] : *each) {
            line_key place = key;
            place.place[0] %= half;
            if (each != &flat) place.place[1] %= half;
            auto& all = folded[place];
            all.insert(all.end(), members.begin(), members.end());
        }
        each->swap(folded);
    }
    std::map<plane_key, plane_group> folded;
    for (const auto& [key, group] : planes) {
        plane_key place = key;
        if (key.plane[2] == 0) place.offset %= half;
        append(folded.try_emplace(place, group).first->second.operators, group.operators);
    }
    planes.swap(folded);
}

element_set element_gatherer::take() const {
    element_set set;
    set.part = part;
    set.is_grey = translations.is_grey();
    take_points(set, normal);
    take_points(set, inclined);
    take_flat_axes(set);
    take_planes(set);
    take_antitranslations(set);
    return set;
}

void element_gatherer::take_points(element_set& set, const lines& from) const {
    for (const auto& [key, members] : from) {
        const bool doubled =
            !translations.is_grey() && translations.is_doubled_along(key.direction);
        const auto symbols = symbols_of(members, doubled);
        for (const axis_symbol& symbol : symbols) {
            point_element element;
            element.symbol = symbol;
            if (key.direction != upward) element.direction = key.direction;
            if (symbol.has_height && key.direction == upward) {
                element.height = translations.exact(symbol.height);
            }
            element.is_mate = &symbol != symbols.data();
            for (const auto& place : places_in_cell(translations.exact(key.place[0]),
                                                    translations.exact(key.place[1]), part)) {
                element.place = place;
                set.points.push_back(element);
            }
        }
    }
}

void element_gatherer::take_flat_axes(element_set& set) const {
    std::map<std::pair<page_line, std::string>, flat_axis> merged;
    for (const auto& [key, members] : flat) {
        const bool doubled =
            !translations.is_grey() && translations.is_doubled_along(key.direction);
        const auto symbols = symbols_of(members, doubled);
        for (const axis_symbol& symbol : symbols) {
            const flat_axis element{symbol,
                                    {line_along(key.direction), translations.exact(key.place[0])},
                                    translations.exact(key.place[1]),
                                    &symbol != symbols.data()};
            const auto [found, is_new] = merged.try_emplace({element.line, symbol.kind()}, element);
            if (is_new) continue;
            found->second.height = std::min(found->second.height, element.height);
            append(found->second.symbol.operators, symbol.operators);
        }
    }
    for (auto& [key, element] : merged) {
        for (const page_line& line : lines_in_cell(element.line.line, element.line.offset, part)) {
            set.flat_axes.push_back(element);
            set.flat_axes.back().line = line;
        }
    }
}

void element_gatherer::take_planes(element_set& set) const {
    for (const auto& [key, group] : planes) {
        if (key.plane[2] == 0) {
            take_steep_plane(set, key, group);
        } else if (key.plane == upward) {
            take_flat_plane(set, key, group);
        } else {
            take_unshown(set, key, group);
        }
    }
}

void element_gatherer::take_steep_plane(element_set& set, const plane_key& key,
                                        const plane_group& group) const {
    steep_plane plane;
    plane.symbol = glide_symbol_of(translations, key.plane, group.glide, letters.c_str());
    plane.is_primed = key.time < 0;
    plane.is_mate = key.time < 0 && planes.contains({key.plane, key.offset, 1});
    plane.operators = group.operators;
    for (const page_line& line :
         lines_in_cell({key.plane[0], key.plane[1]}, translations.exact(key.offset), part)) {
        plane.line = line;
        set.steep_planes.push_back(plane);
    }
}

void element_gatherer::take_flat_plane(element_set& set, const plane_key& key,
                                       const plane_group& group) const {
    const glide_symbol symbol =
        glide_symbol_of(translations, key.plane, group.glide, letters.c_str());
    for (flat_plane& known : set.flat_planes) {
        // The offsets come in rising order, so the known one is lower.
        if (known.symbol.letter == symbol.letter && known.symbol.glide == symbol.glide &&
            known.is_primed == (key.time < 0)) {
            append(known.operators, group.operators);
            return;
        }
    }
    set.flat_planes.push_back(
        {symbol, translations.exact(key.offset), key.time < 0, group.operators});
}

void element_gatherer::take_unshown(element_set& set, const plane_key& key,
                                    const plane_group& group) const {
    const glide_symbol symbol =
        glide_symbol_of(translations, key.plane, group.glide, letters.c_str());
    const std::string kind = symbol.letter + std::string(key.time < 0 ? "'" : "");
    const int_vector normal_of = element_of(given[group.operators.front()]).axis;
    for (unshown_element& known : set.unshown) {
        if (known.kind != kind || known.normal != normal_of) continue;
        known.locations.push_back(group.location);
        append(known.operators, group.operators);
        return;
    }
    set.unshown.push_back({kind, normal_of, {group.location}, group.operators});
}

void element_gatherer::take_antitranslations(element_set& set) const {
    unshown_element all{"1'", {}, {}, {}};
    for (std::size_t op = 0; op < given.size(); ++op) {
        if (given[op].rot != unit_matrix || given[op].time > 0) continue;
        all.operators.push_back(op);
        all.locations.push_back(text(given[op].trans));
    }
    if (!all.operators.empty()) set.unshown.push_back(all);
}

}  // namespace lomar
