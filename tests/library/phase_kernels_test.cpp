#include "library/phase_kernels.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
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
    number_store_3 w_store() { return {w.data(), width}; }
    number_store_3 t_store() { return {t.data(), width}; }
    number_store_3 out_store() { return {out.data(), out_stride}; }

    std::vector<double> w = std::vector<double>(2 * 3 * width);
    std::vector<double> t = std::vector<double>(3 * width);
    std::vector<double> out = std::vector<double>(out_stride * width);
};

enum class output { none, stored, added };

// The step in its general form, column by column.
void expect_step(stores& s, bool unpaired, const std::vector<translation_sum_3>& sums, int n,
                 bool writes_back, output to, bool has_factor) {
    for (int column = 0; column < n; ++column) {
        const auto at = static_cast<std::size_t>(width * row + column);
        const translation_sum_3& r = sums[static_cast<std::size_t>(column)];
        const double f = has_factor ? s.t[at] : 1.0;
        const double sine = s.w[2 * at];
        const double cosine = s.w[2 * at + 1];
        const double c = (cosine * r.a2 - sine * r.b2) * f;
        const double sn =
            unpaired ? (sine * r.a1 + cosine * r.b1) * f : (sine * r.a2 + cosine * r.b2) * f;
        if (writes_back) {
            s.w[2 * at] = sn;
            s.w[2 * at + 1] = c;
        }
        if (to == output::none) continue;
        const auto place = static_cast<std::size_t>(out_stride * column);
        s.out[place] = c + (to == output::added ? s.out[place] : 0.0);
        if (unpaired) s.out[place + 1] = sn + (to == output::added ? s.out[place + 1] : 0.0);
    }
}

void expect_near(const std::vector<double>& a, const std::vector<double>& b) {
    for (std::size_t i = 0; i < a.size(); ++i) EXPECT_NEAR(a[i], b[i], 1e-14) << i;
}

// Runs each of the ten kernels of a case and holds it against the general form.
struct case_check {
    int number;
    bool unpaired;
    int_list_3 index;
    sum_list_3 records;
    int n;
    unsigned seed = 1;

    template <typename Run>
    void kernel(const char* name, bool writes_back, output to, bool has_factor, Run run) {
        SCOPED_TRACE("case " + std::to_string(number) + ' ' + name + " n " + std::to_string(n));
        stores expected(++seed);
        stores s = expected;
        std::vector<translation_sum_3> sums;
        for (int r = 0; r < n; ++r) sums.push_back(records[index[index.n == 1 ? 0 : r]]);
        expect_step(expected, unpaired, sums, n, writes_back, to, has_factor);
        run(s);
        expect_near(s.w, expected.w);
        expect_near(s.out, expected.out);
        EXPECT_EQ(s.t, expected.t);
    }

    template <typename Kernel>
    void out_kernel(const char* name, bool writes_back, output to, Kernel k) {
        kernel(name, writes_back, to, false,
               [&](stores& s) { k(s.out_store(), s.w_store(), index, records, row, n); });
    }
    template <typename Kernel>
    void out_t_kernel(const char* name, bool writes_back, output to, Kernel k) {
        kernel(name, writes_back, to, true, [&](stores& s) {
            k(s.out_store(), s.w_store(), index, records, row, n, s.t_store());
        });
    }

    void all() {
        const phase_kernel_set_3& set = phase_kernels_3(number);
        out_kernel("rotate_out first", true, output::stored, set.rotate_out.first);
        out_kernel("rotate_out next", true, output::added, set.rotate_out.next);
        out_t_kernel("rotate_out_t first", true, output::stored, set.rotate_out_t.first);
        out_t_kernel("rotate_out_t next", true, output::added, set.rotate_out_t.next);
        out_kernel("phase_out first", false, output::stored, set.phase_out.first);
        out_kernel("phase_out next", false, output::added, set.phase_out.next);
        out_t_kernel("phase_out_t first", false, output::stored, set.phase_out_t.first);
        out_t_kernel("phase_out_t next", false, output::added, set.phase_out_t.next);
        kernel("rotate", true, output::none, false,
               [&](stores& s) { set.rotate(s.w_store(), index, records, row, n); });
        kernel("rotate_t", true, output::none, true,
               [&](stores& s) { set.rotate_t(s.w_store(), index, records, row, n, s.t_store()); });
    }
};

