#include <gtest/gtest.h>
#include <vector>

#include "library/sum_into_mag_3.h"

namespace {

using numbers = std::vector<double>;

TEST(MaskTable, Entries) {
    for (int m = 0; m < 64; ++m) {
        const B_sum_into_mag_3* const entry = mask_entry(m);
        EXPECT_EQ(entry->mask, m);
        EXPECT_EQ(entry->twin->mask, m);
        EXPECT_NE(entry->twin, entry);
        EXPECT_EQ(mask_entry(m), entry) << "the same for all callers";
    }
    EXPECT_EQ(combine(mask_entry(8), mask_entry(32)), mask_entry(40));
    EXPECT_EQ(combine(mask_entry(8)->twin, mask_entry(12)), mask_entry(12));
    mag_entry_list_3 list;
    EXPECT_EQ(combine(list), mask_entry(0));
    for (int m : {1, 4, 16}) list.add(mask_entry(m));
    EXPECT_EQ(combine(list), mask_entry(21));
}

TEST(MaskTable, MaskOfMoment) {
    const struct {
        moment_3 moment;
        int mask;
    } rows[] = {
        {{{0, 0, 0, 0, 0, 0}}, 0},     {{{1, 0, 0, 0, 0, 0}}, 32},
        {{{0, 0, 0, 1, 0, 0}}, 16},    {{{0, -2e-11, 0, 0, 0, 0}}, 8},
        {{{0, 0, 0, 0, 1, 0}}, 4},     {{{0, 0, 1, 0, 0, 0}}, 2},
        {{{0, 0, 0, 0, 0, 1}}, 1},     {{{1, -1, 1, -1, 1, -1}}, 63},
        {{{1e-11, 0, 0, 0, 0, 3}}, 1},
    };
    for (const auto& row : rows) {
        const moment_mask_3 found = mask_of(row.moment);
        EXPECT_EQ(found.mask, row.mask);
        EXPECT_EQ(found.entry, mask_entry(row.mask));
    }
}

// What an operation leaves in rows that held 100, 101, ... before.
template <typename Operation>
numbers rows_after(int n, Operation operation) {
    numbers rows(static_cast<std::size_t>(7 * n + 1));
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = 100.0 + static_cast<double>(i);
    operation(number_store_3{rows.data(), 7, n});
    return rows;
}

TEST(SumIntoMag, Forms) {
    const moment_3 moment = {{1, 2, 3, 4, 5, 6}};
    // Two groups of six reflections; the second is asked for.
    numbers w(24, -99.0);
    numbers t(16, -99.0);
    std::vector<float> v(20, -99.0F);
    for (int i = 0; i < 6; ++i) {
        w[static_cast<std::size_t>(12 + 2 * i)] = 0.25 * i;
        w[static_cast<std::size_t>(13 + 2 * i)] = 1.0 - 0.5 * i;
        t[static_cast<std::size_t>(8 + i)] = 2.0 + i;
        v[static_cast<std::size_t>(10 + i)] = 0.5F * static_cast<float>(i);
    }
    const number_store_3 ws = {w.data(), 6};
    const number_store_3 ts = {t.data(), 8};
    const store_3<float> vs = {v.data(), 10};
    for (int n = 0; n <= 6; ++n) {
        for (const bool stored : {false, true}) {
            const B_sum_into_mag_3* const entry = stored ? mask_entry(63)->twin : mask_entry(63);
            const auto expect = [&](const numbers& rows, auto factor, bool i_form) {
                const numbers before = rows_after(n, [](const number_store_3&) {});
                for (int r = 0; r < n; ++r) {
                    const double a = factor(r);
                    const double s = a * 0.25 * r;
                    const double c = a * (1.0 - 0.5 * r);
                    const double re = i_form ? -s : c;
                    const double im = i_form ? c : s;
                    const double values[7] = {re, 4 * im, 2 * re, 5 * im, 3 * re, 6 * im, 0};
                    for (int i = 0; i < 7; ++i) {
                        const auto at = static_cast<std::size_t>(7 * r + i);
                        const bool keeps = !stored || i == 6;
                        EXPECT_DOUBLE_EQ(rows[at], values[i] + (keeps ? before[at] : 0.0));
                    }
                }
                EXPECT_EQ(rows.back(), before.back());
            };
            const auto t_of = [](int r) { return 2.0 + r; };
            const auto v_of = [](int r) { return 0.5 * r; };
            const auto product = [&](int r) { return t_of(r) * v_of(r); };
            const auto run = [&](auto operation) { return rows_after(n, operation); };
            expect(
                run([&](const auto& out) { entry->sum(1, ws, out, moment); }),
                [](int) { return 1.0; }, false);
            expect(run([&](const auto& out) { entry->sum_t(ts, 1, ws, out, moment); }), t_of,
                   false);
            expect(run([&](const auto& out) { entry->sum_i(vs, 1, ws, out, moment); }), v_of, true);
            expect(run([&](const auto& out) { entry->sum_i_t(vs, ts, 1, ws, out, moment); }),
                   product, true);
            expect(run([&](const auto& out) { entry->sum_f_t(vs, ts, 1, ws, out, moment); }),
                   product, false);
        }
    }
}

TEST(SumIntoMag, Rows) {
    numbers in(13);
    for (std::size_t i = 0; i < in.size(); ++i) in[i] = static_cast<double>(i);
    const number_store_3 source = {in.data(), 6, 2};
    list_0_3<double> scale;
    scale.add(2.0);
    scale.add(-1.0);
    const B_sum_into_mag_3* const adding = mask_entry(5);
    const auto run = [](auto operation) { return rows_after(2, operation); };
    const numbers before = run([](const auto&) {});
    const numbers scaled = run([&](const auto& out) { adding->scale_rows(out, scale); });
    EXPECT_EQ(run([&](const auto& out) { adding->twin->scale_rows(out, scale); }), scaled);
    const numbers added = run([&](const auto& out) { adding->sum_scaled(out, source, scale); });
    const numbers stored =
        run([&](const auto& out) { adding->twin->sum_scaled(out, source, scale); });
    const numbers plain = run([&](const auto& out) { adding->sum_rows(out, source); });
    const numbers copied = run([&](const auto& out) { adding->twin->sum_rows(out, source); });
    for (std::size_t r = 0; r < 2; ++r) {
        for (std::size_t i = 0; i < 6; ++i) {
            const std::size_t at = 7 * r + i;
            const double value = in[6 * r + i];
            const double factor = scale[static_cast<int>(r)];
            EXPECT_EQ(scaled[at], before[at] * factor);
            EXPECT_EQ(added[at], before[at] + value * factor);
            EXPECT_EQ(stored[at], value * factor);
            EXPECT_EQ(plain[at], before[at] + value);
            EXPECT_EQ(copied[at], value);
        }
        for (const numbers& rows : {scaled, added, stored, plain, copied}) {
            EXPECT_EQ(rows[7 * r + 6], before[7 * r + 6]);
        }
    }
}

}  // namespace
