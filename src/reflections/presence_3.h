#pragma once

#include "reflections/index_residues_3.h"
#include "reflections/row_factors_3.h"

/// Decides quickly, where that is safe, whether a structure factor vanishes. The sums of a group
/// repeat with the residues of the indices, and the phase factor of a reflection is a product of
/// one factor for each index: both are looked up. Where the result lies near a limit, the caller
/// must do the full evaluation.
class presence_3 {
public:
    enum verdict { absent, present, unsure };

    /// For reflections with indices of at most `largest_index` in size. The set-up must outlive
    /// the object. `phases` are those of the position that the evaluation takes first.
    void set_up(const sg_phase_sum_3& sum, const phase_list_3& phases, int largest_index);

    /// The reflections asked for next have these two indices.
    void begin_line(int h, int k);

    verdict test(int l);

private:
    struct residue_sums {
        int first;      ///< place of the group sums in `sums_`, not_found until they are needed
        bool vanishes;  ///< all of them are zero
    };

    const residue_sums& sums_of(int h, int k, int l);
    void make_line();

    const sg_phase_sum_3* sum_ = nullptr;
    const phase_list_3* phases_ = nullptr;
    bool usable_ = false;
    int largest_ = 0;
    int h_ = 0;
    int k_ = 0;
    bool line_made_ = false;
    index_residues_3 residues_;
    list_0_3<residue_sums> of_residues_;
    sum_list_3 sums_;
    sum_list_3 scratch_;
    row_factors_3 factors_;
    list_0_3<sine_cosine_3> line_;  ///< for each group the product of the factors for h_ and k_
};
