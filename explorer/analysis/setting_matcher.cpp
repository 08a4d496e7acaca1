#include "analysis/setting_matcher.h"

#include <algorithm>
#include <stdexcept>

#include "analysis/group_closure.h"
#include "analysis/whole_vectors.h"

namespace lomar {

namespace {

translation_lattice lattice_of(std::span<const fraction_vector> centring) {
    translation_lattice lattice;
    for (const fraction_vector& v : centring) lattice.add(v);
    return lattice;
}

std::vector<symop> generators_of(const space_group& group, const fraction_matrix& primitive) {
    const basis_change change{primitive, {}};
    std::vector<symop> operators;
    for (const symop& op : group.representatives()) operators.push_back(transformed(op, change));
    // Those of high order first: few of them make all others.
    std::stable_sort(operators.begin(), operators.end(), [](const symop& a, const symop& b) {
        return rotation_order(a.rot) > rotation_order(b.rot);
    });
    group_closure closure;
    for (const symop& op : operators) closure.add(op);
    return closure.generators();
}

std::vector<int_matrix> rotations_of(const std::vector<symop>& operators) {
    std::vector<int_matrix> result;
    for (const symop& op : operators) result.push_back(op.rot);
    return result;
}

bool is_unimodular(const fraction_matrix& m) {
    if (!is_whole(m)) return false;
    const fraction volume = determinant(m);
    return volume == fraction(1) || volume == fraction(-1);
}

}  // namespace

known_setting::known_setting(const setting& row)
    : group(group_of(row)),
      primitive(lattice_of(group.centring).short_basis()),
      back(inverse(primitive)),
      generators(generators_of(group, primitive)),
      shifts(rotations_of(generators)) {}

setting_matcher::setting_matcher(const fraction_matrix& lattice_basis,
                                 std::span<const symop> operators)
    : basis_(lattice_basis) {
    for (const symop& op : operators) translations_.emplace(op.rot, op.trans);
}

std::optional<fraction_vector> setting_matcher::origin(const known_setting& target,
                                                       const int_matrix& columns,
                                                       const fraction_vector& offset) const {
    // The setting's lattice, in terms of the input's, must be the same.
    const fraction_matrix exact = to_fractions(columns) * target.primitive;
    if (target.group.primitive_order() != translations_.size() || !is_unimodular(exact)) return {};
    const int_matrix to_target = to_integers(exact);
    const int_matrix from_target = to_integers(inverse(exact));
    std::vector<fraction_vector> differences;
    for (const symop& generator : target.generators) {
        const auto found = translations_.find(to_target * generator.rot * from_target);
        if (found == translations_.end()) return {};
        differences.push_back(modulo_one(generator.trans - from_target * found->second));
    }
    const std::optional<fraction_vector> shift = target.shifts.solve(differences);
    if (!shift) return {};
    const fraction_matrix into_input = basis_ * exact;
    std::vector<fraction_vector> periods, free;
    for (const fraction_vector& v : target.shifts.periods()) periods.push_back(into_input * v);
    for (const fraction_vector& v : target.shifts.free_directions()) free.push_back(into_input * v);
    return smallest_point(into_input * *shift - offset, std::move(periods), std::move(free));
}

basis_change setting_matcher::change(const int_matrix& columns,
                                     const fraction_vector& origin) const {
    return {basis_ * to_fractions(columns), origin};
}

bool is_taken_onto(const fraction_matrix& lattice_basis, std::span<const symop> operators,
                   const basis_change& change, std::span<const symop> representatives,
                   std::span<const fraction_vector> centring) {
    const translation_lattice lattice = lattice_of(centring);
    const fraction_matrix new_basis = inverse(change.matrix) * lattice_basis;
    for (std::size_t i = 0; i < 3; ++i) {
        if (!lattice.contains(column(new_basis, i))) return false;
    }
    const fraction volume =
        determinant(new_basis) * fraction(static_cast<std::int64_t>(centring.size()));
    if (volume != fraction(1) && volume != fraction(-1)) return false;
    // From the lattice's basis to the setting's axes in one step.
    const fraction_matrix into_basis = inverse(lattice_basis);
    const basis_change whole{into_basis * change.matrix, into_basis * change.origin};
    std::vector<symop> found, wanted;
    for (const symop& op : operators) {
        symop now = transformed(op, whole);
        now.trans = lattice.reduced(now.trans);
        found.push_back(now);
    }
    for (symop op : representatives) {
        op.trans = lattice.reduced(op.trans);
        wanted.push_back(op);
    }
    std::sort(found.begin(), found.end());
    std::sort(wanted.begin(), wanted.end());
    return found == wanted;
}

}  // namespace lomar
