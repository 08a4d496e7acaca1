#pragma once

#include "foundation/ctr_3.h"

/// The integers from `first` to `last`, both included; none if `last` is below `first`.
struct interval_3 {
    int first;
    int last;
};

/// A set of integers, kept as the intervals that it consists of: they ascend, and between two of
/// them at least one integer is missing. Members can be added in any order, which takes no memory
/// beyond the room that was asked for.
class interval_union_3 {
public:
    /// Makes room for as many intervals.
    void reserve(int n) { parts_.set_max_n(n, true); }
    void clear() { parts_.n = 0; }
    bool is_empty() const { return parts_.n == 0; }

    /// Adds the members of an interval, if it has any.
    void add(interval_3 added);

    const interval_3* begin() const { return parts_.begin(); }
    const interval_3* end() const { return parts_.end(); }

private:
    list_0_3<interval_3> parts_;
};
