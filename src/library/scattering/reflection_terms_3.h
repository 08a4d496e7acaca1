#pragma once

#include "reflections/index_residues_3.h"
#include "reflections/row_factors_3.h"

/// A list of reflections made ready for structure factors: the translation sums and kernels of
/// every group of operators, and for one atom at a time the phases that the kernels start from.
///
/// A phase is h a + k b + l c with the phases a, b, c of three rotation rows. Where that pays, its
/// sine and cosine are a product of three factors that are looked up; that of h and k is kept for a
/// run of reflections in which they stay, so that a sorted list is quickest.
class reflection_terms_3 {
public:
    using hkl_list = list_0_3<triple_3>;

    reflection_terms_3() = default;
    reflection_terms_3(const reflection_terms_3&) = delete;
    reflection_terms_3& operator=(const reflection_terms_3&) = delete;

    /// `ops` must outlive the object, and hold centring copies too. With `magnetic` their tags
    /// carry signs.
    void set_up(const xyz_list_3& ops, const hkl_list& hkls, bool magnetic);

    /// Takes an atom in fractional coordinates.
    void take_position(const double position[3]);

    /// Fills the row of `w` with the phases of the atom in a group.
    void fill_row(int group);

    /// The number of reflections.
    int n() const { return l_.n; }

    sg_phase_sum_3 sum;
    number_store_3 w;  ///< one row that all groups share, one after the other

private:
    // Reflections that follow each other with the same h and k, up to the one before `end`.
    struct run {
        int h;
        int k;
        int end;
    };

    void record_all_sums();
    void find_runs(const hkl_list& hkls);
    void fill_by_factors(int group);
    void fill_by_angles(int group);

    int_list_3 l_;
    list_0_3<run> runs_;
    std::int64_t largest_ = 0;  ///< no index is beyond this or below its negative
    bool by_factors_ = false;
    phase_list_3 phases_;
    row_factors_3 factors_;
    list_0_3<sine_cosine_3> pairs_;  ///< what w points to
};
