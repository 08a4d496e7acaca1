#include <cmath>
#include <complex>
#include <gtest/gtest.h>
#include <map>
#include <numbers>

#include "library/magnetic/magnetic_structure_factors_3.h"
#include "support/magnetic_reference.h"

namespace {

using complex = std::complex<double>;
using hkl_list = list_0_3<triple_3>;

hkl_list list_of(std::initializer_list<triple_3> hkls) {
    hkl_list list;
    for (const triple_3& hkl : hkls) list.add(hkl);
    return list;
}

// Reflections of all classes, runs of equal h and k among them.
hkl_list some_hkls() {
    hkl_list hkls = list_of({{{0, 0, 0}}, {{5, -3, 2}}, {{-7, 0, 11}}, {{0, 6, 0}}, {{1, 1, 1}}});
    for (int l = -4; l <= 4; ++l) hkls.add({{1, -2, l}});
    for (int h = 0; h <= 4; h += 2) hkls.add({{h, h, 0}});
    return hkls;
}

list_0_3<sf_atom_3> some_atoms() {
    list_0_3<sf_atom_3> atoms;
    atoms.add({{0.12, 0.26, 0.71}, 1.0, 0.0, 0});
    atoms.add({{-0.31, 0.43, 1.07}, 0.25, 1.5, 1});
    atoms.add({{0.0, 0.0, 0.5}, 0.5, 0.7, 0});
    return atoms;
}

scattering_table_3 table_for(const hkl_list& hkls) {
    scattering_table_3 table;
    table.form_factors.set_n(2);
    for (int r = 0; r < hkls.n; ++r) {
        table.s_squared.add(0.01 * r);
        table.form_factors[0].add(8.0 - 0.1 * r);
        table.form_factors[1].add(3.0 + 0.01 * r * r);
    }
    return table;
}

// The contribution of one operator: f exp(2 pi i h (R x + t)).
template <typename Atom>
complex term_of(const op_array& op, const triple_3& hkl, int r, const Atom& atom,
                const scattering_table_3& table) {
    const double f = atom.occupancy * table.form_factors[atom.form_factor][r] *
                     std::exp(-atom.b_iso * table.s_squared[r]);
    return std::polar(f, 2.0 * std::numbers::pi * turns_of(op, atom.position, hkl.v));
}

void check(const xyz_list_3& ops, const hkl_list& hkls, double tolerance) {
    const list_0_3<sf_atom_3> atoms = some_atoms();
    const scattering_table_3 table = table_for(hkls);
    static structure_factors_3 sums;  // one object for all set-ups, which serve any number of sums
    sums.set_up(ops, hkls);
    list_0_3<structure_factor_3> result;
    sums.sum(atoms, table, result);
    ASSERT_EQ(result.n, hkls.n);
    const std::vector<op_array> arrays = arrays_of(ops);
    for (int r = 0; r < hkls.n; ++r) {
        complex expected = 0.0;
        for (const sf_atom_3& atom : atoms) {
            for (const op_array& op : arrays) expected += term_of(op, hkls[r], r, atom, table);
        }
        EXPECT_NEAR(result[r].a, expected.real(), tolerance) << r;
        EXPECT_NEAR(result[r].b, expected.imag(), tolerance) << r;
    }
}

TEST(StructureFactors, EverySetting) {
    const hkl_list hkls = some_hkls();
    for_each_setting([&](const setting& row) { check(xyz_list_of(row.operators), hkls, 1e-10); });
}

TEST(StructureFactors, UnusualLists) {
    const xyz_list_3 ops = xyz_list_of("x,y,z;-x+1/2,-y,z+1/2;-y,x,-z;y+1/2,-x,-z+1/2");
    check(ops, hkl_list(), 0.0);
    check(xyz_list_3(), list_of({{{3, 1, 4}}}), 0.0);
    // Operators without their negatives beside pairs, in a group of their own and in the same one.
    check(xyz_list_of("x,y,z;-x,-y,-z;x,y,z+1/2"), some_hkls(), 1e-10);
    check(xyz_list_of("-x,-y,-z+1/2;x,y,z;-x,-y,-z"), some_hkls(), 1e-10);
    // Indices too large for looking their factors up: the phases have fewer digits there.
    check(ops, list_of({{{1, 2, 3}}, {{2000000, -1, 7}}, {{0, 0, -2000000000}}}), 1e-4);
    // Translations that aren't normalised, and ones that no space group has.
    xyz_list_3 odd = xyz_list_of("x,y,z;-x,y,-z");
    odd[1].trans(0) = -91;
    odd[1].trans(2) = 727;
    check(odd, some_hkls(), 1e-10);
}

TEST(StructureFactors, SiteOrder) {
    const struct {
        const char* ops;
        double position[3];
        int order;
    } rows[] = {
        {"x,y,z;-x,-y,-z", {0.50002, 0.0, -1.5}, 2},  {"x,y,z;-x,-y,-z", {0.501, 0.0, 0.0}, 1},
        {"x,y,z;-x+1/2,-y,z+1/2", {0.25, 0, 0}, 1},   {"x,y,z;-x+1/2,-y,z", {0.25, 0.5, 0.3}, 2},
        {"x,y,z;-y,x-y,z", {1.0 / 3, 2.0 / 3, 1}, 2},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(site_order_3(xyz_list_of(row.ops), row.position), row.order) << row.ops;
    }
}

// ---- magnetic ----

int determinant_of(const op_array& r) {
    return r[0] * (r[5] * r[10] - r[6] * r[9]) - r[1] * (r[4] * r[10] - r[6] * r[8]) +
           r[2] * (r[4] * r[9] - r[5] * r[8]);
}

// The list has operators with both signs, as a grey group consists of, but once.
xyz_list_3 list_of(const magnetic_reference& group) {
    std::map<op_array, int> tags;
    for (const auto& [op, sign] : group.ops) tags[op] = tags.contains(op) ? 2 : sign;
    xyz_list_3 ops;
    for (const auto& [op, tag] : tags) {
        ops.add(xyz_op_of(op));
        ops[ops.last()].tag = tag;
    }
    return ops;
}

TEST(MagneticStructureFactors, EveryGroup) {
    const mag_atom_3 atoms[] = {{{0.11, 0.27, 0.63}, {1.2, -0.7, 2.9}, 1.0, 0.0, 0},
                                {{0.5, 0.0, -0.25}, {0.0, 3.1, 0.0}, 0.5, 0.8, 1}};
    list_0_3<mag_atom_3> atom_list;
    for (const mag_atom_3& atom : atoms) atom_list.add(atom);
    const hkl_list hkls = some_hkls();
    const scattering_table_3 table = table_for(hkls);
    magnetic_structure_factors_3 sums;
    for (const magnetic_reference& group : read_magnetic_references()) {
        SCOPED_TRACE(group.bns_number);
        const xyz_list_3 ops = list_of(group);
        sums.set_up(ops, hkls);
        list_0_3<mag_factor_3> result;
        sums.sum(atom_list, table, result);
        ASSERT_EQ(result.n, hkls.n);
        for (int r = 0; r < hkls.n; ++r) {
            complex expected[3];
            for (const mag_atom_3& atom : atoms) {
                for (const auto& [op, sign] : group.ops) {
                    const complex term =
                        0.2695 * sign * determinant_of(op) * term_of(op, hkls[r], r, atom, table);
                    for (unsigned i = 0; i < 3; ++i) {
                        for (unsigned j = 0; j < 3; ++j) {
                            expected[i] += term * (op[4 * i + j] * atom.moment[j]);
                        }
                    }
                }
            }
            for (int i = 0; i < 3; ++i) {
                EXPECT_NEAR(result[r].part[2 * i], expected[i].real(), 1e-10) << r;
                EXPECT_NEAR(result[r].part[2 * i + 1], expected[i].imag(), 1e-10) << r;
            }
        }
    }
}

}  // namespace
