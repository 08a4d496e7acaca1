#pragma once

#include "library/scattering/reflection_terms_3.h"

/// An atom of the asymmetric unit.
struct sf_atom_3 {
    double position[3] = {0.0, 0.0, 0.0};  ///< fractional coordinates
    /// The part of the position that is filled, divided by site_order_3: 1 on a general position.
    double occupancy = 1.0;
    double b_iso = 0.0;   ///< B of the displacement factor exp(-B (sin theta / lambda)^2)
    int form_factor = 0;  ///< which column of form factors is the atom's
};

/// How many operators leave a point where it is, up to lattice translations and 1e-4 of a cell
/// edge.
int site_order_3(const xyz_list_3& ops, const double position[3]);

/// A structure factor a + ib.
struct structure_factor_3 {
    double a;
    double b;
};

/// What the factor of an atom in a reflection comes from: for each reflection (sin theta /
/// lambda)^2 and the form factors of each kind of atom.
struct scattering_table_3 {
    list_0_3<double> s_squared;
    list_0_3<list_0_3<double>> form_factors;

    /// occupancy * form factor * displacement factor, for each reflection.
    void factors_of(double occupancy, double b_iso, int column, list_0_3<double>& factors) const;
};

/// Structure factors A + iB: the sum over all atoms and operators of f exp(2 pi i h (R x + t)).
///
///     structure_factors_3 sums;
///     sums.set_up(ops, hkls);
///     sums.sum(atoms, table, result);
///
/// After one set_up, sum may be called as often as wanted. The former takes time in proportion to
/// operators and reflections; the latter to atoms, different rotations and reflections.
class structure_factors_3 {
public:
    /// `ops` is the whole group, each operator once, centring copies included, and must outlive the
    /// object.
    void set_up(const xyz_list_3& ops, const list_0_3<triple_3>& hkls);

    /// Puts a structure factor for each reflection into `result`. The lists of `table` that atoms
    /// ask for must be as long as the list of reflections.
    void sum(const list_0_3<sf_atom_3>& atoms, const scattering_table_3& table,
             list_0_3<structure_factor_3>& result);

private:
    void sum_atom(const sf_atom_3& atom);

    reflection_terms_3 terms_;
    int first_group_ = 0;
    list_0_3<structure_factor_3> rows_;  ///< the contribution of one atom
    list_0_3<double> factors_;
};
