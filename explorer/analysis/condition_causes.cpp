#include "analysis/condition_causes.h"

#include <algorithm>
#include <string_view>
#include <tuple>

#include "analysis/symmetry_element.h"

namespace lomar {

fraction_vector phases_of(const fraction_vector& trans, const hkl_class& which) {
    return modulo_one(transposed(which.pattern) * trans);
}

std::vector<fraction_vector> multiples_of(const fraction_vector& phases) {
    std::vector<fraction_vector> result = {{}};
    for (fraction_vector sum = phases; sum != fraction_vector{}; sum = modulo_one(sum + phases)) {
        result.push_back(sum);
    }
    return result;
}

namespace {

bool imply(const fraction_vector& phases, const fraction_vector& wanted) {
    const std::vector<fraction_vector> all = multiples_of(phases);
    return std::find(all.begin(), all.end(), wanted) != all.end();
}

std::string direction_text(const int_vector& v) {
    for (std::size_t i = 0; i < 3; ++i) {
        int_vector edge{};
        edge[i] = 1;
        if (v == edge) return std::string(1, "abc"[i]);
    }
    return "[" + axis_text(v) + "]";
}

int n_parts(const int_vector& v) {
    return static_cast<int>(std::count_if(v.begin(), v.end(), [](int part) { return part != 0; }));
}

constexpr std::string_view glide_letters = "abcnd";

// The letter of a glide plane: International Tables for Crystallography A (2016), 1.4.1; 0 for a
// glide that has none. On a diagonal plane n and a half along the edge in it alternate: n is said
// in primitive cubic groups alone, as symbols do.
char glide_letter(const symmetry_element& plane, bool diagonal_n) {
    const fraction half(1, 2);
    const fraction_vector g = modulo_one(plane.intrinsic);
    int n_halves = 0;
    int n_quarters = 0;
    std::size_t place = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        if (g[i].is_zero()) continue;
        if (g[i].den() != 2 && g[i].den() != 4) return 0;
        (g[i] == half ? n_halves : n_quarters) += 1;
        if (g[i] == half && (n_halves == 1 || plane.axis[i] == 0)) place = i;
    }
    const bool diagonal = n_parts(plane.axis) > 1;
    if (n_quarters > 0) return n_halves == 0 && n_quarters == (diagonal ? 3 : 2) ? 'd' : '\0';
    if (n_halves == 0) return 0;
    if (diagonal) return diagonal_n ? 'n' : "abc"[place];
    return n_halves == 1 ? "abc"[place] : 'n';
}

}  // namespace

condition_causes::condition_causes(const space_group& group) : group_(group) {
    const std::size_t n = group.primitive_order();
    for (std::size_t i = 0; i < n; ++i) {
        const symmetry_element element = element_of(group.operators[i]);
        if (element.kind < 2 && element.kind != -2) continue;
        rotation_copies copies{group.operators[i].rot, element.kind, element.axis, {}};
        for (std::size_t j = i; j < group.operators.size(); j += n) {
            copies.operators.push_back(group.operators[j]);
        }
        rotations_.push_back(copies);
    }
    std::stable_sort(rotations_.begin(), rotations_.end(),
                     [](const rotation_copies& a, const rotation_copies& b) {
                         if ((a.kind < 0) != (b.kind < 0)) return a.kind < 0;
                         return std::tuple(-a.kind, n_parts(a.axis), b.axis) <
                                std::tuple(-b.kind, n_parts(b.axis), a.axis);
                     });
}

bool condition_causes::from_centring(const hkl_class& which, const fraction_vector& phases) const {
    return std::any_of(
        group_.centring.begin(), group_.centring.end(),
        [&](const fraction_vector& vector) { return imply(phases_of(vector, which), phases); });
}

std::vector<std::string> condition_causes::of(const hkl_class& which,
                                              const fraction_vector& phases) const {
    if (from_centring(which, phases)) {
        if (group_.lattice == 0) return {"centring"};
        return {std::string(1, group_.lattice) + " centring"};
    }
    std::vector<std::string> result;
    std::vector<int_vector> axes_met;
    for (const rotation_copies& copies : rotations_) {
        if (!which.fixed_by(copies.rot)) continue;
        const bool met = std::find(axes_met.begin(), axes_met.end(), copies.axis) != axes_met.end();
        if (copies.kind > 0 && met) continue;
        const std::string text = cause(copies, which, phases);
        if (text.empty()) continue;
        result.push_back(text);
        if (copies.kind > 0) axes_met.push_back(copies.axis);
    }
    return result;
}

// Whether the operator and the centring together make the phases.
bool condition_causes::with_centring(const symop& op, const hkl_class& which,
                                     const fraction_vector& phases) const {
    for (const fraction_vector& multiple : multiples_of(phases_of(op.trans, which))) {
        for (const fraction_vector& vector : group_.centring) {
            if (modulo_one(multiple + phases_of(vector, which)) == phases) return true;
        }
    }
    return false;
}

// The best name among the copies: of those that make the phases by themselves, then of those that
// do so together with the centring.
std::string condition_causes::cause(const rotation_copies& copies, const hkl_class& which,
                                    const fraction_vector& phases) const {
    if (!with_centring(copies.operators[0], which, phases)) return {};
    constexpr int together = 10;
    cause_name best{4 * together, ""};
    for (const symop& op : copies.operators) {
        cause_name name = copies.kind < 0 ? glide_name(op) : screw_name(op);
        if (!imply(phases_of(op.trans, which), phases)) name.rank += together;
        if (!name.text.empty()) best = std::min(best, name);
    }
    return best.text;
}

condition_causes::cause_name condition_causes::glide_name(const symop& op) const {
    const symmetry_element element = element_of(op);
    if (element.intrinsic == fraction_vector{}) return {};
    const char letter =
        glide_letter(element, group_.lattice == 'P' && group_.row->crystal_system == "cubic");
    const std::string normal = " normal to " + direction_text(element.axis);
    if (letter == 0) return {20, "glide plane" + normal};
    return {static_cast<int>(glide_letters.find(letter)),
            std::string(1, letter) + " glide" + normal};
}

condition_causes::cause_name condition_causes::screw_name(const symop& op) const {
    const symmetry_element element = element_of(op);
    // The shortest translation along the axis is 1 / parts of the axis vector.
    std::int64_t parts = 1;
    for (std::int64_t n = 2; n <= static_cast<std::int64_t>(group_.centring.size()); ++n) {
        fraction_vector part;
        for (std::size_t i = 0; i < 3; ++i) part[i] = fraction(element.axis[i], n);
        const auto& centring = group_.centring;
        if (std::find(centring.begin(), centring.end(), modulo_one(part)) != centring.end()) {
            parts = n;
        }
    }
    std::size_t i = 0;
    while (element.axis[i] == 0) ++i;
    const fraction turns =
        element.intrinsic[i] / fraction(element.axis[i]) * fraction(element.kind) * fraction(parts);
    std::int64_t screw = turns.floor() % element.kind;
    if (element.sense < 0) screw = -screw;
    screw = (screw + element.kind) % element.kind;
    if (screw == 0) return {};
    return {static_cast<int>(screw), std::to_string(element.kind) + std::to_string(screw) +
                                         " screw along " + direction_text(element.axis)};
}

}  // namespace lomar
