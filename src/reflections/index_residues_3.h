#pragma once

#include "symmetry/xyz_op_3.h"

/// The sums that the translations of a group make for a reflection repeat when an index changes by
/// a period. This numbers the classes of indices with equal sums.
class index_residues_3 {
public:
    /// Finds the periods: 360 over the greatest common divisor of the translations along each axis.
    void set_up(const xyz_list_3& ops);

    /// How many classes there are.
    std::int64_t count() const { return std::int64_t{period_[0]} * period_[1] * period_[2]; }

    /// The class of a reflection, from 0; asked for only if an int holds count().
    int place(int h, int k, int l) const {
        return (residue(h, 0) * period_[1] + residue(k, 1)) * period_[2] + residue(l, 2);
    }

    /// What is left of an index, from 0 to the period of the axis.
    int residue(int index, int axis) const {
        const int r = index % period_[axis];
        return r < 0 ? r + period_[axis] : r;
    }

private:
    int period_[3] = {1, 1, 1};
};
