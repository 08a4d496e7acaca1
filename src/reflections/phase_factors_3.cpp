#include "reflections/phase_factors_3.h"

#include <cmath>

void phase_factors_3::set_up(double angle, int largest) {
    constexpr int most_bits = 9;
    shift_ = 0;
    while (shift_ < most_bits && (largest >> shift_) != 0) ++shift_;
    low_.set_n(1 << shift_);
    low_[0] = {1.0, 0.0};
    const phase_factor_3 one = {std::cos(angle), std::sin(angle)};
    for (int m = 1; m < low_.n; ++m) low_[m] = low_[m - 1] * one;
    high_.set_n((largest >> shift_) + 2);
    for (int q = 0; q < high_.n; ++q) {
        const double turned = static_cast<double>(q << shift_) * angle;
        high_[q] = {std::cos(turned), std::sin(turned)};
    }
}
