#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <string>

#include "foundation/heap_3.h"
#include "reflections/hkl_generator_3.h"
#include "support/operators.h"

namespace {

constexpr double two_pi = 2 * std::numbers::pi;

TEST(PhaseSum, Structure) {
    constexpr int unpaired = sg_phase_sum_3::has_unpaired;
    constexpr int paired = sg_phase_sum_3::all_paired;
    const struct {
        const char* ops;
        int entries, rows, flags;
        const char* kinds;  // those of each group
    } rows[] = {
        {"x,y,z;-x+1/2,-y,-z", 2, 6, unpaired, "1 1 "},
        {"x,y,z;-x,y+1/2,-z+1/2;-x,-y,-z;x,-y+1/2,z+1/2", 2, 4, paired, "2 2 "},
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

// The work for repeated operators grows no faster than their number.
TEST(PhaseSum, RepeatedOperators) {
    constexpr int n = 20000;
    static std::size_t requested;
    requested = 0;
    xyz_list_3 ops = xyz_list_of("x,y,z");
    for (int i = 1; i < n; ++i) ops.add(ops[0]);
    sg_phase_sum_3 sum;
    the_heap().before_alloc = [](std::size_t size) { requested += size; };
    sum.set_up(ops);
    the_heap().before_alloc = nullptr;
    EXPECT_EQ(sum.group_kinds[0], std::string(n, '1').c_str());
    EXPECT_LT(requested, std::size_t{1000} * n);
}

TEST(PhaseSum, EverySetting) {
    constexpr double position[3] = {0.371, -0.1234, 1.718};
    constexpr int indices[][3] = {{1, 2, 3}, {-4, 0, 7}, {0, 0, 1}, {0, -3, 0}, {2, -1, 0},
                                  {5, 5, 5}, {2, 4, 6},  {8, 0, 4}, {-7, 7, 1}, {700, -800, 901}};
    std::vector<setting> settings = read_settings();
    // No group: an operator without its negative beside a pair with the same rotation.
    settings.push_back({0, "odd", "", 'P', "", "-x,-y,-z+1/2;x,y,z;-x,-y,-z", {}});
    for (const auto& op : split(settings.back().operators, ';')) {
        settings.back().group.insert(op_of(op));
    }
    for (const setting& row : settings) {
        SCOPED_TRACE(row.symbol + ' ' + row.choice);
        const xyz_list_3 ops = xyz_list_of(row.operators);
        sg_phase_sum_3 sum;
        sum.set_up(ops);
        const bool all_paired = std::all_of(row.group.begin(), row.group.end(), [&](op_array op) {
            for (unsigned i = 0; i < 12; ++i) op[i] = i % 4 == 3 ? (360 - op[i]) % 360 : -op[i];
            return row.group.count(op) == 1;
        });
        EXPECT_EQ((sum.flags & sg_phase_sum_3::all_paired) != 0, all_paired);
        phase_list_3 phases;
        sum.position_phases(position, phases);
        sum_list_3 sums;
        for (const auto& hkl : indices) {
            double a = 0.0;
            double b = 0.0;
            for (const op_array& op : row.group) {
                a -= std::cos(two_pi * turns_of(op, position, hkl));
                b -= std::sin(two_pi * turns_of(op, position, hkl));
            }
            sum.translation_sums(hkl[0], hkl[1], hkl[2], sums);
            sum.add_position_terms(b, a, phases, hkl[0], hkl[1], hkl[2], sums);
            EXPECT_LT(std::hypot(a, b), 1e-8) << testing::PrintToString(hkl);
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
