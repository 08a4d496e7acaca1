#include "reflections/line_presence_3.h"

#include <algorithm>
#include <cmath>

#include "reflections/sg_phase_sum_3.h"

namespace {

constexpr double whole_turn = 6.28318530717958;
constexpr int most_residues = 256;  // of k and l; tables beyond that would cost more than they save

// One member of an orbit may have a real and an imaginary part that are both smaller than |F| by
// the root of 2. This is the limit of the evaluation, 1e-4, times more than that.
constexpr double line_present_limit = 2e-4;

// The number c: far from any phase that a translation can give.
constexpr phase_factor_3 tilt = {0.5403023058681398, -0.8414709848078965};

int residue(int index, int period) {
    const int r = index % period;
    return r < 0 ? r + period : r;
}

triple_3 column_of(const laue_element_3& element, int i) {
    return {{element.row[0][i], element.row[1][i], element.row[2][i]}};
}

phase_factor_3 translation_factor(const laue_element_3& element, int h, int k, int l) {
    const int degrees = residue(phase_of_shift_3(element.shift, h, k, l), xyz_op_3::edge);
    const auto& [sine, cosine] = phase_table_3()[degrees];
    return {cosine, sine};
}

}  // namespace

void line_presence_3::set_up(const laue_group_3& group, const double position[3],
                             const int reach[3]) {
    group_ = &group;
    const int n_residues = group.period[1] * group.period[2];
    usable_ = n_residues <= most_residues;
    if (!usable_) return;
    columns_.clear();
    terms_.clear();
    part_keys_.clear();
    sum_columns_.clear();
    add_terms();
    make_factors(position, reach);
    parts_.set_n(n_residues * part_keys_.n);
    made_.new_n_zero(n_residues);
    sums_.set_n(group.period[2] * sum_columns_.n);
    shifted_.set_n(sums_.n);
    h_ = -1;
}

int line_presence_3::find_column(const triple_3& v, bool& negative) {
    const triple_3 opposite = {{-v[0], -v[1], -v[2]}};
    negative = element_less(v, opposite);
    const triple_3& key = negative ? opposite : v;
    for (int i = 0; i < columns_.n; ++i) {
        if (columns_[i].v == key) return i;
    }
    columns_.add().v = key;
    return columns_.last();
}

// Of each pair of opposite elements the one is taken whose third column isn't a negated one.
void line_presence_3::add_terms() {
    for (int e = 0; e < group_->order(); ++e) {
        bool negative = false;
        find_column(column_of(group_->elements[e], 2), negative);
        if (negative) continue;
        add_pair(group_->elements[e], group_->elements[group_->negative_of(e)]);
    }
}

void line_presence_3::add_pair(const laue_element_3& one, const laue_element_3& other) {
    term added = {};
    part_key key = {};
    bool negative = false;
    const int l_column = find_column(column_of(one, 2), negative);
    added.h_column = find_column(column_of(one, 0), added.h_negative);
    key.k_column = find_column(column_of(one, 1), key.k_negative);
    key.sum = sum_columns_.find(l_column);
    if (key.sum == not_found) {
        key.sum = sum_columns_.n;
        sum_columns_.add(l_column);
    }
    added.part = part_keys_.find(key);
    if (added.part == not_found) {
        added.part = part_keys_.n;
        part_keys_.add(key);
    }
    added.one = one.in_group ? &one : nullptr;
    added.other = other.in_group ? &other : nullptr;
    terms_.add(added);
}

void line_presence_3::make_factors(const double position[3], const int reach[3]) {
    for (column& c : columns_) {
        double angle = 0.0;
        for (int i = 0; i < 3; ++i) angle += whole_turn * c.v[i] * position[i];
        for (int i = 0; i < 3; ++i) c.factors[i].set_up(angle, reach[i]);
    }
    const int block = columns_[sum_columns_[0]].factors[2].block();
    l_table_.set_n(block * sum_columns_.n);
    for (int l = 0; l < block; ++l) {
        for (int s = 0; s < sum_columns_.n; ++s) {
            l_table_[l * sum_columns_.n + s] = columns_[sum_columns_[s]].factors[2].of(l);
        }
    }
}

