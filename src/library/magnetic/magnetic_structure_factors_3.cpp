#include "library/magnetic/magnetic_structure_factors_3.h"

#include "library/magnetic/sum_into_mag_3.h"

namespace {

number_store_3 store_of(list_0_3<mag_factor_3>& rows) { return {rows[0].part, 6, rows.n}; }

}  // namespace

void magnetic_structure_factors_3::set_up(const xyz_list_3& ops, const list_0_3<triple_3>& hkls) {
    terms_.set_up(ops, hkls, true);
    rows_.new_n_zero(hkls.n);
}

// The kernels take the phases of the atom through the translation sums of each group; what they
// leave in `w` is laid down along the moment of the group.
void magnetic_structure_factors_3::sum_atom(const mag_atom_3& atom) {
    const sg_phase_sum_3& sum = terms_.sum;
    terms_.take_position(atom.position);
    sum.vector_moments_3(atom.moment, moments_, entries_);
    for (int g = 0; g < sum.groups.n; ++g) {
        if (sum.mag_members[g].n == 0) continue;
        terms_.fill_row(g);
        sum.rotate[g](terms_.w, sum.sum_index[g], sum.sum_records, g, rows_.n);
        entries_[g]->sum(g, terms_.w, store_of(rows_), moments_[g]);
    }
}

void magnetic_structure_factors_3::sum(const list_0_3<mag_atom_3>& atoms,
                                       const scattering_table_3& table,
                                       list_0_3<mag_factor_3>& result) {
    result.new_n_zero(rows_.n);
    if (rows_.n == 0) return;
    for (const mag_atom_3& atom : atoms) {
        sum_atom(atom);
        table.factors_of(atom.occupancy, atom.b_iso, atom.form_factor, factors_);
        mask_entry(0)->sum_scaled(store_of(result), store_of(rows_), factors_);
    }
}
