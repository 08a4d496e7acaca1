#include "analysis/standard_search.h"

#include <cstdlib>

namespace lomar {

namespace {

std::size_t lattice_points(char letter) {
    switch (letter) {
        case 'P':
            return 1;
        case 'F':
            return 4;
        case 'R':
            return 3;
        default:
            return 2;
    }
}

fraction sum_of(const fraction_matrix& m) {
    fraction total;
    for (const auto& row : m) total += row[0] + row[1] + row[2];
    return total;
}

// Of two changes of equal cost, whether the first is to be taken.
bool comes_before(const basis_change& a, const basis_change& b) {
    if (a.origin != b.origin) return a.origin < b.origin;
    const fraction sum_a = sum_of(a.matrix), sum_b = sum_of(b.matrix);
    return sum_a != sum_b ? sum_a > sum_b : a.matrix > b.matrix;
}

}  // namespace

standard_search::standard_search(const fraction_matrix& lattice_basis,
                                 std::span<const symop> operators)
    : type_(point_group_of(operators)),
      bases_(lattice_basis, operators, type_.family),
      matcher_(lattice_basis, operators) {}

const standard_search::targets& standard_search::targets_with(std::size_t count) {
    const auto [at, is_new] = targets_.try_emplace(count);
    if (!is_new) return at->second;
    int last_number = 0;
    for (const setting& row : settings()) {
        if (row.point_group != type_.name || lattice_points(row.symbol[0]) != count) continue;
        if (row.number == last_number || &row != &standard_setting(row.number)) continue;
        last_number = row.number;
        at->second.push_back(std::make_shared<known_setting>(row));
    }
    return at->second;
}

void standard_search::improve(const candidate_basis& candidate,
                              const std::shared_ptr<const known_setting>& target,
                              std::optional<standard_place>& best) const {
    const auto origin = matcher_.origin(*target, candidate.columns);
    if (!origin) return;
    const basis_change change = matcher_.change(candidate.columns, *origin);
    if (best && !comes_before(change, best->change)) return;
    best = standard_place{target, candidate.columns, change, candidate.cost};
}

void standard_search::consider(const candidate_basis& candidate, const condition& holds, int number,
                               std::optional<standard_place>& best) {
    const int volume = std::abs(determinant(candidate.columns));
    for (const auto& target : targets_with(static_cast<std::size_t>(volume))) {
        // A group has one number, so the first answer says which.
        if (number != 0 && target->group.row->number != number) continue;
        if (best && best->target != target) continue;
        if (holds && !holds(candidate.columns, *target)) continue;
        improve(candidate, target, best);
    }
}

std::optional<standard_place> standard_search::find(int number, const condition& holds) {
    std::optional<standard_place> best;
    for (const candidate_basis& candidate : bases_.first()) {
        if (best && candidate.cost > best->cost) break;
        consider(candidate, holds, number, best);
    }
    if (bases_.finite() || !best) return best;
    std::optional<standard_place> least;
    for (const candidate_basis& candidate : bases_.up_to(best->cost)) {
        if (least && candidate.cost > least->cost) break;
        consider(candidate, holds, number == 0 ? best->target->group.row->number : number, least);
    }
    return least ? least : best;
}

}  // namespace lomar
