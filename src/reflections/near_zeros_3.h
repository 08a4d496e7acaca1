#pragma once

#include "foundation/sorted.h"
#include "reflections/phase_factors_3.h"

/// Tells for which l, from 0 up to below n, the number Re(c exp(i l angle)) is near 0, without a
/// look at each of them.
///
/// It is |c| times the sine of a distance, that of l angle + arg c from the nearest zero of the
/// cosine. In half turns such a distance d is at most 1/2, and the sine of it at least 2 d. So l
/// angle, modulo half a turn, lies in a short interval about a value that c gives. In a table with
/// the multiples of the angle sorted by what they are modulo half a turn the members of such an
/// interval are next to each other.
class near_zeros_3 {
public:
    void set_up(double angle, int n);

    /// Appends all l with a number of at most `limit` in size, and maybe some more. False, and
    /// nothing is appended, if c is so small that the interval would be long.
    bool find(const phase_factor_3& c, double limit, int_list_3& found) const;

private:
    struct multiple {
        double half_turns;  ///< from 0 to 1
        int l;

        friend bool element_less(const multiple& a, const multiple& b) {
            return a.half_turns < b.half_turns;
        }
    };

    list_0_3<multiple> multiples_;  ///< sorted
};
