#include <cmath>
#include <complex>
#include <gtest/gtest.h>
#include <map>
#include <numbers>

#include "library/magnetic_structure_factors.h"
#include "library/sum_into_mag_3.h"
#include "support/magnetic_reference.h"

namespace {

using complex = std::complex<double>;

constexpr double scale = 0.2695;

// Operators such as `x,y,z,1;-x,-y,-z,-1`.
xyz_list_3 signed_list_of(const std::string& text) {
    xyz_list_3 ops;
    for (const std::string& op : split(text, ';')) {
        const std::size_t comma = op.rfind(',');
        ops.add(xyz_op_of(op.substr(0, comma)));
        ops[ops.last()].tag = std::stoi(op.substr(comma + 1));
    }
    return ops;
}

xyz_list_3 list_of(const magnetic_reference& group) {
    xyz_list_3 ops;
    for (const auto& [op, sign] : group.ops) {
        ops.add(xyz_op_of(op));
        ops[ops.last()].tag = sign;
    }
    return ops;
}

TEST(GroupMoments, WeightsByPairing) {
    const struct {
        const char* ops;
        std::vector<std::vector<int>> kinds;  // of the members, by group
        std::vector<moment_3> moments;        // along axis 0, in units of the scale
    } rows[] = {
        {"x,y,z,1", {{0}}, {{{1, 0, 0, 1, 0, 0}}}},
        {"x,y,z,-1", {{0}}, {{{-1, 0, 0, -1, 0, 0}}}},
        // An axial vector: the determinant counts like the time reversal.
        {"x,-y,z,1", {{0}}, {{{-1, 0, 0, -1, 0, 0}}}},
        {"-x,y,-z,-1", {{0}}, {{{1, 0, 0, 1, 0, 0}}}},
        // Pairs of equal sign are real, those of opposite sign imaginary. The inversion sorts
        // before the identity and gives the group its rotation.
        {"x,y,z,1;-x,-y,-z,1", {{1, 1}}, {{{1, 0, 0, 0, 0, 0}}}},
        {"x,y,z,1;-x,-y,-z,-1", {{2, 3}}, {{{0, 0, 0, -1, 0, 0}}}},
        {"x,y,z,-1;-x,-y,-z,-1", {{1, 1}}, {{{-1, 0, 0, 0, 0, 0}}}},
        // Both signs at once: no members, no moment.
        {"x,y,z,2", {{}}, {{{0, 0, 0, 0, 0, 0}}}},
        {"x,y,z,2;-x,-y,z,1", {{0}, {}}, {{{-1, 0, 0, -1, 0, 0}}, {{0, 0, 0, 0, 0, 0}}}},
        // Centring copies share the weight; primed translations make a group of their own.
        {"x,y,z,1;x+1/2,y,z,1", {{0, 0}}, {{{1, 0, 0, 1, 0, 0}}}},
        {"x,y,z,1;x+1/2,y,z,-1", {{0}, {0}}, {{{-1, 0, 0, -1, 0, 0}}, {{1, 0, 0, 1, 0, 0}}}},
        {"x,y,z,1;-x,-y,-z,1;x+1/2,y,z,-1;-x+1/2,-y,-z,-1",
         {{1, 1}, {1, 1}},
         {{{-1, 0, 0, 0, 0, 0}}, {{1, 0, 0, 0, 0, 0}}}},
        // The first column of the rotation.
        {"-y,x-y,z,1", {{0}}, {{{0, 1, 0, 0, 1, 0}}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.ops);
        const xyz_list_3 ops = signed_list_of(row.ops);
        sg_phase_sum_3 sum;
        sum.set_up_magnetic(ops);
        std::vector<std::vector<int>> kinds;
        for (const int_list_3& list : sum.mag_kinds) kinds.emplace_back(list.begin(), list.end());
        EXPECT_EQ(kinds, row.kinds);
        sum.find_axis_moments_3(0);
        ASSERT_EQ(static_cast<std::size_t>(sum.axis_moments[0].n), row.moments.size());
        for (int g = 0; g < sum.groups.n; ++g) {
            for (int i = 0; i < 6; ++i) {
                EXPECT_NEAR(sum.axis_moments[0][g].m[i],
                            scale * row.moments[static_cast<std::size_t>(g)].m[i], 1e-15)
                    << g << ' ' << i;
            }
        }
    }
}

TEST(GroupMoments, EntriesAndTwins) {
    const xyz_list_3 ops = signed_list_of("x,y,z,2;-x,-y,z,1;-x,y,-z,1;x,-y,-z,-1");
    sg_phase_sum_3 sum;
    sum.set_up_magnetic(ops);
    EXPECT_EQ(sum.axis_entries[1].n, 0) << "not asked for yet";
    EXPECT_EQ(sum.axis_has_moment_3(1), 1);
    ASSERT_EQ(sum.axis_entries[1].n, 4);
    EXPECT_EQ(sum.axis_entries[1][0], mask_entry(12)->twin) << "the first with members stores";
    EXPECT_EQ(sum.axis_entries[1][1], mask_entry(12));
    EXPECT_EQ(sum.axis_entries[1][2], mask_entry(12));
    EXPECT_EQ(sum.axis_entries[1][3], mask_entry(0)) << "no members";
    const B_sum_into_mag_3* const* const held = sum.axis_entries[1].p;
    sum.find_axis_moments_3(1);
    EXPECT_EQ(sum.axis_entries[1].p, held) << "a second request finds the lists";

    const xyz_list_3 nothing = signed_list_of("x,y,z,2;-x,-y,z,2");
    sum.set_up_magnetic(nothing);
    EXPECT_EQ(sum.axis_has_moment_3(1), 0);
    moment_list_3 moments;
    mag_entry_list_3 entries;
    const double v[3] = {1.0, 2.0, -3.0};
    sum.vector_moments_3(v, moments, entries);
    EXPECT_EQ(entries[0], mask_entry(0));
    EXPECT_EQ(entries[1], mask_entry(0));
    sum.set_up(ops);
    EXPECT_EQ(sum.mag_members.n, 0) << "the plain set-up knows no moments";
}

TEST(GroupMoments, TranslationsOfGroups) {
    const xyz_list_3 ops = xyz_list_of("x,y,z;-x+1/2,-y,z+3/4");
    sg_phase_sum_3 sum;
    sum.set_up(ops);
    phase_list_3 phases;
    const double position[3] = {0.1, 0.2, 0.3};
    sum.position_phases(position, phases);
    sum.add_group_translations_3(phases);
    const double expected[2][3] = {{0.4, -0.2, 1.05}, {0.1, 0.2, 0.3}};
    for (int g = 0; g < 2; ++g) {
        for (int i = 0; i < 3; ++i) {
            EXPECT_NEAR(phases[g].row[i], 2 * std::numbers::pi * expected[g][i], 1e-12);
        }
    }
}

// ---- the structure factors that come of them ----

const std::vector<triple_3> hkls = {{{0, 0, 0}},  {{1, 0, 0}},  {{0, 3, 0}}, {{2, -1, 3}},
                                    {{2, -1, 4}}, {{-5, 0, 1}}, {{1, 1, 1}}};

std::vector<mag_atom_3> atoms() {
    return {{{0.11, 0.27, 0.63}, {1.2, -0.7, 2.9}, 1.0, 0.0, 0},
            {{0.5, 0.0, -0.25}, {0.0, 3.1, 0.0}, 0.5, 0.8, 1}};
}

scattering_table_3 table() {
    scattering_table_3 table;
    table.form_factors.set_n(2);
    for (int r = 0; r < static_cast<int>(hkls.size()); ++r) {
        table.s_squared.add(0.02 * r);
        table.form_factors[0].add(1.0 - 0.1 * r);
        table.form_factors[1].add(0.9 - 0.05 * r);
    }
    return table;
}

double determinant_of(const op_array& r) {
    return r[0] * (r[5] * r[10] - r[6] * r[9]) - r[1] * (r[4] * r[10] - r[6] * r[8]) +
           r[2] * (r[4] * r[9] - r[5] * r[8]);
}

// The sum over all operators with their signs, one exponential for each.
std::array<complex, 3> direct_sum(const magnetic_reference& group, const triple_3& hkl, int r) {
    const scattering_table_3 factors = table();
    std::array<complex, 3> total{};
    for (const mag_atom_3& atom : atoms()) {
        const double f = atom.occupancy * factors.form_factors[atom.form_factor][r] *
                         std::exp(-atom.b_iso * factors.s_squared[r]);
        for (const auto& [op, sign] : group.ops) {
            double turns = 0.0;
            std::array<double, 3> m{};
            for (unsigned i = 0; i < 3; ++i) {
                double x = op[4 * i + 3] / 360.0;
                for (unsigned j = 0; j < 3; ++j) {
                    x += op[4 * i + j] * atom.position[j];
                    m[i] += op[4 * i + j] * atom.moment[j];
                }
                turns += hkl.v[i] * x;
            }
            const complex phase = std::polar(scale * f, 2.0 * std::numbers::pi * turns);
            for (unsigned i = 0; i < 3; ++i) {
                total[i] += phase * (sign * determinant_of(op)) * m[i];
            }
        }
    }
    return total;
}

list_0_3<mag_factor_3> sums_of(const xyz_list_3& ops) {
    list_0_3<triple_3> list;
    for (const triple_3& hkl : hkls) list.add(hkl);
    list_0_3<mag_atom_3> atom_list;
    for (const mag_atom_3& atom : atoms()) atom_list.add(atom);
    magnetic_structure_factors_3 sums;
    sums.set_up(ops, list);
    list_0_3<mag_factor_3> result;
    sums.sum(atom_list, table(), result);
    return result;
}

TEST(MagneticStructureFactors, EveryGroup) {
    std::map<int, int> by_type;
    for (const magnetic_reference& group : read_magnetic_references()) {
        SCOPED_TRACE(group.bns_number);
        if (group.type == 2) continue;  // see BothSigns
        ++by_type[group.type];
        const list_0_3<mag_factor_3> result = sums_of(list_of(group));
        ASSERT_EQ(static_cast<std::size_t>(result.n), hkls.size());
        for (int r = 0; r < result.n; ++r) {
            const auto expected = direct_sum(group, hkls[static_cast<std::size_t>(r)], r);
            for (unsigned i = 0; i < 3; ++i) {
                EXPECT_NEAR(result[r].part[2 * i], expected[i].real(), 1e-10) << r;
                EXPECT_NEAR(result[r].part[2 * i + 1], expected[i].imag(), 1e-10) << r;
            }
        }
    }
    EXPECT_EQ(by_type, (std::map<int, int>{{1, 230}, {3, 674}, {4, 517}}));
}

TEST(MagneticStructureFactors, BothSigns) {
    const list_0_3<mag_factor_3> result = sums_of(signed_list_of("x,y,z,2;-x,-y,-z,2"));
    for (const mag_factor_3& f : result) {
        for (double part : f.part) EXPECT_EQ(part, 0.0);
    }
}

}  // namespace
