#include "library/magnetic/sum_into_mag_3.h"

#include <cmath>
#include <cstddef>
#include <new>

namespace {

constexpr int n_masks = 64;

template <typename T>
const T* row_of(const store_3<T>& store, int row) {
    return store.p + std::ptrdiff_t{store.stride} * row;
}

// Calls body(column) for 0 to n - 1, four columns a pass.
template <typename Body>
void by_fours(int n, Body body) {
    int column = 0;
    for (; column + 4 <= n; column += 4) {
        body(column);
        body(column + 1);
        body(column + 2);
        body(column + 3);
    }
    for (; column < n; ++column) body(column);
}

}  // namespace

template <typename P0, typename P1, typename P2, typename P3, typename P4, typename P5>
class sum_into_mag_3 final : public B_sum_into_mag_3 {
public:
    sum_into_mag_3(const B_sum_into_mag_3* twin_, int mask_)
        : B_sum_into_mag_3(twin_ != nullptr ? twin_ : this, mask_) {}

    void sum_t(const number_store_3& t, int row, const number_store_3& w, const number_store_3& out,
               const moment_3& moment) const override {
        const double* const factors = row_of(t, row);
        real_form(row, w, out, moment, [=](int column) { return factors[column]; });
    }

    void sum(int row, const number_store_3& w, const number_store_3& out,
             const moment_3& moment) const override {
        real_form(row, w, out, moment, [](int) { return 1.0; });
    }

    void sum_i(const store_3<float>& v, int row, const number_store_3& w, const number_store_3& out,
               const moment_3& moment) const override {
        const float* const factors = row_of(v, row);
        i_form(row, w, out, moment, [=](int column) { return double{factors[column]}; });
    }

    void sum_i_t(const store_3<float>& v, const number_store_3& t, int row, const number_store_3& w,
                 const number_store_3& out, const moment_3& moment) const override {
        i_form(row, w, out, moment, product(v, t, row));
    }

    void sum_f_t(const store_3<float>& v, const number_store_3& t, int row, const number_store_3& w,
                 const number_store_3& out, const moment_3& moment) const override {
        real_form(row, w, out, moment, product(v, t, row));
    }

    void sum_scaled(const number_store_3& out, const number_store_3& in,
                    const list_0_3<double>& scale) const override {
        for (int column = 0; column < scale.n; ++column) {
            take_scaled(row_at(out, column), row_at(in, column), scale[column]);
        }
    }

    void sum_rows(const number_store_3& out, const number_store_3& in) const override {
        for (int column = 0; column < out.n; ++column) {
            take_scaled(row_at(out, column), row_at(in, column), 1.0);
        }
    }

    void scale_rows(const number_store_3& out, const list_0_3<double>& scale) const override {
        for (int column = 0; column < scale.n; ++column) {
            double* const row = row_at(out, column);
            for (int i = 0; i < 6; ++i) row[i] *= scale[column];
        }
    }

private:
    static double* row_at(const number_store_3& store, int row) {
        return store.p + std::ptrdiff_t{store.stride} * row;
    }

    static auto product(const store_3<float>& v, const number_store_3& t, int row) {
        const float* const a = row_of(v, row);
        const double* const b = row_of(t, row);
        return [=](int column) { return b[column] * double{a[column]}; };
    }

    static void take(double* row, double r0, double r1, double r2, double r3, double r4,
                     double r5) {
        P0::take(row[0], r0);
        P1::take(row[1], r1);
        P2::take(row[2], r2);
        P3::take(row[3], r3);
        P4::take(row[4], r4);
        P5::take(row[5], r5);
    }

    static void take_scaled(double* row, const double* in, double a) {
        take(row, a * in[0], a * in[1], a * in[2], a * in[3], a * in[4], a * in[5]);
    }

    template <typename Factor>
    static void real_form(int row, const number_store_3& w, const number_store_3& out,
                          const moment_3& moment, Factor factor) {
        const double* const pairs = w.p + 2 * std::ptrdiff_t{w.stride} * row;
        const moment_3 m = moment;
        by_fours(out.n, [=, &out](int column) {
            const double s = factor(column) * pairs[2 * std::ptrdiff_t{column}];
            const double c = factor(column) * pairs[2 * std::ptrdiff_t{column} + 1];
            take(row_at(out, column), c * m.m[0], s * m.m[3], c * m.m[1], s * m.m[4], c * m.m[2],
                 s * m.m[5]);
        });
    }

    template <typename Factor>
    static void i_form(int row, const number_store_3& w, const number_store_3& out,
                       const moment_3& moment, Factor factor) {
        const double* const pairs = w.p + 2 * std::ptrdiff_t{w.stride} * row;
        const moment_3 m = moment;
        by_fours(out.n, [=, &out](int column) {
            const double s = -factor(column) * pairs[2 * std::ptrdiff_t{column}];
            const double c = factor(column) * pairs[2 * std::ptrdiff_t{column} + 1];
            take(row_at(out, column), s * m.m[0], c * m.m[3], s * m.m[1], c * m.m[4], s * m.m[2],
                 c * m.m[5]);
        });
    }
};

namespace {

using mask_table = B_sum_into_mag_3* [n_masks];

// The 64 objects that add and the 64 that store. None of them is ever destroyed. What an attempt
// got before memory ran out serves the next one.
void build_mask_table(mask_table& table) {
    static_assert(sizeof(adding_sum_into_mag_3) == sizeof(storing_sum_into_mag_3));
    static void* places[2 * n_masks];
    static int n_places = 0;
    for (; n_places < 2 * n_masks; ++n_places) {
        places[n_places] = alloc_block(sizeof(adding_sum_into_mag_3));
    }
    for (int m = 0; m < n_masks; ++m) {
        const auto* twin = ::new (places[n_masks + m]) storing_sum_into_mag_3(nullptr, m);
        table[m] = ::new (places[m]) adding_sum_into_mag_3(twin, m);
    }
}

}  // namespace

const B_sum_into_mag_3* mask_entry(int m) {
    static mask_table table;
    static bool is_built = false;
    if (!is_built) {
        build_mask_table(table);
        is_built = true;
    }
    return table[m];
}

moment_mask_3 mask_of(const moment_3& moment) {
    constexpr double zero = 1e-11;
    constexpr int places[6] = {5, 2, 4, 1, 3, 0};  // by rising bit value
    int mask = 0;
    for (int bit = 0; bit < 6; ++bit) {
        if (std::abs(moment.m[places[bit]]) > zero) mask |= 1 << bit;
    }
    return {mask, mask_entry(mask)};
}

const B_sum_into_mag_3* combine(const B_sum_into_mag_3* a, const B_sum_into_mag_3* b) {
    return mask_entry(a->mask | b->mask);
}

const B_sum_into_mag_3* combine(const mag_entry_list_3& list) {
    const B_sum_into_mag_3* result = mask_entry(0);
    for (const B_sum_into_mag_3* entry : list) result = combine(result, entry);
    return result;
}
