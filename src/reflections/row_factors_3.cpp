#include "reflections/row_factors_3.h"

#include <cmath>

void row_factors_3::make(const sg_phase_sum_3& sum, const phase_list_3& phases, int largest) {
    list_0_3<double> angles;
    angles.new_n_zero(sum.rows.n);
    for (int g = 0; g < sum.groups.n; ++g) {
        for (int i = 0; i < 3; ++i) angles[sum.group_rows[g][i]] = phases[g].row[i];
    }
    largest_ = largest;
    factors_.set_n(sum.rows.n * (2 * largest + 1));
    for (int row = 0; row < angles.n; ++row) {
        sine_cosine_3* const zero = &factors_[row * (2 * largest + 1) + largest];
        for (int m = 0; m <= largest; ++m) {
            const double s = std::sin(m * angles[row]);
            const double c = std::cos(m * angles[row]);
            zero[m] = {s, c};
            zero[-m] = {-s, c};
        }
    }
}
