#include "reflections/near_zeros_3.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double half_turn = 3.141592653589793;  // in radians
constexpr double longest = 0.02;                 // half the length of an interval
constexpr double rounding = 1e-9;                // far more than that of a table

double fraction(double x) { return x - std::floor(x); }

}  // namespace

void near_zeros_3::set_up(double angle, int n) {
    multiples_.set_n(n);
    for (int l = 0; l < n; ++l) multiples_[l] = {fraction(l * angle / half_turn), l};
    sort(multiples_);
}

bool near_zeros_3::find(const phase_factor_3& c, double limit, int_list_3& found) const {
    const double size = std::max(std::abs(c.re), std::abs(c.im));  // at most |c|
    if (!(limit < 2.0 * longest * size)) return false;
    const double half = limit / (2.0 * size) + rounding;
    const double begin = fraction(0.5 - half - std::atan2(c.im, c.re) / half_turn);
    const multiple* const end = multiples_.end();
    const multiple* m = std::lower_bound(
        multiples_.begin(), end, begin,
        [](const multiple& each, double value) { return each.half_turns < value; });
    for (int i = 0; i < multiples_.n; ++i, ++m) {
        if (m == end) m = multiples_.begin();
        if (fraction(m->half_turns - begin) > 2.0 * half) break;
        found.add(m->l);
    }
    return true;
}
