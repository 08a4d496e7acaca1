#include "library/magnetic/magnetic_groups.h"
#include "library/magnetic/sum_into_mag_3.h"
#include "reflections/sg_phase_sum_3.h"

namespace {

// Half the classical electron radius times the gyromagnetic ratio of the neutron: the scattering
// length of one Bohr magneton, in 1e-12 cm.
constexpr double scale_of_weights = 0.2695;

constexpr double degree_of_translation = 0.017453292519943278;

void sort_with_kinds(const xyz_list_3& ops, int_list_3& members, int_list_3& kinds,
                     xyz_list_3& sorted) {
    sorted.set_n(members.n);
    for (int i = 0; i < members.n; ++i) sorted[i] = ops[members[i]];
    normalise_xyzs_3(sorted);
    int_list_3 index;
    sort_index(sorted, index);
    apply_index(sorted, index);
    apply_index(members, index);
    apply_index(kinds, index);
}

mag_weight_3 weight_of(const xyz_op_3& op, int kind, double unit) {
    const double w = unit * op.tag * round_nearest(determinant(op));
    switch (kind) {
        case 1:
            return {w / 2, 0.0};
        case 2:
            return {0.0, w};
        case 3:
            return {0.0, 0.0};
        default:
            return {w, w};
    }
}

// Two members of equal sign that are related by the inversion have no imaginary part.
void drop_imaginary_parts(const xyz_list_3& sorted, list_0_3<mag_weight_3>& weights) {
    int_list_3 marked;
    marked.new_n_zero(sorted.n);
    for (int i = 0; i + 1 < sorted.n; ++i) {
        if (marked[i] != 0) continue;
        xyz_op_3 partner = sorted[i];
        negate_rotation(partner, 4);
        normalise(partner);
        const int j = bsearch(sorted, partner, i + 1, sorted.last());
        if (j == not_found) continue;
        marked[j] = 1;
        if (sorted[i].tag == sorted[j].tag) {
            weights[i].second = 0.0;
            weights[j].second = 0.0;
        }
    }
}

}  // namespace

void sg_phase_sum_3::set_up_magnetic(const xyz_list_3& ops_) {
    magnetic_steps magnetic;
    fold(ops_, &magnetic);
    int_list_3 counts;
    collect_members(magnetic, counts);
    mag_weights.new_n(groups.n);
    for (int g = 0; g < groups.n; ++g) {
        if (mag_members[g].n > 0) weigh_members(g, counts[g]);
    }
}

// Shares the operators with a single sign out among the groups; `counts` are the entries of each.
void sg_phase_sum_3::collect_members(const magnetic_steps& magnetic, int_list_3& counts) {
    mag_members.new_n(groups.n);
    mag_kinds.new_n(groups.n);
    counts.new_n_zero(groups.n);
    for (int e = 0; e < entries.n; ++e) {
        const int g = magnetic.entry_groups[e];
        for (int m = 0; m < entries[e].n; ++m) {
            const int member = entries[e][m];
            if ((*ops)[member].tag == both_signs_3) continue;
            mag_members[g].add(member);
            mag_kinds[g].add(magnetic.member_kinds[e][m]);
            if (m == 0) ++counts[g];
        }
    }
}

void sg_phase_sum_3::weigh_members(int g, int count) {
    xyz_list_3 sorted;
    sort_with_kinds(*ops, mag_members[g], mag_kinds[g], sorted);
    const double unit = scale_of_weights / count;
    list_0_3<mag_weight_3>& weights = mag_weights[g];
    for (int i = 0; i < sorted.n; ++i) weights.add(weight_of(sorted[i], mag_kinds[g][i], unit));
    drop_imaginary_parts(sorted, weights);
}

// The moments for a direction that the rotation of an operator takes to `column`.
template <typename Column>
void sg_phase_sum_3::find_moments(Column column, moment_list_3& moments,
                                  mag_entry_list_3& moment_entries) const {
    moments.new_n_zero(groups.n);
    moment_entries.new_n(groups.n);
    bool stored = false;
    for (int g = 0; g < groups.n; ++g) {
        const int n_members = g < mag_members.n ? mag_members[g].n : 0;
        for (int m = 0; m < n_members; ++m) {
            const xyz_op_3& op = (*ops)[mag_members[g][m]];
            const mag_weight_3& weight = mag_weights[g][m];
            for (int i = 0; i < 3; ++i) {
                moments[g].m[i] += column(op, i) * weight.first;
                moments[g].m[3 + i] += column(op, i) * weight.second;
            }
        }
        moment_entries[g] = mask_of(moments[g]).entry;
        if (stored || n_members == 0) continue;
        moment_entries[g] = moment_entries[g]->twin;
        stored = true;
    }
}

void sg_phase_sum_3::find_axis_moments_3(int axis) {
    if (axis_entries[axis].n != 0) return;
    const auto column = [axis](const xyz_op_3& op, int i) { return op.rot(i, axis); };
    find_moments(column, axis_moments[axis], axis_entries[axis]);
}

int sg_phase_sum_3::axis_has_moment_3(int axis) {
    find_axis_moments_3(axis);
    for (const B_sum_into_mag_3* entry : axis_entries[axis]) {
        if (entry->mask != 0) return 1;
    }
    return 0;
}

void sg_phase_sum_3::vector_moments_3(const double v[3], moment_list_3& moments,
                                      mag_entry_list_3& moment_entries) const {
    const auto column = [v](const xyz_op_3& op, int i) {
        return op.rot(i, 0) * v[0] + op.rot(i, 1) * v[1] + op.rot(i, 2) * v[2];
    };
    find_moments(column, moments, moment_entries);
}

void sg_phase_sum_3::add_group_translations_3(phase_list_3& phases) const {
    for (int g = 0; g < groups.n; ++g) {
        const xyz_op_3& op = (*ops)[groups[g][0]];
        for (int i = 0; i < 3; ++i) phases[g].row[i] += op.trans(i) * degree_of_translation;
    }
}
