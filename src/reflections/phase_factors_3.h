#pragma once

#include "foundation/ctr_3.h"

/// A complex number.
struct phase_factor_3 {
    double re;
    double im;
};

inline phase_factor_3 operator*(const phase_factor_3& a, const phase_factor_3& b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
inline phase_factor_3 conjugate(const phase_factor_3& a) { return {a.re, -a.im}; }

/// exp(i m angle) for integers m, out of two short tables: that of m is the product of the one for
/// the part of m below a power of two, and the one for the rest. Right to 1e-9 for m up to a
/// million.
class phase_factors_3 {
public:
    /// For m of at most `largest` in size.
    void set_up(double angle, int largest);

    phase_factor_3 of(int m) const {
        if (m < 0) return conjugate(of(-m));
        const phase_factor_3& rest = low_[m & (low_.n - 1)];
        return m < low_.n ? rest : rest * high_[m >> shift_];
    }

    /// The number of values in the table for small m, a power of two.
    int block() const { return low_.n; }

private:
    list_0_3<phase_factor_3> low_;
    list_0_3<phase_factor_3> high_;
    int shift_ = 0;
};
