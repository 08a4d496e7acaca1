#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <gtest/gtest.h>
#include <numbers>
#include <string>

#include "reflections/hkl_generator_3.h"
#include "support/operators.h"

namespace {

constexpr double two_pi = 2 * std::numbers::pi;

TEST(PhaseSum, Table) {
    const sine_cosine_3* const table = phase_table_3();
    for (int i = 0; i < 360; ++i) {
        EXPECT_NEAR(table[i].sine, std::sin(i * two_pi / 360), 1e-14);
        EXPECT_NEAR(table[i].cosine, std::cos(i * two_pi / 360), 1e-14);
    }
}

TEST(PhaseSum, Structure) {
    constexpr int unpaired = sg_phase_sum_3::has_unpaired;
    constexpr int paired = sg_phase_sum_3::all_paired;
    const struct {
        const char* ops;
        int entries, rows, flags;
        const char* kinds;  // those of each group
    } rows[] = {
        {"x,y,z", 1, 3, unpaired, "1 "},
        {"x,y,z;-x,-y,-z", 1, 3, paired, "2 "},
        {"x,y,z;-x+1/2,-y,-z", 2, 6, unpaired, "1 1 "},
        {"x,y,z;-x,y+1/2,-z+1/2;-x,-y,-z;x,-y+1/2,z+1/2", 2, 4, paired, "2 2 "},
        {"x,y,z;x+1/2,y+1/2,z+1/2", 2, 3, unpaired, "11 "},
        {"x,y,z;-x,-y,-z;x+1/2,y+1/2,z+1/2;-x+1/2,-y+1/2,-z+1/2", 2, 3, paired, "22 "},
        // The last operator in order is the one that lacks its partner.
        {"x,y,z;-x,-y,-z;x,y,z+1/2", 2, 6, unpaired, "2 1 "},
        {"-x,-y,-z+1/2;x,y,z;-x,-y,-z", 2, 3, unpaired, "21 "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.ops);
        const xyz_list_3 ops = xyz_list_of(row.ops);
        sg_phase_sum_3 sum;
        sum.set_up(ops);
        EXPECT_EQ(sum.entries.n, row.entries);
        EXPECT_EQ(sum.rows.n, row.rows);
        EXPECT_EQ(sum.flags, row.flags);
        std::string kinds;
        for (int g = 0; g < sum.groups.n; ++g) {
            const std::string text = sum.group_kinds[g].data;
            kinds += text + ' ';
            EXPECT_EQ(sum.group_unpaired[g] != 0, text.find('1') != text.npos);
        }
        EXPECT_EQ(kinds, row.kinds);
    }
}

TEST(PhaseSum, TranslationsOfAnySize) {
    constexpr int most = 2147483647;
    constexpr int least = -most - 1;
    // The sums of a 2-fold screw axis along it.
    const auto sums_of = [](int translation, int k) {
        xyz_list_3 ops = xyz_list_of("x,y,z;-x,y,-z");
        ops[1].trans(1) = translation;
        sg_phase_sum_3 sum;
        sum.set_up(ops);
        sum_list_3 sums;
        sum.translation_sums(0, k, 1, sums);
        return std::array{sums[0].a1, sums[0].b2, sums[1].a1, sums[1].b2};
    };
    const int pairs[][2] = {{-90, 270}, {367, 7}, {-360, 0}, {most, 127}, {least, 232}};
    for (const auto& [stored, normalised] : pairs) {
        for (int k : {1, -5, 1000003, most, least}) {
            EXPECT_EQ(sums_of(stored, k), sums_of(normalised, k)) << stored;
        }
    }
}

std::complex<double> structure_factor(const std::set<op_array>& ops, const double* x, int h, int k,
                                      int l) {
    std::complex<double> sum;
    for (const op_array& op : ops) {
        double phase = 0.0;
        const int index[3] = {h, k, l};
        for (unsigned i = 0; i < 3; ++i) {
            const int* const row = &op[4 * i];
            phase += index[i] * (row[0] * x[0] + row[1] * x[1] + row[2] * x[2] + row[3] / 360.0);
        }
        sum += std::polar(1.0, two_pi * phase);
    }
    return sum;
}

TEST(PhaseSum, EverySetting) {
    constexpr double position[3] = {0.371, -0.1234, 1.718};
    constexpr int indices[][3] = {{1, 2, 3}, {-4, 0, 7}, {0, 0, 1}, {0, -3, 0}, {2, -1, 0},
                                  {5, 5, 5}, {2, 4, 6},  {8, 0, 4}, {-7, 7, 1}, {700, -800, 901}};
    for (const setting& row : read_settings()) {
        SCOPED_TRACE(row.symbol + ' ' + row.choice);
        const xyz_list_3 ops = xyz_list_of(row.operators);
        sg_phase_sum_3 sum;
        sum.set_up(ops);
        const bool all_paired = std::all_of(row.group.begin(), row.group.end(), [&](op_array op) {
            for (unsigned i = 0; i < 12; ++i) op[i] = i % 4 == 3 ? (360 - op[i]) % 360 : -op[i];
            return row.group.count(op) == 1;
        });
        const bool is_lone = row.group.size() == 1;
        EXPECT_EQ((sum.flags & sg_phase_sum_3::all_paired) != 0, all_paired && !is_lone);
        phase_list_3 phases;
        sum.position_phases(position, phases);
        sum_list_3 sums;
        for (const auto& [h, k, l] : indices) {
            const std::complex<double> expected = structure_factor(row.group, position, h, k, l);
            double a = -expected.real();
            double b = -expected.imag();
            sum.translation_sums(h, k, l, sums);
            sum.add_position_terms(b, a, phases, h, k, l, sums);
            EXPECT_LT(std::hypot(a, b), 1e-8) << h << ' ' << k << ' ' << l;
        }
    }
}

using verdict_counts = std::array<int, 3>;  // by verdict

// Holds each quick verdict on the reflections of a box, of which only every `step`th index is
// taken, against the full evaluation.
verdict_counts compare_verdicts(const xyz_list_3& ops, int largest, int step) {
    constexpr double positions[2][3] = {{0.12035, 0.07896, 0.14478}, {0.19523, 0.25341, 0.19412}};
    hkl_generator_3 generator;
    generator.sum.set_up(ops);
    for (int i = 0; i < 2; ++i) {
        generator.sum.position_phases(positions[i], generator.position_phases[i]);
    }
    presence_3 presence;
    presence.set_up(generator.sum, generator.position_phases[0], largest);
    verdict_counts counts{};
    sum_list_3 sums;
    for (int h = largest % step; h <= largest; h += step) {
        for (int k = -largest; k <= largest; k += step) {
            presence.begin_line(h, k);
            for (int l = -largest; l <= largest; l += step) {
                const presence_3::verdict verdict = presence.test(l);
                ++counts[verdict];
                if (verdict == presence_3::unsure) continue;
                const bool present = generator.absence_value(h, k, l, sums) > 1e-9;
                EXPECT_EQ(verdict == presence_3::present, present) << h << ' ' << k << ' ' << l;
            }
        }
    }
    return counts;
}

TEST(Presence, SameVerdictAsTheFullEvaluation) {
    for (const setting& row : read_settings()) {
        SCOPED_TRACE(row.symbol + ' ' + row.choice);
        const xyz_list_3 ops = xyz_list_of(row.operators);
        const auto [absent, present, unsure] = compare_verdicts(ops, 5, 1);
        EXPECT_LT(unsure, absent + present);
        compare_verdicts(ops, 500, 239);
    }
}

TEST(Presence, LeavesWhatItHasNoTablesFor) {
    const auto unsure_of = [](int translation, int largest, int step) {
        xyz_list_3 ops = xyz_list_of("x,y,z;-x,-y,-z");
        ops[1].trans(0) = ops[1].trans(1) = ops[1].trans(2) = translation;
        const auto [absent, present, unsure] = compare_verdicts(ops, largest, step);
        return 100.0 * unsure / (absent + present + unsure);  // in percent
    };
    EXPECT_EQ(unsure_of(7, 3, 1), 100);
    EXPECT_EQ(unsure_of(120, 3, 1), 0);
    EXPECT_EQ(unsure_of(120, 1000000, 500000), 100);
}

}  // namespace
