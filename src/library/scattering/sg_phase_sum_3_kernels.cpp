#include <cmath>

#include "library/scattering/phase_kernels.h"
#include "reflections/sg_phase_sum_3.h"

namespace {

// Sums that differ by less than this are the same: the phase table is good to 1e-14.
constexpr double same_sum = 1e-11;
constexpr double vanishing_sum = 1e-12;

bool is_same(double a, double b) { return std::abs(a - b) <= same_sum; }

bool is_same_record(const translation_sum_3& a, const translation_sum_3& b) {
    return is_same(a.a2, b.a2) && is_same(a.b2, b.b2) && is_same(a.a1, b.a1) && is_same(a.b1, b.b1);
}

// Sums of cosines and sines that cancel shall be exactly zero, for the kernels leave out zeros.
void clean(double& sum) {
    if (std::abs(sum) < vanishing_sum) sum = 0.0;
}

int place_of(sum_list_3& records, const translation_sum_3& sum) {
    for (int i = 0; i < records.n; ++i) {
        if (is_same_record(records[i], sum)) return i;
    }
    records.add(sum);
    return records.n - 1;
}

bool is_uniform(const int_list_3& index, int n) {
    if (n < 1 || index[0] == -1) return false;
    for (int r = 1; r < n; ++r) {
        if (index[r] != index[0]) return false;
    }
    return true;
}

}  // namespace

void sg_phase_sum_3::start_sums(int n) {
    sum_records.clear();
    sum_index.new_n(groups.n);
    for (int_list_3& index : sum_index) {
        index.set_n_discard(n);
        index.fill(-1);
    }
}

void sg_phase_sum_3::record_sums(int h, int k, int l, int r) {
    sum_list_3 sums;
    translation_sums(h, k, l, sums);
    for (int g = 0; g < groups.n; ++g) {
        translation_sum_3& sum = sums[g];
        for (double* part : {&sum.a1, &sum.b1, &sum.a2, &sum.b2}) clean(*part);
        sum_index[g][r] = place_of(sum_records, sum);
    }
}

namespace {

// The test takes in every column, the first one too.
kernel_case_3 case_of_group(const sum_list_3& records, const int_list_3& index, int n,
                            bool unpaired) {
    kernel_case_3 found = {unpaired, !is_uniform(index, n), false, false};
    for (int r = 0; r < (found.per_column ? n : 1); ++r) {
        if (index[r] < 0) continue;
        const translation_sum_3& sum = records[index[r]];
        if (sum.a2 != 0.0 || (unpaired && sum.a1 != 0.0)) found.has_a = true;
        if (sum.b2 != 0.0 || (unpaired && sum.b1 != 0.0)) found.has_b = true;
    }
    return found;
}

}  // namespace

void sg_phase_sum_3::select_kernels(int n) {
    sum_records.set_max_n(sum_records.n, true);
    rotate_out.set_n(groups.n);
    rotate_out_t.set_n(groups.n);
    phase_out.set_n(groups.n);
    phase_out_t.set_n(groups.n);
    phase_add.set_n(groups.n);
    phase_add_t.set_n(groups.n);
    rotate.set_n(groups.n);
    rotate_t.set_n(groups.n);
    for (int g = 0; g < groups.n; ++g) {
        int_list_3& index = sum_index[g];
        const kernel_case_3 found = case_of_group(sum_records, index, n, group_unpaired[g] != 0);
        if (!found.per_column) {
            index.set_max_n(1, true);
            index.n = 1;
        }
        const phase_kernel_set_3& kernels = phase_kernels_3(kernel_case_number_3(found));
        rotate_out[g] = kernels.rotate_out;
        rotate_out_t[g] = kernels.rotate_out_t;
        phase_out[g] = kernels.phase_out;
        phase_out_t[g] = kernels.phase_out_t;
        phase_add[g] = kernels.phase_out.next;
        phase_add_t[g] = kernels.phase_out_t.next;
        rotate[g] = kernels.rotate;
        rotate_t[g] = kernels.rotate_t;
    }
}
