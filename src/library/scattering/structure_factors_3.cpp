#include "library/scattering/structure_factors_3.h"

#include <cmath>

int site_order_3(const xyz_list_3& ops, const double position[3]) {
    constexpr double tolerance = 1e-4;
    int order = 0;
    for (const xyz_op_3& op : ops) {
        bool stays = true;
        for (int i = 0; i < 3; ++i) {
            double shift = static_cast<double>(op.trans(i)) / xyz_op_3::edge - position[i];
            for (int j = 0; j < 3; ++j) shift += op.rot(i, j) * position[j];
            stays = stays && std::abs(shift - std::round(shift)) < tolerance;
        }
        order += stays ? 1 : 0;
    }
    return order;
}

void scattering_table_3::factors_of(double occupancy, double b_iso, int column,
                                    list_0_3<double>& factors) const {
    const list_0_3<double>& f = form_factors[column];
    factors.set_n_discard(s_squared.n);
    if (b_iso == 0.0) {
        for (int r = 0; r < factors.n; ++r) factors[r] = occupancy * f[r];
    } else {
        for (int r = 0; r < factors.n; ++r) {
            factors[r] = occupancy * f[r] * std::exp(-b_iso * s_squared[r]);
        }
    }
}

void structure_factors_3::set_up(const xyz_list_3& ops, const list_0_3<triple_3>& hkls) {
    terms_.set_up(ops, hkls, false);
    rows_.new_n_zero(hkls.n);
    // The first kernel stores. One without unpaired operators leaves the imaginary part out, so
    // that it comes first only where there is none.
    const int unpaired = terms_.sum.group_unpaired.find(1);
    first_group_ = unpaired == not_found ? 0 : unpaired;
}

void structure_factors_3::sum_atom(const sf_atom_3& atom) {
    const sg_phase_sum_3& sum = terms_.sum;
    const number_store_3 out = {&rows_[0].a, 2, rows_.n};
    terms_.take_position(atom.position);
    for (int i = 0; i < sum.groups.n; ++i) {
        const int g = i == 0 ? first_group_ : i == first_group_ ? 0 : i;
        terms_.fill_row(g);
        const auto& kernels = sum.phase_out[g];
        const out_kernel_3 kernel = i == 0 ? kernels.first : kernels.next;
        kernel(out, terms_.w, sum.sum_index[g], sum.sum_records, g, rows_.n);
    }
}

void structure_factors_3::sum(const list_0_3<sf_atom_3>& atoms, const scattering_table_3& table,
                              list_0_3<structure_factor_3>& result) {
    result.new_n_zero(rows_.n);
    if (rows_.n == 0) return;
    for (const sf_atom_3& atom : atoms) {
        sum_atom(atom);
        table.factors_of(atom.occupancy, atom.b_iso, atom.form_factor, factors_);
        for (int r = 0; r < rows_.n; ++r) {
            result[r].a += factors_[r] * rows_[r].a;
            result[r].b += factors_[r] * rows_[r].b;
        }
    }
}
