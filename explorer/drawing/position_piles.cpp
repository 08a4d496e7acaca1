#include "drawing/position_piles.h"

#include <algorithm>

#include "drawing/element_set.h"
#include "drawing/lattice.h"

namespace lomar {

namespace {

bool same_projection(const symop& a, const symop& b) {
    return a.rot[0] == b.rot[0] && a.rot[1] == b.rot[1];
}

// `+`, `1/2-`; where the height is not that of the general point up to a sign, its coordinate.
std::string height_text(const symop& in_view, const symop& op, int axis) {
    std::string result;
    const auto& row = in_view.rot[2];
    if (row[0] == 0 && row[1] == 0 && std::abs(row[2]) == 1) {
        if (!in_view.trans[2].is_zero()) result = in_view.trans[2].text();
        result += row[2] > 0 ? "+" : "\xe2\x88\x92";
    } else {
        std::string coordinates = xyz_text(op);
        for (int i = 0; i < axis; ++i) coordinates.erase(0, coordinates.find(',') + 1);
        result = coordinates.substr(0, coordinates.find(','));
    }
    if (op.time < 0) result += '\'';
    return result;
}

void add(std::vector<position_pile>& piles, std::size_t op, const symop& in_view) {
    const auto is_there = [&](const position_pile& each) {
        return same_projection(each.first, in_view) && each.first.trans[0] == in_view.trans[0] &&
               each.first.trans[1] == in_view.trans[1];
    };
    auto found = std::find_if(piles.begin(), piles.end(), is_there);
    if (found == piles.end()) {
        piles.emplace_back();
        found = piles.end() - 1;
        found->first = in_view;
    }
    found->operators.push_back(op);
    (determinant(in_view.rot) > 0 ? found->has_plain : found->has_other) = true;
    if (in_view.time > 0) found->has_unprimed = true;
}

void tell_heights(position_piles& set, std::span<const symop> operators, int axis) {
    for (position_pile& each : set.piles) {
        for (const std::size_t op : each.operators) {
            if (set.mates_at && operators[op].time < 0) continue;
            std::string& heights =
                determinant(operators[op].rot) > 0 ? each.plain_heights : each.other_heights;
            if (!heights.empty()) heights += ',';
            heights += height_text(to_view(operators[op], axis), operators[op], axis);
        }
    }
}

// A part of the axis to the right alone makes a tall picture, of the other one a broad one, which
// is no larger on a page.
drawn_part repeated_part(const lattice& translations) {
    const std::int64_t half = translations.unit() / 2;
    if (translations.has_over({0, half}) && translations.has_over({half, 0})) {
        return {fraction(1, 2), fraction(1, 2)};
    }
    for (const int n : {3, 2}) {
        for (const scaled_vector& v : translations.translations()) {
            if (v[1] * n == translations.unit()) return {1, fraction(1, n)};
        }
    }
    return {1, 1};
}

// Gives each pile the operators of all that translations take there.
void gather_repeated(std::vector<position_pile>& piles, const lattice& translations) {
    std::vector<std::vector<std::size_t>> all;
    for (const position_pile& to : piles) {
        const scaled_vector at = translations.scaled(to.first.trans);
        all.emplace_back();
        for (const position_pile& from : piles) {
            if (!same_projection(to.first, from.first)) continue;
            const scaled_vector start = translations.scaled(from.first.trans);
            if (!translations.has_over({at[0] - start[0], at[1] - start[1]})) continue;
            all.back().insert(all.back().end(), from.operators.begin(), from.operators.end());
        }
        std::sort(all.back().begin(), all.back().end());
    }
    for (std::size_t i = 0; i < piles.size(); ++i) piles[i].operators = all[i];
}

}  // namespace

position_piles piles_of(std::span<const symop> operators, int axis) {
    constexpr std::size_t many = 20;
    constexpr std::size_t too_many = 34;
    const std::vector<symop> in_view = to_view(operators, axis);
    position_piles set;
    for (std::size_t op = 0; op < in_view.size(); ++op) add(set.piles, op, in_view[op]);
    set.is_dense = set.piles.size() > many;
    const lattice translations(in_view);
    if (set.piles.size() > too_many) set.part = repeated_part(translations);
    set.mates_at = translations.upward_antitranslation();
    tell_heights(set, operators, axis);
    if (set.part != drawn_part{1, 1}) gather_repeated(set.piles, translations);
    return set;
}

}  // namespace lomar
