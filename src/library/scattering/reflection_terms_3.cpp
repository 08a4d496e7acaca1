#include "library/scattering/reflection_terms_3.h"

#include <algorithm>
#include <cmath>

#include "library/scattering/double_pair.h"

namespace {

// A memo of more residues than this would cost more than it saves.
constexpr std::int64_t most_known_residues = 1 << 17;

// Up to so many factors are made even if they outnumber the phases; more are never made.
constexpr std::int64_t least_phase_factors = 1 << 12;
constexpr std::int64_t most_phase_factors = 1 << 22;

// (s, c) of the sum of two angles, from those of each.
double_pair_3 joined(double_pair_3 x, const sine_cosine_3& y) {
    const double_pair_3 turned = {x[1], -x[0]};
    return x * both(y.cosine) + turned * both(y.sine);
}

}  // namespace

void reflection_terms_3::set_up(const xyz_list_3& ops, const hkl_list& hkls, bool magnetic) {
    if (magnetic) {
        sum.set_up_magnetic(ops);
    } else {
        sum.set_up(ops);
    }
    find_runs(hkls);
    pairs_.set_n(n());
    w = {n() > 0 ? &pairs_[0].sine : nullptr, 0, 1};
    record_all_sums();
    sum.select_kernels(n());
    const std::int64_t n_factors = std::int64_t{sum.rows.n} * (2 * largest_ + 1);
    const std::int64_t n_pairs = std::int64_t{sum.groups.n} * n();
    by_factors_ = n_factors <= std::clamp(n_pairs, least_phase_factors, most_phase_factors);
}

void reflection_terms_3::find_runs(const hkl_list& hkls) {
    l_.set_n(hkls.n);
    runs_.clear();
    largest_ = 0;
    for (int r = 0; r < hkls.n; ++r) {
        const triple_3& hkl = hkls[r];
        l_[r] = hkl[2];
        if (r == 0 || hkl[0] != hkls[r - 1][0] || hkl[1] != hkls[r - 1][1]) {
            runs_.add({hkl[0], hkl[1], r});
        }
        ++runs_[runs_.last()].end;
        for (std::int64_t index : hkl.v) largest_ = std::max(largest_, std::abs(index));
    }
}

void reflection_terms_3::record_all_sums() {
    sum.start_sums(n());
    index_residues_3 residues;
    residues.set_up(*sum.ops);
    int_list_3 known;
    if (residues.count() <= most_known_residues) {
        known.set_n(static_cast<int>(residues.count()));
        known.fill(not_found);
    }
    int r = 0;
    for (const run& each : runs_) {
        for (; r < each.end; ++r) {
            int* const before =
                known.n == 0 ? nullptr : &known[residues.place(each.h, each.k, l_[r])];
            if (before != nullptr && *before != not_found) {
                for (int_list_3& index : sum.sum_index) index[r] = index[*before];
                continue;
            }
            sum.record_sums(each.h, each.k, l_[r], r);
            if (before != nullptr) *before = r;
        }
    }
}

void reflection_terms_3::take_position(const double position[3]) {
    sum.position_phases(position, phases_);
    if (by_factors_) factors_.make(sum, phases_, static_cast<int>(largest_));
}

void reflection_terms_3::fill_row(int group) {
    if (by_factors_) {
        fill_by_factors(group);
    } else {
        fill_by_angles(group);
    }
}

void reflection_terms_3::fill_by_factors(int group) {
    const triple_3& rows = sum.group_rows[group];
    const sine_cosine_3* const of_h = factors_.of(rows[0]);
    const sine_cosine_3* const of_k = factors_.of(rows[1]);
    const sine_cosine_3* const of_l = factors_.of(rows[2]);
    const int* const l = l_.p;
    double* const to = w.p;
    int r = 0;
    for (const run& each : runs_) {
        const double_pair_3 hk = joined(load_pair(&of_h[each.h].sine), of_k[each.k]);
        const double_pair_3 turned = {hk[1], -hk[0]};
        for (; r < each.end; ++r) {
            const sine_cosine_3& third = of_l[l[r]];
            store_pair(to + 2 * std::ptrdiff_t{r},
                       hk * both(third.cosine) + turned * both(third.sine));
        }
    }
}

void reflection_terms_3::fill_by_angles(int group) {
    const double* const row = phases_[group].row;
    int r = 0;
    for (const run& each : runs_) {
        const double hk = each.h * row[0] + each.k * row[1];
        for (; r < each.end; ++r) {
            const double angle = hk + l_[r] * row[2];
            pairs_[r] = {std::sin(angle), std::cos(angle)};
        }
    }
}