void line_presence_3::begin_h(int h) {
    if (h == h_) return;
    h_ = h;
    made_.fill(0);
    for (column& c : columns_) c.at_h = c.factors[0].of(h);
}

// The sums for the present h, for one residue of k and l.
const phase_factor_3* line_presence_3::parts_of(int k_residue, int l_residue) {
    const int place = k_residue * group_->period[2] + l_residue;
    phase_factor_3* const parts = parts_.block() + place * part_keys_.n;
    if (made_[place] != 0) return parts;
    made_[place] = 1;
    std::fill(parts, parts + part_keys_.n, phase_factor_3{0.0, 0.0});
    for (const term& t : terms_) {
        phase_factor_3 factor = {0.0, 0.0};
        if (t.one != nullptr) {
            factor = tilt * translation_factor(*t.one, h_, k_residue, l_residue);
        }
        if (t.other != nullptr) {
            const phase_factor_3 mate =
                conjugate(tilt * translation_factor(*t.other, h_, k_residue, l_residue));
            factor = {factor.re + mate.re, factor.im + mate.im};
        }
        const phase_factor_3& at_h = columns_[t.h_column].at_h;
        factor = factor * (t.h_negative ? conjugate(at_h) : at_h);
        parts[t.part].re += factor.re;
        parts[t.part].im += factor.im;
    }
    return parts;
}

void line_presence_3::begin_line(int h, int k, const progression_3& members) {
    members_ = members;
    if (!usable_) return;
    begin_h(h);
    for (column& c : columns_) c.at_k = c.factors[1].of(k);
    n_residues_ = group_->period[2] / members.step;
    const int k_residue = residue(k, group_->period[1]);
    for (int i = 0; i < n_residues_; ++i) {
        phase_factor_3* const sums = sums_.block() + i * sum_columns_.n;
        std::fill(sums, sums + sum_columns_.n, phase_factor_3{0.0, 0.0});
        const phase_factor_3* const parts = parts_of(k_residue, members.first + i * members.step);
        for (int p = 0; p < part_keys_.n; ++p) {
            const part_key& key = part_keys_[p];
            const phase_factor_3& at_k = columns_[key.k_column].at_k;
            const phase_factor_3 value = parts[p] * (key.k_negative ? conjugate(at_k) : at_k);
            sums[key.sum].re += value.re;
            sums[key.sum].im += value.im;
        }
    }
}

// The first member from l on, within a block of the table, with a small sum. `n_fixed` is the
// number of sums for one l, or 0 if that isn't one of those that are compiled for.
template <int n_fixed>
int line_presence_3::scan(const phase_factor_3* sums, int l, int last) const {
    const int n = n_fixed != 0 ? n_fixed : sum_columns_.n;
    const int step = members_.step;
    const int block = l_table_.n / n;
    const phase_factor_3* const end = sums + n_residues_ * n;
    const phase_factor_3* sum = sums + residue((l - members_.first) / step, n_residues_) * n;
    const phase_factor_3* turn = l_table_.block() + (l & (block - 1)) * n;
    for (; l <= last; l += step, turn += step * n) {
        double part = 0.0;
        for (int s = 0; s < n; ++s) part += sum[s].re * turn[s].re - sum[s].im * turn[s].im;
        if (!(std::abs(part) > line_present_limit)) return l;
        sum += n;
        if (sum == end) sum = sums;
    }
    return l;
}

int line_presence_3::first_unsure(int l, int last) {
    if (!usable_) return l;
    const int n = sum_columns_.n;
    const int block = l_table_.n / n;
    while (l <= last) {
        const phase_factor_3* sums = sums_.block();
        const int start = l & ~(block - 1);
        if (start != 0) {
            for (int i = 0; i < n_residues_ * n; ++i) {
                shifted_[i] = sums_[i] * columns_[sum_columns_[i % n]].factors[2].of(start);
            }
            sums = shifted_.block();
        }
        const int end = std::min(last, start + block - 1);
        l = n == 1 ? scan<1>(sums, l, end) : n == 3 ? scan<3>(sums, l, end) : scan<0>(sums, l, end);
        if (l <= end) return l;
    }
    return l;
}
