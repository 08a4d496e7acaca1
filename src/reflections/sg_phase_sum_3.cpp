#include "reflections/sg_phase_sum_3.h"

#include <cmath>
#include <cstdint>

namespace {

constexpr double degree = 0.017453292519943278;
constexpr double two_pi = 6.28318530717958;

int phase_of(const xyz_op_3& op, int h, int k, int l) {
    const auto term = [&](int row, int index) {
        return std::int64_t{op.trans(row)} * (index % xyz_op_3::edge);
    };
    const auto phase = static_cast<int>((term(0, h) + term(1, k) + term(2, l)) % xyz_op_3::edge);
    return phase < 0 ? phase + xyz_op_3::edge : phase;
}

}  // namespace

const sine_cosine_3* phase_table_3() {
    static const auto table = [] {
        list_0_3<sine_cosine_3> pairs;
        pairs.set_n(xyz_op_3::edge);
        pairs[0] = {0.0, 1.0};
        for (int i = 1; i < pairs.n; ++i) pairs[i] = {std::sin(i * degree), std::cos(i * degree)};
        return pairs;
    }();
    return table.block();
}

void sg_phase_sum_3::set_up(const xyz_list_3& ops_) { fold(ops_, nullptr); }

void sg_phase_sum_3::fold(const xyz_list_3& ops_, magnetic_steps* magnetic) {
    ops = &ops_;
    flags = 0;
    static_cast<moment_tables_3&>(*this) = {};
    xyz_list_3 sorted(ops_);
    normalise_xyzs_3(sorted);
    int_list_3 index;
    sort_index(sorted, index);
    apply_index(sorted, index);
    entries.new_n(ops_.n);
    for (int i = 0; i < entries.n; ++i) entries[i].add(index[i]);
    int_list_3 kinds;
    kinds.set_n(ops_.n);
    kinds.fill('1');
    pair_entries(sorted, kinds, magnetic);
    for (xyz_op_3& op : sorted) {
        for (int i = 0; i < 3; ++i) op.trans(i) = magnetic != nullptr ? op.tag : 0;
    }
    group_entries(sorted, kinds, magnetic);
    collect_rows();
}

// Makes one entry of an operator and its negative.
void sg_phase_sum_3::pair_entries(xyz_list_3& sorted, int_list_3& kinds, magnetic_steps* magnetic) {
    if (magnetic != nullptr) {
        magnetic->member_kinds.new_n(sorted.n);
        for (int_list_3& list : magnetic->member_kinds) list.add(0);
    }
    if (sorted.n != 1) flags |= all_paired;
    int_list_3 removed;
    removed.new_n_zero(sorted.n);
    for (int i = 0; i + 1 < sorted.n; ++i) {
        if (kinds[i] != '1' || removed[i] != 0) continue;
        xyz_op_3 partner = sorted[i];
        negate_rotation(partner, 4);
        normalise(partner);
        const int j = bsearch(sorted, partner, i + 1, sorted.last());
        if (j == not_found) {
            flags &= ~all_paired;
            continue;
        }
        entries[i].append(entries[j]);
        if (magnetic != nullptr) {
            const bool equal = sorted[i].tag == sorted[j].tag;
            magnetic->member_kinds[i][0] = equal ? 1 : 2;
            magnetic->member_kinds[i].add(equal ? 1 : 3);
        }
        kinds[i] = '2';
        removed[j] = 1;
    }
    if (sorted.n > 1 && kinds[sorted.last()] == '1' && removed[sorted.last()] == 0) {
        flags &= ~all_paired;
    }
    entries.remove_flagged(removed);
    if (magnetic != nullptr) magnetic->member_kinds.remove_flagged(removed);
    sorted.remove_flagged(removed);
    kinds.remove_flagged(removed);
}

void sg_phase_sum_3::group_entries(xyz_list_3& rotations, const int_list_3& kinds,
                                   magnetic_steps* magnetic) {
    group_record_3 record;
    group(rotations, record);
    groups.new_n(record.unique.n);
    group_kinds.new_n(record.unique.n);
    list_0_3<char> digits;  // those of one group after those of the other
    digits.set_n(entries.n);
    int_list_3 ends;
    ends.new_n_zero(groups.n);
    for (int g = 1; g < groups.n; ++g) ends[g] = ends[g - 1] + record.count[g - 1];
    for (int e = 0; e < entries.n; ++e) {
        const int g = record.group[e];
        groups[g].add(entries[e][0]);
        if (magnetic != nullptr) magnetic->entry_groups.add(g);
        digits[ends[g]++] = static_cast<char>(kinds[e]);
    }
    group_unpaired.set_n(groups.n);
    for (int g = 0; g < groups.n; ++g) {
        const int count = record.count[g];
        group_kinds[g].assign_range(digits.p + ends[g] - count, count);
        group_unpaired[g] = text_index('1', group_kinds[g].data) != not_found;
        if (group_unpaired[g] != 0) flags |= has_unpaired;
    }
}

void sg_phase_sum_3::collect_rows() {
    list_0_3<triple_3> all;
    for (const int_list_3& members : groups) {
        const xyz_op_3& op = (*ops)[members[0]];
        for (int i = 0; i < 3; ++i) all.add({{op.rot(i, 0), op.rot(i, 1), op.rot(i, 2)}});
    }
    group_record_3 record;
    group(all, record);
    rows = all;
    apply_index(rows, record.unique);
    group_rows.set_n(groups.n);
    for (int i = 0; i < all.n; ++i) group_rows[i / 3][i % 3] = record.group[i];
}

void sg_phase_sum_3::position_phases(const double position[3], phase_list_3& phases) const {
    const double x = position[0] * two_pi;
    const double y = position[1] * two_pi;
    const double z = position[2] * two_pi;
    list_0_3<double> values;
    for (const triple_3& row : rows) values.add(row[0] * x + row[1] * y + row[2] * z);
    phases.set_n(groups.n);
    for (int g = 0; g < groups.n; ++g) {
        for (int i = 0; i < 3; ++i) phases[g].row[i] = values[group_rows[g][i]];
    }
}

void sg_phase_sum_3::translation_sums(int h, int k, int l, sum_list_3& sums) const {
    const sine_cosine_3* const table = phase_table_3();
    sums.set_n(groups.n);
    for (int g = 0; g < groups.n; ++g) {
        translation_sum_3 sum = {0.0, 0.0, 0.0, 0.0};
        const int_list_3& members = groups[g];
        const char* const kinds = group_kinds[g].data;
        for (int m = 0; m < members.n; ++m) {
            const auto [s, c] = table[phase_of((*ops)[members[m]], h, k, l)];
            if (kinds[m] == '1') {
                sum.a1 += c;
                sum.b1 += s;
                sum.a2 += c;
                sum.b2 += s;
            } else {
                sum.a2 += 2 * c;
                sum.b2 += 2 * s;
            }
        }
        sums[g] = sum;
    }
}

void sg_phase_sum_3::add_position_terms(double& b, double& a, const phase_list_3& phases, int h,
                                        int k, int l, const sum_list_3& sums) const {
    for (int g = 0; g < sums.n; ++g) {
        const double* const row = phases[g].row;
        const double p = h * row[0] + k * row[1] + l * row[2];
        const double sp = std::sin(p);
        const double cp = std::cos(p);
        if (group_unpaired[g] != 0) b += sp * sums[g].a1 + cp * sums[g].b1;
        a += cp * sums[g].a2 - sp * sums[g].b2;
    }
}
