#include <gtest/gtest.h>
#include <vector>

#include "foundation/heap_watch.h"
#include "library/magnetic/sum_into_mag_3.h"

namespace {

using numbers = std::vector<double>;

TEST(MaskTable, Entries) {
    // Memory that runs out while the table is built isn't lost: no attempt asks for more than is
    // missing.
    int requests = 0;
    while (!survives(2, [] { mask_entry(0); })) ++requests;
    EXPECT_TRUE(requests == 127 || requests == 0) << requests;
    for (int m = 0; m < 64; ++m) {
        const B_sum_into_mag_3* const entry = mask_entry(m);
        EXPECT_EQ(entry->twin->mask, m);
        EXPECT_NE(entry->twin, entry);
        EXPECT_EQ(entry->twin->twin, entry->twin);
    }
    mag_entry_list_3 list;
    EXPECT_EQ(combine(list), mask_entry(0));
    for (int m : {1, 4, 16, 20}) list.add(mask_entry(m)->twin);
    EXPECT_EQ(combine(list), mask_entry(21));
    EXPECT_EQ(mask_of({{1e-11, -2e-11, 0, 0, 1, 0}}).mask, 12);
    EXPECT_EQ(mask_of({{0, 0, 1, 1, 0, 0}}).entry, mask_entry(18));
}

// Rows that lie 7 numbers apart, and one number after the last.
numbers some_rows(int n) {
    numbers rows(static_cast<std::size_t>(7 * n + 1));
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = 100.0 + static_cast<double>(i);
    return rows;
}

TEST(SumIntoMag, Forms) {
    const moment_3 moment = {{1, 2, 3, 4, 5, 6}};
    // Two groups of six reflections; the second is asked for.
    numbers w;
    numbers t;
    std::vector<float> v;
    for (int i = 0; i < 24; ++i) {
        w.push_back(0.25 * i - 3.5);
        t.push_back(2.0 + i);
        v.push_back(0.5F * static_cast<float>(i));
    }
    const number_store_3 ws = {w.data(), 6};
    const number_store_3 ts = {t.data(), 8};
    const store_3<float> vs = {v.data(), 10};
    for (int i = 0; i < 14; ++i) {
        const int n = i / 2;
        const bool stores = i % 2 != 0;
        const B_sum_into_mag_3& entry = stores ? *mask_entry(63)->twin : *mask_entry(63);
        const auto check = [&](bool i_form, bool has_t, bool has_v, auto operation) {
            numbers expected = some_rows(n);
            for (std::size_t r = 0; r < static_cast<std::size_t>(n); ++r) {
                const double f = (has_t ? t[8 + r] : 1.0) * (has_v ? v[10 + r] : 1.0);
                const double s = f * w[2 * (6 + r)];
                const double c = f * w[2 * (6 + r) + 1];
                const double re = i_form ? -s : c;
                const double im = i_form ? c : s;
                const double values[] = {re, 4 * im, 2 * re, 5 * im, 3 * re, 6 * im};
                for (std::size_t k = 0; k < 6; ++k) {
                    expected[7 * r + k] = values[k] + (stores ? 0.0 : expected[7 * r + k]);
                }
            }
            numbers rows = some_rows(n);
            operation(number_store_3{rows.data(), 7, n});
            EXPECT_EQ(rows, expected) << n << stores << i_form << has_t << has_v;
        };
        check(false, false, false, [&](auto out) { entry.sum(1, ws, out, moment); });
        check(false, true, false, [&](auto out) { entry.sum_t(ts, 1, ws, out, moment); });
        check(true, false, true, [&](auto out) { entry.sum_i(vs, 1, ws, out, moment); });
        check(true, true, true, [&](auto out) { entry.sum_i_t(vs, ts, 1, ws, out, moment); });
        check(false, true, true, [&](auto out) { entry.sum_f_t(vs, ts, 1, ws, out, moment); });
    }
}

TEST(SumIntoMag, Rows) {
    numbers in(13);
    for (std::size_t i = 0; i < in.size(); ++i) in[i] = static_cast<double>(i);
    const number_store_3 source = {in.data(), 6, 2};
    list_0_3<double> scale;
    for (const double factor : {2.0, -1.0}) scale.add(factor);
    // Expects rows that are each some multiple of what was there and of what came in.
    const auto check = [&](auto operation, const double(&kept)[2], const double(&taken)[2]) {
        numbers expected = some_rows(2);
        for (std::size_t i = 0; i < 12; ++i) {
            double& value = expected[7 * (i / 6) + i % 6];
            value = value * kept[i / 6] + in[i] * taken[i / 6];
        }
        numbers rows = some_rows(2);
        operation(number_store_3{rows.data(), 7, 2});
        EXPECT_EQ(rows, expected);
    };
    for (const B_sum_into_mag_3* entry : {mask_entry(5), mask_entry(5)->twin}) {
        const double keeps = entry == entry->twin ? 0.0 : 1.0;
        check([&](auto out) { entry->scale_rows(out, scale); }, {2, -1}, {0, 0});
        check([&](auto out) { entry->sum_scaled(out, source, scale); }, {keeps, keeps}, {2, -1});
        check([&](auto out) { entry->sum_rows(out, source); }, {keeps, keeps}, {1, 1});
    }
}

}  // namespace
