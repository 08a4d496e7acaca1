#include "library/scattering/phase_kernels.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "reflections/sg_phase_sum_3.h"
#include "support/operators.h"

namespace {

constexpr int row = 1;
constexpr int width = 12;  // columns of w and t
constexpr int out_stride = 3;

// The stores of a kernel, filled with numbers that leave a trace wherever something is written.
struct stores {
    explicit stores(unsigned seed) {
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> number(-2.0, 2.0);
        for (auto* list : {&w, &t, &out}) {
            for (double& value : *list) value = number(random);
        }
    }
    void expect_near(const stores& other) const {
        for (std::size_t i = 0; i < w.size(); ++i) EXPECT_NEAR(w[i], other.w[i], 1e-14);
        for (std::size_t i = 0; i < out.size(); ++i) EXPECT_NEAR(out[i], other.out[i], 1e-14);
        EXPECT_EQ(t, other.t);
    }
    std::vector<double> w = std::vector<double>(2 * 3 * width);
    std::vector<double> t = std::vector<double>(3 * width);
    std::vector<double> out = std::vector<double>(out_stride * width);
    number_store_3 w_store = {w.data(), width};
    number_store_3 t_store = {t.data(), width};
    number_store_3 out_store = {out.data(), out_stride};
};

enum output { none, stored, added };

TEST(PhaseKernels, FollowTheGeneralForm) {
    for (int i = 0; i < 12 * 10; ++i) {
        const int number = i / 10 + 1;
        const int n = i % 10;
        const bool unpaired = number > 6;
        const bool per_column = (number - 1) % 6 >= 3;
        const double a = number % 3 != 2;  // 0 where the case leaves a term out
        const double b = number % 3 != 0;
        EXPECT_EQ(kernel_case_number_3({unpaired, per_column, a != 0.0, b != 0.0}), number);
        sum_list_3 records;
        for (double x : {0.3, -1.7, 2.0, 0.0, 0.9}) {
            records.add({a * (x + 1), b * (x - 2), a * (2 * x + 1), b * (1 - x)});
        }
        int_list_3 index;
        for (int r = 0; r < (per_column ? n : 1); ++r) index.add((r + 2) * 3 % 5);

        // Holds a kernel against the step in its general form, column by column.
        const auto check = [&](auto kernel, bool writes_back, output to) {
            using type = decltype(kernel);
            constexpr bool has_factor =
                std::is_same_v<type, out_t_kernel_3> || std::is_same_v<type, rotate_t_kernel_3>;
            SCOPED_TRACE(testing::Message()
                         << "case " << number << " n " << n << writes_back << to << has_factor);
            stores found(static_cast<unsigned>(i));
            const number_store_3& w = found.w_store;
            if constexpr (std::is_same_v<type, out_kernel_3>) {
                kernel(found.out_store, w, index, records, row, n);
            } else if constexpr (std::is_same_v<type, out_t_kernel_3>) {
                kernel(found.out_store, w, index, records, row, n, found.t_store);
            } else if constexpr (has_factor) {
                kernel(w, index, records, row, n, found.t_store);
            } else {
                kernel(w, index, records, row, n);
            }
            stores expected(static_cast<unsigned>(i));
            for (int column = 0; column < n; ++column) {
                const auto at = static_cast<std::size_t>(width * row + column);
                const translation_sum_3& sum = records[index[per_column ? column : 0]];
                const double f = has_factor ? expected.t[at] : 1.0;
                double& s = expected.w[2 * at];
                double& c = expected.w[2 * at + 1];
                const double new_c = (c * sum.a2 - s * sum.b2) * f;
                const double new_s =
                    unpaired ? (s * sum.a1 + c * sum.b1) * f : (s * sum.a2 + c * sum.b2) * f;
                double* const out = &expected.out[static_cast<std::size_t>(out_stride * column)];
                if (to != none) out[0] = new_c + (to == added ? out[0] : 0.0);
                if (to != none && unpaired) out[1] = new_s + (to == added ? out[1] : 0.0);
                if (!writes_back) continue;
                s = new_s;
                c = new_c;
            }
            found.expect_near(expected);
        };
        const phase_kernel_set_3& set = phase_kernels_3(number);
        for (const output to : {stored, added}) {
            const auto of = [&](const auto& pair) { return to == added ? pair.next : pair.first; };
            check(of(set.rotate_out), true, to);
            check(of(set.rotate_out_t), true, to);
            check(of(set.phase_out), false, to);
            check(of(set.phase_out_t), false, to);
        }
        check(set.rotate, true, none);
        check(set.rotate_t, true, none);
    }
    EXPECT_EQ(kernel_case_number_3({true, true, false, false}), 11) << "nothing but zeros";
}

// The case that was chosen for a group, recognised by the kernels in its tables.
int case_in(const sg_phase_sum_3& sum, int g) {
    for (int number = 1; number <= 12; ++number) {
        const phase_kernel_set_3& set = phase_kernels_3(number);
        if (sum.rotate[g] != set.rotate) continue;
        const auto same = [](const auto& a, const auto& b) {
            return a.first == b.first && a.next == b.next;
        };
        EXPECT_TRUE(same(sum.phase_out[g], set.phase_out));
        EXPECT_TRUE(same(sum.phase_out_t[g], set.phase_out_t));
        EXPECT_TRUE(same(sum.rotate_out[g], set.rotate_out));
        EXPECT_TRUE(same(sum.rotate_out_t[g], set.rotate_out_t));
        EXPECT_EQ(sum.rotate_t[g], set.rotate_t);
        EXPECT_EQ(sum.phase_add[g], set.phase_out.next);
        EXPECT_EQ(sum.phase_add_t[g], set.phase_out_t.next);
        return number;
    }
    return 0;
}

TEST(KernelSelection, ChoosesByTheSums) {
    const char* const glide = "x,y,z;-x,y+1/2,-z+1/2;-x,-y,-z;x,-y+1/2,z+1/2";
    const char* const screw = "x,y,z;-y,x,z+1/4";
    const char* const d_glide = "x,y,z;-x,-y,-z;-x+1/4,y,z;x+3/4,-y,-z";
    const struct {
        const char* ops;
        std::vector<triple_3> hkls;
        std::vector<int> cases;  // of the groups, by ascending rotation
        int n_records;
    } rows[] = {// The identity and the inversion make the first group, whose rotation is that of
                // the inversion. The sums of the second group change their sign with k + l.
                {glide, {{{0, 1, 0}}, {{0, 2, 0}}}, {3, 6}, 2},
                // Sums of 1, i, -1, -i.
                {screw, {{{0, 0, 1}}}, {8, 9}, 2},
                {screw, {{{0, 0, 1}}, {{0, 0, 3}}}, {11, 9}, 3},
                {screw, {{{0, 0, 2}}, {{0, 0, 4}}}, {12, 9}, 2},
                // The first column alone has a cosine sum.
                {screw, {{{0, 0, 4}}, {{0, 0, 1}}, {{0, 0, 1}}}, {10, 9}, 2},
                {"x,y,z;-y,x,z+1/3", {{{0, 0, 1}}}, {7, 9}, 2},
                {d_glide, {{{1, 0, 0}}}, {3, 2}, 2},
                {d_glide, {{{1, 0, 0}}, {{3, 0, 0}}}, {3, 5}, 3},
                {d_glide, {{{1, 0, 0}}, {{2, 0, 0}}}, {3, 4}, 3},
                {"x,y,z;-x,-y,-z;-x+1/3,y,z;x+2/3,-y,-z", {{{1, 0, 0}}}, {3, 1}, 2},
                // Centring: all sums vanish, exactly, for a case without cosines is chosen.
                {"x,y,z;x+1/2,y+1/2,z+1/2", {{{1, 0, 0}}}, {8}, 1},
                {"x,y,z", {}, {11}, 0}};
    for (const auto& each : rows) {
        SCOPED_TRACE(std::string(each.ops) + ' ' + std::to_string(each.hkls.size()));
        const xyz_list_3 ops = xyz_list_of(each.ops);
        sg_phase_sum_3 sum;
        sum.set_up(ops);
        const int n = static_cast<int>(each.hkls.size());
        sum.start_sums(n);
        for (int r = 0; r < n; ++r) {
            const auto& [h, k, l] = each.hkls[static_cast<std::size_t>(r)].v;
            sum.record_sums(h, k, l, r);
        }
        sum.select_kernels(n);
        EXPECT_EQ(sum.sum_records.n, each.n_records);
        std::vector<int> cases;
        for (int g = 0; g < sum.groups.n; ++g) {
            cases.push_back(case_in(sum, g));
            EXPECT_EQ(sum.sum_index[g].n, (cases.back() - 1) % 6 < 3 ? 1 : n);
        }
        EXPECT_EQ(cases, each.cases);
    }
}

TEST(KernelSelection, RecordsDifferInEachPart) {
    const xyz_list_3 ops = xyz_list_of("x,y,z;x+1/2,y,z");
    for (int i = 0; i < 8; ++i) {
        const bool is_far = i >= 4;
        sg_phase_sum_3 sum;
        sum.set_up(ops);
        sum.start_sums(1);
        double parts[4] = {2.0, 0.0, 2.0, 0.0};
        parts[i % 4] += is_far ? 1.1e-11 : 0.9e-11;
        sum.sum_records.add({parts[0], parts[1], parts[2], parts[3]});
        sum.record_sums(0, 0, 4, 0);
        EXPECT_EQ(sum.sum_index[0][0], is_far ? 1 : 0) << i;
    }
}

}  // namespace
