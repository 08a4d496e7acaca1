#pragma once

#include "reflections/sg_phase_sum_3.h"

/// Sine and cosine of m times the phase of each rotation row, for one position and all integers m
/// up to a limit: the phase factor of a reflection is a product of three of them.
class row_factors_3 {
public:
    /// `phases` are those of the groups of `sum` for the position.
    void make(const sg_phase_sum_3& sum, const phase_list_3& phases, int largest);

    /// The factors of a row: elements -largest to largest may be used.
    const sine_cosine_3* of(int row) const {
        return factors_.p + (row * (2 * std::ptrdiff_t{largest_} + 1) + largest_);
    }

    bool is_empty() const { return factors_.n == 0; }
    void clear() { factors_.clear(); }

private:
    list_0_3<sine_cosine_3> factors_;
    int largest_ = 0;
};