// Records that the case allows: zeros where it leaves a term out.
sum_list_3 records_for(bool has_a, bool has_b) {
    sum_list_3 records;
    for (double x : {0.3, -1.7, 2.0, 0.0, 0.9}) {
        const double a = has_a ? 1.0 : 0.0;
        const double b = has_b ? 1.0 : 0.0;
        records.add({a * (x + 1), b * (x - 2), a * (2 * x + 1), b * (1 - x)});
    }
    return records;
}

TEST(PhaseKernels, FollowTheGeneralForm) {
    const struct {
        int number;
        kernel_case_3 what;
    } rows[] = {
        {1, {false, false, true, true}},  {2, {false, false, false, true}},
        {3, {false, false, true, false}}, {4, {false, true, true, true}},
        {5, {false, true, false, true}},  {6, {false, true, true, false}},
        {7, {true, false, true, true}},   {8, {true, false, false, true}},
        {9, {true, false, true, false}},  {10, {true, true, true, true}},
        {11, {true, true, false, true}},  {12, {true, true, true, false}},
    };
    for (const auto& each : rows) {
        EXPECT_EQ(kernel_case_number_3(each.what), each.number);
        for (int n = 0; n <= 9; ++n) {
            case_check check = {each.number,
                                each.what.unpaired,
                                {},
                                records_for(each.what.has_a, each.what.has_b),
                                n};
            if (each.what.per_column) {
                for (int r = 0; r < n; ++r) check.index.add(r * 3 % 5);
            } else {
                check.index.add(2);
            }
            check.all();
        }
    }
    EXPECT_EQ(kernel_case_number_3({true, true, false, false}), 11) << "nothing but zeros";
}

// The case that was chosen for a group, told by the kernels in its tables.
int case_in(const sg_phase_sum_3& sum, int g) {
    for (int number = 1; number <= 12; ++number) {
        const phase_kernel_set_3& set = phase_kernels_3(number);
        if (sum.rotate[g] != set.rotate) continue;
        EXPECT_EQ(sum.rotate_t[g], set.rotate_t);
        EXPECT_EQ(sum.phase_out[g].first, set.phase_out.first);
        EXPECT_EQ(sum.phase_out[g].next, set.phase_out.next);
        EXPECT_EQ(sum.phase_out_t[g].first, set.phase_out_t.first);
        EXPECT_EQ(sum.phase_out_t[g].next, set.phase_out_t.next);
        EXPECT_EQ(sum.rotate_out[g].first, set.rotate_out.first);
        EXPECT_EQ(sum.rotate_out[g].next, set.rotate_out.next);
        EXPECT_EQ(sum.rotate_out_t[g].first, set.rotate_out_t.first);
        EXPECT_EQ(sum.rotate_out_t[g].next, set.rotate_out_t.next);
        EXPECT_EQ(sum.phase_add[g], set.phase_out.next);
        EXPECT_EQ(sum.phase_add_t[g], set.phase_out_t.next);
        return number;
    }
    return 0;
}

