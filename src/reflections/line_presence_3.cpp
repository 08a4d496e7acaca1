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

// The phase that a column gives to a unit of its index, in radians.
double angle_of(const triple_3& column, const double position[3]) {
    double angle = 0.0;
    for (int i = 0; i < 3; ++i) angle += whole_turn * column[i] * position[i];
    return angle;
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
    small_.set_max_n(2 * l_table_.n, false);
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
        for (int i = 0; i < 3; ++i) c.factors[i].set_up(angle_of(c.v, position), reach[i]);
    }
    const int block = columns_[sum_columns_[0]].factors[2].block();
    l_table_.set_n(block * sum_columns_.n);
    for (int l = 0; l < block; ++l) {
        for (int s = 0; s < sum_columns_.n; ++s) {
            l_table_[l * sum_columns_.n + s] = columns_[sum_columns_[s]].factors[2].of(l);
        }
    }
    if (sum_columns_.n == 1) zeros_.set_up(angle_of(columns_[sum_columns_[0]].v, position), block);
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
    has_block_ = false;
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

bool line_presence_3::is_sure(int l) const {
    if (!usable_) return false;
    const int n = sum_columns_.n;
    const int place = residue((l - members_.first) / members_.step, n_residues_) * n;
    double part = 0.0;
    for (int s = 0; s < n; ++s) {
        part += (sums_[place + s] * columns_[sum_columns_[s]].factors[2].of(l)).re;
    }
    return std::abs(part) > line_present_limit;
}

// Turns the sums to a block of the table that begins with l = start.
void line_presence_3::begin_block(int start) {
    const int n = sum_columns_.n;
    has_block_ = true;
    block_start_ = start;
    for (int s = 0; s < n; ++s) {
        const phase_factor_3 turn = columns_[sum_columns_[s]].factors[2].of(start);
        for (int i = s; i < n_residues_ * n; i += n) shifted_[i] = sums_[i] * turn;
    }
    find_small(start);
}

// To look at each member costs less where the line has few of them for each residue.
void line_presence_3::find_small(int start) {
    constexpr int least_members = 24;
    const int cycle = n_residues_ * members_.step;
    has_small_ = sum_columns_.n == 1 && cycle * least_members <= l_table_.n;
    small_.n = 0;
    for (int i = 0; i < n_residues_ && has_small_; ++i) {
        const int old = small_.n;
        has_small_ = zeros_.find(shifted_[i], line_present_limit, small_);
        int kept = old;
        for (int j = old; j < small_.n; ++j) {
            const int l = start + small_[j];
            if ((l - members_.first - i * members_.step) % cycle == 0) small_[kept++] = l;
        }
        small_.n = kept;
    }
}

int line_presence_3::next_small(int l, int last) const {
    int next = last + 1;
    for (const int small : small_) {
        if (small >= l && small < next) next = small;
    }
    return next;
}

// The first member from l on, within the block, with a small sum. `n_fixed` is the number of sums
// for one l, or 0 if that isn't one of those that are compiled for.
template <int n_fixed>
int line_presence_3::scan(int l, int last) const {
    const int n = n_fixed != 0 ? n_fixed : sum_columns_.n;
    const int step = members_.step;
    const phase_factor_3* const begin = shifted_.block();
    const phase_factor_3* const end = begin + n_residues_ * n;
    const phase_factor_3* sum = begin + residue((l - members_.first) / step, n_residues_) * n;
    const phase_factor_3* turn = l_table_.block() + (l - block_start_) * n;
    for (; l <= last; l += step, turn += step * n) {
        double part = 0.0;
        for (int s = 0; s < n; ++s) part += sum[s].re * turn[s].re - sum[s].im * turn[s].im;
        if (!(std::abs(part) > line_present_limit)) return l;
        sum += n;
        if (sum == end) sum = begin;
    }
    return l;
}

int line_presence_3::first_unsure(int l, int last) {
    if (!usable_) return l;
    const int n = sum_columns_.n;
    const int block = l_table_.n / n;
    while (l <= last) {
        const int start = l & ~(block - 1);
        if (!has_block_ || block_start_ != start) begin_block(start);
        const int end = std::min(last, start + block - 1);
        if (has_small_) {
            l = next_small(l, end);
            if (l > end) l = members_.from(l);
        } else {
            l = n == 1 ? scan<1>(l, end) : n == 3 ? scan<3>(l, end) : scan<0>(l, end);
        }
        if (l <= end) return l;
    }
    return l;
}
