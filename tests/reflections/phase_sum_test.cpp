#include <algorithm>
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
    EXPECT_EQ(table[0].sine, 0.0);
    EXPECT_EQ(table[0].cosine, 1.0);
    for (int i = 1; i < 360; ++i) {
        EXPECT_NEAR(table[i].sine, std::sin(i * two_pi / 360), 1e-14);
        EXPECT_NEAR(table[i].cosine, std::cos(i * two_pi / 360), 1e-14);
    }
}

TEST(PhaseSum, Structure) {
    constexpr int unpaired = sg_phase_sum_3::has_unpaired;
    constexpr int paired = sg_phase_sum_3::all_paired;
    const struct {
        const char* ops;
        int entries;
        const char* kinds;  // those of each group
        int rows;
        int flags;
    } rows[] = {
        {"x,y,z", 1, "1", 3, unpaired},
        {"x,y,z;-x,-y,-z", 1, "2", 3, paired},
        {"x,y,z;-x+1/2,-y,-z", 2, "1 1", 6, unpaired},
        {"x,y,z;-x,y+1/2,-z", 2, "1 1", 5, unpaired},
        {"x,y,z;-x,y,-z;-x,-y,-z;x,-y,z", 2, "2 2", 4, paired},
        {"x,y,z;-x,y+1/2,-z+1/2;-x,-y,-z;x,-y+1/2,z+1/2", 2, "2 2", 4, paired},
        {"x,y,z;x+1/2,y+1/2,z+1/2", 2, "11", 3, unpaired},
        {"x,y,z;-x,-y,-z;x+1/2,y+1/2,z+1/2;-x+1/2,-y+1/2,-z+1/2", 2, "22", 3, paired},
        // The last operator in order is the one that lacks its partner.
        {"x,y,z;-x,-y,-z;x,y,z+1/2", 2, "2 1", 6, unpaired},
        {"-x,-y,-z+1/2;x,y,z;-x,-y,-z", 2, "21", 3, unpaired},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.ops);
        const xyz_list_3 ops = xyz_list_of(row.ops);
        sg_phase_sum_3 sum;
        sum.set_up(ops);
        EXPECT_EQ(sum.entries.n, row.entries);
        std::string kinds;
        for (const string_3& text : sum.group_kinds) kinds += std::string(text.data) + ' ';
        EXPECT_EQ(kinds, std::string(row.kinds) + ' ');
        EXPECT_EQ(sum.rows.n, row.rows);
        EXPECT_EQ(sum.flags, row.flags);
        for (int g = 0; g < sum.groups.n; ++g) {
            const bool has_one = text_index('1', sum.group_kinds[g].data) != not_found;
            EXPECT_EQ(sum.group_unpaired[g], has_one);
        }
    }
}

TEST(PhaseSum, TranslationsOfAnySize) {
    constexpr int least = -2147483647 - 1;
    const struct {
        int stored;
        int normalised;
    } rows[] = {{-90, 270}, {7 + 360, 7}, {-360, 0}, {2147483647, 127}, {least, 232}};
    for (const auto& row : rows) {
        sum_list_3 sums[2];
        const int translations[2] = {row.stored, row.normalised};
        for (int i = 0; i < 2; ++i) {
            xyz_list_3 ops = xyz_list_of("x,y,z;-x,y,-z");
            ops[1].trans(1) = translations[i];
            sg_phase_sum_3 sum;
            sum.set_up(ops);
            for (int k : {1, -5, 1000003, 2147483647, least}) {
                sum_list_3 part;
                sum.translation_sums(0, k, 1, part);
                sums[i].append(part);
            }
        }
        ASSERT_EQ(sums[0].n, 10);
        for (int i = 0; i < sums[0].n; ++i) {
            EXPECT_EQ(sums[0][i].a1, sums[1][i].a1) << row.stored;
            EXPECT_EQ(sums[0][i].b2, sums[1][i].b2) << row.stored;
        }
    }
}

