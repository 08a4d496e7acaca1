#include "library/scattering/phase_kernels.h"

#include <array>
#include <utility>

#include "library/scattering/double_pair.h"

namespace {

// A role is a sum of these.
constexpr int writes_back = 1;
constexpr int stores = 2;
constexpr int adds = 4;
constexpr int has_factor = 8;

// The sums of one column (a double each), or of two (pairs).
template <typename V>
struct coefficients {
    V a1;
    V b1;
    V a2;
    V b2;
};

template <int Case, int Role>
class phase_kernel {
public:
    static void run(const number_store_3* out, const number_store_3& w, const int_list_3& index,
                    const sum_list_3& sums, int row, int n, const number_store_3* t) {
        const std::ptrdiff_t wide_row = row;
        phase_kernel k;
        k.w = w.p + 2 * wide_row * w.stride;
        k.index = index.p;
        k.sums = sums.p;
        if constexpr (has_out) {
            k.out = out->p;
            k.stride = out->stride;
        }
        if constexpr ((Role & has_factor) != 0) k.t = t->p + wide_row * t->stride;
        if constexpr (!per_column) {
            if (n > 0) k.hold_sums();
        }
        int column = 0;
        for (; column + 4 <= n; column += 4) {
            k.two_columns(column);
            k.two_columns(column + 2);
        }
        for (; column < n; ++column) k.one_column(column);
    }

private:
    static constexpr bool unpaired = Case > 6;
    static constexpr bool per_column = (Case - 1) / 3 % 2 == 1;
    static constexpr bool has_a = (Case - 1) % 3 != 1;
    static constexpr bool has_b = (Case - 1) % 3 != 2;
    static constexpr bool has_out = (Role & (stores | adds)) != 0;

    void hold_sums() {
        const translation_sum_3& r = sums[index[0]];
        one = unpaired ? coefficients<double>{r.a1, r.b1, r.a2, r.b2}
                       : coefficients<double>{r.a2, r.b2, r.a2, r.b2};
        two = {both(one.a1), both(one.b1), both(one.a2), both(one.b2)};
    }

    void read_sums(std::ptrdiff_t column) {
        const translation_sum_3& r0 = sums[index[column]];
        const translation_sum_3& r1 = sums[index[column + 1]];
        two.a2 = firsts(load_pair(&r0.a2), load_pair(&r1.a2));
        two.b2 = seconds(load_pair(&r0.a2), load_pair(&r1.a2));
        two.a1 = unpaired ? firsts(load_pair(&r0.a1), load_pair(&r1.a1)) : two.a2;
        two.b1 = unpaired ? seconds(load_pair(&r0.a1), load_pair(&r1.a1)) : two.b2;
    }

    template <typename V>
    static void step(V& s, V& c, const coefficients<V>& k) {
        const V old_s = s;
        const V old_c = c;
        if constexpr (has_a && has_b) {
            c = old_c * k.a2 - old_s * k.b2;
            s = old_s * k.a1 + old_c * k.b1;
        } else if constexpr (has_a) {
            c = old_c * k.a2;
            s = old_s * k.a1;
        } else {
            c = -old_s * k.b2;
            s = old_c * k.b1;
        }
    }

    static void write_out(double* to, double_pair_3 cs) {
        if constexpr (unpaired) {
            store_pair(to, (Role & adds) != 0 ? load_pair(to) + cs : cs);
        } else {
            *to = (Role & adds) != 0 ? *to + cs[0] : cs[0];
        }
    }

    void two_columns(std::ptrdiff_t column) {
        double* const at = w + 2 * column;
        const double_pair_3 x = load_pair(at);
        const double_pair_3 y = load_pair(at + 2);
        double_pair_3 s = firsts(x, y);
        double_pair_3 c = seconds(x, y);
        if constexpr (per_column) read_sums(column);
        step(s, c, two);
        if constexpr ((Role & has_factor) != 0) {
            s *= load_pair(t + column);
            c *= load_pair(t + column);
        }
        if constexpr ((Role & writes_back) != 0) {
            store_pair(at, firsts(s, c));
            store_pair(at + 2, seconds(s, c));
        }
        if constexpr (has_out) {
            write_out(out + stride * column, firsts(c, s));
            write_out(out + stride * (column + 1), seconds(c, s));
        }
    }

    void one_column(std::ptrdiff_t column) {
        double* const at = w + 2 * column;
        double s = at[0];
        double c = at[1];
        if constexpr (per_column) {
            const int first = index[column];
            const translation_sum_3& r = sums[first];
            one = unpaired ? coefficients<double>{r.a1, r.b1, r.a2, r.b2}
                           : coefficients<double>{r.a2, r.b2, r.a2, r.b2};
        }
        step(s, c, one);
        if constexpr ((Role & has_factor) != 0) {
            s *= t[column];
            c *= t[column];
        }
        if constexpr ((Role & writes_back) != 0) store_pair(at, double_pair_3{s, c});
        if constexpr (has_out) write_out(out + stride * column, double_pair_3{c, s});
    }

    double* out = nullptr;
    double* w = nullptr;
    const double* t = nullptr;
    const int* index = nullptr;
    const translation_sum_3* sums = nullptr;
    std::ptrdiff_t stride = 0;
    coefficients<double> one = {};
    coefficients<double_pair_3> two = {};
};

// The kernel with the arguments of its role.

template <int Case, int Role>
void run_out(const number_store_3& out, const number_store_3& w, const int_list_3& index,
             const sum_list_3& sums, int row, int n) {
    phase_kernel<Case, Role>::run(&out, w, index, sums, row, n, nullptr);
}

template <int Case, int Role>
void run_out_t(const number_store_3& out, const number_store_3& w, const int_list_3& index,
               const sum_list_3& sums, int row, int n, const number_store_3& t) {
    phase_kernel<Case, Role | has_factor>::run(&out, w, index, sums, row, n, &t);
}

template <int Case>
void run_rotate(const number_store_3& w, const int_list_3& index, const sum_list_3& sums, int row,
                int n) {
    phase_kernel<Case, writes_back>::run(nullptr, w, index, sums, row, n, nullptr);
}

template <int Case>
void run_rotate_t(const number_store_3& w, const int_list_3& index, const sum_list_3& sums, int row,
                  int n, const number_store_3& t) {
    phase_kernel<Case, writes_back | has_factor>::run(nullptr, w, index, sums, row, n, &t);
}

template <int Case>
constexpr phase_kernel_set_3 kernel_set = {
    {run_out<Case, writes_back | stores>, run_out<Case, writes_back | adds>},
    {run_out_t<Case, writes_back | stores>, run_out_t<Case, writes_back | adds>},
    {run_out<Case, stores>, run_out<Case, adds>},
    {run_out_t<Case, stores>, run_out_t<Case, adds>},
    run_rotate<Case>,
    run_rotate_t<Case>};

constexpr int n_cases = 12;

constexpr auto kernel_sets = []<int... Index>(std::integer_sequence<int, Index...>) {
    return std::array{kernel_set<Index + 1>...};
}
(std::make_integer_sequence<int, n_cases>());

}  // namespace

int kernel_case_number_3(const kernel_case_3& c) {
    const int terms = !c.has_a ? 1 : !c.has_b ? 2 : 0;
    return 1 + (c.unpaired ? 6 : 0) + (c.per_column ? 3 : 0) + terms;
}

const phase_kernel_set_3& phase_kernels_3(int number) {
    return kernel_sets[static_cast<unsigned>(number - 1)];
}
