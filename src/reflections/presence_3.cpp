#include "reflections/presence_3.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numeric>

namespace {

// Tables beyond these sizes would cost more than they save.
constexpr int most_residue_sums = 1 << 17;
constexpr int most_factors = 1 << 16;

// A sum of cosines or sines of whole degrees below this is zero; the table is good to 1e-14.
constexpr double zero_sum = 1e-11;

// An evaluation ends with "present" as soon as a part exceeds 1e-4. The quick one errs by far less
// than the difference to this.
constexpr double surely_present = 2e-4;

int residue(int index, int period) {
    const int r = index % period;
    return r < 0 ? r + period : r;
}

}  // namespace

void presence_3::set_up(const sg_phase_sum_3& sum, const phase_list_3& phases, int largest_index) {
    sum_ = &sum;
    phases_ = &phases;
    std::int64_t n_residues = 1;
    for (int i = 0; i < 3; ++i) {
        int step = xyz_op_3::edge;
        for (const xyz_op_3& op : *sum.ops) {
            step = std::gcd(step, op.trans(i) % xyz_op_3::edge);
        }
        period_[i] = xyz_op_3::edge / step;
        n_residues *= period_[i];
    }
    const std::int64_t n_factors = std::int64_t{sum.rows.n} * (2 * std::int64_t{largest_index} + 1);
    usable_ =
        n_residues * std::max(sum.groups.n, 1) <= most_residue_sums && n_factors <= most_factors;
    if (!usable_) return;
    residues_.set_n(static_cast<int>(n_residues));
    residues_.fill({not_found, false});
    largest_ = largest_index;
    factors_.clear();
    sums_.clear();
}

void presence_3::make_factors(int largest_index) {
    list_0_3<double> angles;
    angles.new_n_zero(sum_->rows.n);
    for (int g = 0; g < sum_->groups.n; ++g) {
        for (int i = 0; i < 3; ++i) angles[sum_->group_rows[g][i]] = (*phases_)[g].row[i];
    }
    factors_.set_n(sum_->rows.n * (2 * largest_index + 1));
    factor* out = factors_.block();
    for (double angle : angles) {
        for (int m = -largest_index; m <= largest_index; ++m) {
            *out++ = {std::cos(m * angle), std::sin(m * angle)};
        }
    }
}

void presence_3::begin_line(int h, int k) {
    h_ = h;
    k_ = k;
    line_made_ = false;
}

void presence_3::make_line() {
    if (factors_.n == 0) make_factors(largest_);
    line_.set_n(sum_->groups.n);
    for (int g = 0; g < line_.n; ++g) {
        const triple_3& rows = sum_->group_rows[g];
        const factor& a = factor_of(rows[0], h_);
        const factor& b = factor_of(rows[1], k_);
        line_[g] = {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
    }
    line_made_ = true;
}

const presence_3::residue_sums& presence_3::sums_of(int h, int k, int l) {
    const int r[3] = {residue(h, period_[0]), residue(k, period_[1]), residue(l, period_[2])};
    residue_sums& found = residues_[(r[0] * period_[1] + r[1]) * period_[2] + r[2]];
    if (found.first != not_found) return found;
    sum_->translation_sums(r[0], r[1], r[2], scratch_);
    found.first = sums_.n;
    found.vanishes = true;
    for (const translation_sum_3& s : scratch_) {
        sums_.add(s);
        for (const double part : {s.a1, s.b1, s.a2, s.b2}) {
            if (std::abs(part) > zero_sum) found.vanishes = false;
        }
    }
    return found;
}

presence_3::verdict presence_3::test(int l) {
    if (!usable_) return unsure;
    const residue_sums& residue = sums_of(h_, k_, l);
    if (residue.vanishes) return absent;
    if (!line_made_) make_line();
    const translation_sum_3* const sums = sums_.block() + residue.first;
    double a = 0.0;
    double b = 0.0;
    for (int g = 0; g < line_.n; ++g) {
        const factor& hk = line_[g];
        const factor& third = factor_of(sum_->group_rows[g][2], l);
        const double c = hk.re * third.re - hk.im * third.im;
        const double s = hk.re * third.im + hk.im * third.re;
        a += c * sums[g].a2 - s * sums[g].b2;
        b += s * sums[g].a1 + c * sums[g].b1;
    }
    return std::abs(a) > surely_present || std::abs(b) > surely_present ? present : unsure;
}