// The folded sum at a position, put together from the phases and the translation sums.
std::complex<double> folded_sum(const sg_phase_sum_3& sum, const phase_list_3& phases, int h, int k,
                                int l) {
    sum_list_3 sums;
    sum.translation_sums(h, k, l, sums);
    double a = 0.0;
    double b = 0.0;
    for (int g = 0; g < sums.n; ++g) {
        const double* const row = phases[g].row;
        const double p = h * row[0] + k * row[1] + l * row[2];
        a += std::cos(p) * sums[g].a2 - std::sin(p) * sums[g].b2;
        b += std::sin(p) * sums[g].a1 + std::cos(p) * sums[g].b1;
    }
    return {a, b};
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
        std::set<int> covered;
        for (const int_list_3& entry : sum.entries) covered.insert(entry.begin(), entry.end());
        EXPECT_EQ(covered.size(), row.group.size());
        const bool all_paired = std::all_of(row.group.begin(), row.group.end(), [&](op_array op) {
            for (unsigned i = 0; i < 12; ++i) op[i] = i % 4 == 3 ? (360 - op[i]) % 360 : -op[i];
            return row.group.count(op) == 1;
        });
        const bool is_lone = row.group.size() == 1;
        EXPECT_EQ((sum.flags & sg_phase_sum_3::all_paired) != 0, all_paired && !is_lone);
        phase_list_3 phases;
        sum.position_phases(position, phases);
        for (const auto& [h, k, l] : indices) {
            const auto difference =
                folded_sum(sum, phases, h, k, l) - structure_factor(row.group, position, h, k, l);
            EXPECT_LT(std::abs(difference), 1e-8) << h << ' ' << k << ' ' << l;
        }
    }
}

// A generator that is ready to evaluate reflections.
void set_up(hkl_generator_3& generator, const xyz_list_3& ops) {
    constexpr double positions[2][3] = {{0.12035, 0.07896, 0.14478}, {0.19523, 0.25341, 0.19412}};
    generator.sum.set_up(ops);
    for (int i = 0; i < 2; ++i) {
        generator.sum.position_phases(positions[i], generator.position_phases[i]);
    }
}

TEST(AbsenceValue, ScrewAxis) {
    const xyz_list_3 ops = xyz_list_of("x,y,z;-x,y+1/2,-z");
    hkl_generator_3 generator;
    set_up(generator, ops);
    sum_list_3 sums;
    EXPECT_LE(generator.absence_value(0, 1, 0, sums), 1e-9);
    EXPECT_LE(generator.absence_value(0, -2000003, 0, sums), 1e-9);
    EXPECT_EQ(generator.absence_value(0, 2, 0, sums), 1.0);
    EXPECT_EQ(generator.absence_value(1, 1, 0, sums), 1.0);
}

struct verdict_counts {
    int certain;
    int unsure;
};

// Holds each quick verdict on the reflections of a box, of which only every `step`th index is
// taken, against the full evaluation.
verdict_counts compare_verdicts(const xyz_list_3& ops, int largest, int step) {
    hkl_generator_3 generator;
    set_up(generator, ops);
    presence_3 presence;
    presence.set_up(generator.sum, generator.position_phases[0], largest);
    verdict_counts counts = {0, 0};
    sum_list_3 sums;
    for (int h = largest % step; h <= largest; h += step) {
        for (int k = -largest; k <= largest; k += step) {
            presence.begin_line(h, k);
            for (int l = -largest; l <= largest; l += step) {
                const presence_3::verdict verdict = presence.test(l);
                ++(verdict == presence_3::unsure ? counts.unsure : counts.certain);
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
        const verdict_counts near_origin = compare_verdicts(ops, 5, 1);
        EXPECT_LT(near_origin.unsure, near_origin.certain);
        compare_verdicts(ops, 500, 239);
    }
}

TEST(Presence, LeavesWhatItHasNoTablesFor) {
    xyz_list_3 ops = xyz_list_of("x,y,z;-x,-y,-z");
    ops[1].trans(0) = ops[1].trans(1) = ops[1].trans(2) = 7;
    EXPECT_EQ(compare_verdicts(ops, 3, 1).certain, 0);
    ops[1].trans(0) = ops[1].trans(1) = ops[1].trans(2) = 120;
    EXPECT_EQ(compare_verdicts(ops, 3, 1).unsure, 0);
    EXPECT_EQ(compare_verdicts(ops, 1000000, 500000).certain, 0);
}

}  // namespace