TEST(KernelSelection, ChoosesByTheSums) {
    const struct {
        const char* ops;
        std::vector<triple_3> hkls;
        std::vector<int> cases;  // of the groups, by ascending rotation
        int n_records;
    } rows[] = {
        {"x,y,z", {{{1, 2, 3}}, {{0, 0, 1}}}, {9}, 1},
        {"x,y,z;-x,-y,-z", {{{1, 2, 3}}, {{0, 0, 1}}}, {3}, 1},
        // The identity and the inversion make the first group, whose rotation is that of the
        // inversion. c glide: the sums of the second group change their sign with k + l.
        {"x,y,z;-x,y+1/2,-z+1/2;-x,-y,-z;x,-y+1/2,z+1/2", {{{0, 1, 0}}}, {3, 3}, 2},
        {"x,y,z;-x,y+1/2,-z+1/2;-x,-y,-z;x,-y+1/2,z+1/2", {{{0, 1, 0}}, {{0, 2, 0}}}, {3, 6}, 2},
        // Screw axis 4_1: sums of 1, i, -1, -i.
        {"x,y,z;-y,x,z+1/4", {{{0, 0, 1}}}, {8, 9}, 2},
        {"x,y,z;-y,x,z+1/4", {{{0, 0, 2}}}, {9, 9}, 2},
        {"x,y,z;-y,x,z+1/4", {{{0, 0, 1}}, {{0, 0, 3}}}, {11, 9}, 3},
        {"x,y,z;-y,x,z+1/4", {{{0, 0, 1}}, {{0, 0, 2}}}, {10, 9}, 3},
        {"x,y,z;-y,x,z+1/4", {{{0, 0, 2}}, {{0, 0, 4}}}, {12, 9}, 2},
        {"x,y,z;-y,x,z+1/3", {{{0, 0, 1}}}, {7, 9}, 2},
        // The first column alone has a cosine sum.
        {"x,y,z;-y,x,z+1/4", {{{0, 0, 4}}, {{0, 0, 1}}, {{0, 0, 1}}}, {10, 9}, 2},
        // d glide with its pair under the inversion.
        {"x,y,z;-x,-y,-z;-x+1/4,y,z;x+3/4,-y,-z", {{{1, 0, 0}}}, {3, 2}, 2},
        {"x,y,z;-x,-y,-z;-x+1/4,y,z;x+3/4,-y,-z", {{{1, 0, 0}}, {{3, 0, 0}}}, {3, 5}, 3},
        {"x,y,z;-x,-y,-z;-x+1/4,y,z;x+3/4,-y,-z", {{{1, 0, 0}}, {{2, 0, 0}}}, {3, 4}, 3},
        {"x,y,z;-x,-y,-z;-x+1/3,y,z;x+2/3,-y,-z", {{{1, 0, 0}}}, {3, 1}, 2},
        // Centring: all sums vanish.
        {"x,y,z;x+1/2,y+1/2,z+1/2", {{{1, 0, 0}}}, {8}, 1},
        {"x,y,z", {}, {11}, 0},
    };
    for (const auto& each : rows) {
        SCOPED_TRACE(std::string(each.ops) + ' ' + std::to_string(each.hkls.size()));
        const xyz_list_3 ops = xyz_list_of(each.ops);
        sg_phase_sum_3 sum;
        sum.set_up(ops);
        const int n = static_cast<int>(each.hkls.size());
        sum.start_sums(n);
        for (int r = 0; r < n; ++r) {
            const triple_3& hkl = each.hkls[static_cast<std::size_t>(r)];
            sum.record_sums(hkl[0], hkl[1], hkl[2], r);
        }
        sum.select_kernels(n);
        EXPECT_EQ(sum.sum_records.n, each.n_records);
        EXPECT_EQ(sum.sum_records.n_max, each.n_records);
        std::vector<int> cases;
        for (int g = 0; g < sum.groups.n; ++g) {
            cases.push_back(case_in(sum, g));
            const bool uniform = cases.back() % 6 >= 1 && cases.back() % 6 <= 3;
            EXPECT_EQ(sum.sum_index[g].n, uniform ? 1 : n);
            if (uniform) {
                EXPECT_EQ(sum.sum_index[g].n_max, 1);
            }
        }
        EXPECT_EQ(cases, each.cases);
    }
}

TEST(KernelSelection, RecordsDiffer) {
    const xyz_list_3 ops = xyz_list_of("x,y,z;x+1/2,y,z;-y,x,z+1/4;-y+1/2,x,z+1/4");
    sg_phase_sum_3 sum;
    sum.set_up(ops);
    sum.start_sums(3);
    EXPECT_EQ(sum.sum_index[0][2], -1);
    sum.sum_records.add({2.0, 0.9e-11, 2.0, 0.0});
    sum.sum_records.add({2.0, 0.0, 2.0, 0.0});
    sum.record_sums(0, 0, 4, 0);
    EXPECT_EQ(sum.sum_index[0][0], 0) << "the first one within the tolerance";
    EXPECT_EQ(sum.sum_index[1][0], 0);
    sum.sum_records[0].b1 = 1.1e-11;
    sum.record_sums(0, 0, 4, 1);
    EXPECT_EQ(sum.sum_index[0][1], 1);
    sum.record_sums(1, 0, 0, 2);
    EXPECT_EQ(sum.sum_records.n, 3);
    const translation_sum_3& zero = sum.sum_records[sum.sum_index[0][2]];
    EXPECT_EQ(zero.a1, 0.0) << "exactly, not only within the table's accuracy";
    EXPECT_EQ(zero.b1, 0.0);
    EXPECT_EQ(zero.a2, 0.0);
    EXPECT_EQ(zero.b2, 0.0);
}

}  // namespace
