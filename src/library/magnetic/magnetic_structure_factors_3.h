#pragma once

#include "library/scattering/structure_factors_3.h"

/// A magnetic atom of the asymmetric unit.
struct mag_atom_3 {
    double position[3] = {0.0, 0.0, 0.0};  ///< fractional coordinates
    double moment[3] = {0.0, 0.0, 0.0};    ///< components along a, b, c, in Bohr magnetons
    double occupancy = 1.0;                ///< as in sf_atom_3
    double b_iso = 0.0;
    int form_factor = 0;
};

/// What magnetic_structure_factors_3 gives, a complex vector: real and imaginary part along a, then
/// along b, then along c, in 1e-12 cm.
struct mag_factor_3 {
    double part[6];
};

/// Magnetic structure factors: the sum over all atoms and operators of
///
///     0.2695 f sign det(R) R m exp(2 pi i h (R x + t))
///
/// where the sign is the time reversal in the tag of the operator. An operator that has both signs
/// (tag 2) contributes nothing.
class magnetic_structure_factors_3 {
public:
    /// `ops` is the whole group, each operator once, centring copies included, and must outlive the
    /// object.
    void set_up(const xyz_list_3& ops, const list_0_3<triple_3>& hkls);

    /// Puts a vector for each reflection into `result`. The lists of `table` that atoms ask for
    /// must be as long as the list of reflections.
    void sum(const list_0_3<mag_atom_3>& atoms, const scattering_table_3& table,
             list_0_3<mag_factor_3>& result);

private:
    void sum_atom(const mag_atom_3& atom);

    reflection_terms_3 terms_;
    moment_list_3 moments_;
    mag_entry_list_3 entries_;
    list_0_3<mag_factor_3> rows_;  ///< the contribution of one atom
    list_0_3<double> factors_;
};
