#include "reflections/presence_3.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace {

// Tables beyond these sizes would cost more than they save.
constexpr int most_residue_sums = 1 << 17;
constexpr int most_factors = 1 << 16;

// A sum of cosines or sines of whole degrees below this is zero; the table is good to 1e-14.
constexpr double zero_sum = 1e-11;

// An evaluation ends with "present" as soon as a part exceeds 1e-4. The quick one errs by far less
// than the difference to this.
constexpr double surely_present = 2e-4;

}  // namespace

void presence_3::set_up(const sg_phase_sum_3& sum, const phase_list_3& phases, int largest_index) {
    sum_ = &sum;
    phases_ = &phases;
    residues_.set_up(*sum.ops);
    const std::int64_t n_residues = residues_.count();
    const std::int64_t n_factors = std::int64_t{sum.rows.n} * (2 * std::int64_t{largest_index} + 1);
    usable_ =
        n_residues * std::max(sum.groups.n, 1) <= most_residue_sums && n_factors <= most_factors;
    if (!usable_) return;
    of_residues_.set_n(static_cast<int>(n_residues));
    of_residues_.fill({not_found, false});
    largest_ = largest_index;
    factors_.clear();
    sums_.clear();
}

void presence_3::begin_line(int h, int k) {
    h_ = h;
    k_ = k;
    line_made_ = false;
}

void presence_3::make_line() {
    if (factors_.is_empty()) factors_.make(*sum_, *phases_, largest_);
    line_.set_n(sum_->groups.n);
    for (int g = 0; g < line_.n; ++g) {
        const triple_3& rows = sum_->group_rows[g];
        const auto [s1, c1] = factors_.of(rows[0])[h_];
        const auto [s2, c2] = factors_.of(rows[1])[k_];
        line_[g] = {c1 * s2 + s1 * c2, c1 * c2 - s1 * s2};
    }
    line_made_ = true;
}

const presence_3::residue_sums& presence_3::sums_of(int h, int k, int l) {
    residue_sums& found = of_residues_[residues_.place(h, k, l)];
    if (found.first != not_found) return found;
    sum_->translation_sums(h, k, l, scratch_);
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
        const auto [s12, c12] = line_[g];
        const auto [s3, c3] = factors_.of(sum_->group_rows[g][2])[l];
        const double c = c12 * c3 - s12 * s3;
        const double s = c12 * s3 + s12 * c3;
        a += c * sums[g].a2 - s * sums[g].b2;
        b += s * sums[g].a1 + c * sums[g].b1;
    }
    return std::abs(a) > surely_present || std::abs(b) > surely_present ? present : unsure;
}
