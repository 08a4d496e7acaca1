#include "library/structure_factors.h"

#include <cmath>
#include <complex>
#include <gtest/gtest.h>
#include <numbers>

#include "support/operators.h"

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

// The sum over all operators, one exponential for each.
complex direct_sum(const std::vector<op_array>& ops, const triple_3& hkl, int r,
                   const list_0_3<sf_atom_3>& atoms, const scattering_table_3& table) {
    complex total = 0.0;
    for (const sf_atom_3& atom : atoms) {
        complex sum = 0.0;
        for (const op_array& op : ops) {
            double turns = 0.0;
            for (unsigned i = 0; i < 3; ++i) {
                double x = op[4 * i + 3] / 360.0;
                for (unsigned j = 0; j < 3; ++j) x += op[4 * i + j] * atom.position[j];
                turns += hkl.v[i] * x;
            }
            sum += std::polar(1.0, 2.0 * std::numbers::pi * turns);
        }
        total += sum * atom.occupancy * table.form_factors[atom.form_factor][r] *
                 std::exp(-atom.b_iso * table.s_squared[r]);
    }
    return total;
}

void check(const xyz_list_3& ops, const hkl_list& hkls, double tolerance) {
    const list_0_3<sf_atom_3> atoms = some_atoms();
    const scattering_table_3 table = table_for(hkls);
    structure_factors_3 sums;
    sums.set_up(ops, hkls);
    list_0_3<structure_factor_3> result;
    sums.sum(atoms, table, result);
    ASSERT_EQ(result.n, hkls.n);
    const std::vector<op_array> arrays = arrays_of(ops);
    for (int r = 0; r < hkls.n; ++r) {
        const complex expected = direct_sum(arrays, hkls[r], r, atoms, table);
        EXPECT_NEAR(result[r].a, expected.real(), tolerance) << r;
        EXPECT_NEAR(result[r].b, expected.imag(), tolerance) << r;
    }
}

TEST(StructureFactors, EverySetting) {
    const hkl_list hkls = some_hkls();
    int n = 0;
    for (const setting& row : read_settings()) {
        SCOPED_TRACE(std::to_string(row.number) + ' ' + row.symbol + ' ' + row.choice);
        check(xyz_list_of(row.operators), hkls, 1e-10);
        ++n;
    }
    EXPECT_EQ(n, 559);
}

TEST(StructureFactors, UnusualLists) {
    const xyz_list_3 ops = xyz_list_of("x,y,z;-x+1/2,-y,z+1/2;-y,x,-z;y+1/2,-x,-z+1/2");
    check(ops, hkl_list(), 0.0);
    check(ops, list_of({{{3, 1, 4}}}), 1e-10);
    check(xyz_list_3(), list_of({{{3, 1, 4}}}), 0.0);
    // Indices too large for looking their factors up: the phases have fewer digits there.
    check(ops, list_of({{{1, 2, 3}}, {{2000000, -1, 7}}, {{0, 0, -2000000000}}}), 1e-4);
    // Translations that aren't normalised, and ones that no space group has.
    xyz_list_3 odd = xyz_list_of("x,y,z;-x,y,-z");
    odd[1].trans(0) = -91;
    odd[1].trans(2) = 727;
    check(odd, some_hkls(), 1e-10);
}

TEST(StructureFactors, SetUpServesManySums) {
    const xyz_list_3 ops = xyz_list_of("x,y,z;-x,-y,-z");
    const hkl_list hkls = some_hkls();
    const scattering_table_3 table = table_for(hkls);
    structure_factors_3 sums;
    sums.set_up(xyz_list_of("x,y,z"), list_of({{{1, 1, 1}}}));
    sums.set_up(ops, hkls);
    list_0_3<structure_factor_3> first;
    list_0_3<structure_factor_3> again;
    sums.sum(some_atoms(), table, first);
    sums.sum(list_0_3<sf_atom_3>(), table, again);
    EXPECT_EQ(again[3].a, 0.0) << "no atoms";
    sums.sum(some_atoms(), table, again);
    EXPECT_TRUE(first.equal(again));
}

TEST(StructureFactors, SiteOrder) {
    const struct {
        const char* ops;
        double position[3];
        int order;
    } rows[] = {
        {"x,y,z;-x,-y,-z", {0.1, 0.2, 0.3}, 1},
        {"x,y,z;-x,-y,-z", {0.5, 0.0, -1.5}, 2},
        {"x,y,z;-x,-y,-z", {0.50002, 0.0, 0.0}, 2},
        {"x,y,z;-x,-y,-z", {0.501, 0.0, 0.0}, 1},
        {"x,y,z;-x+1/2,-y,z+1/2", {0.25, 0, 0}, 1},
        {"x,y,z;-x+1/2,-y,z", {0.25, 0.5, 0.3}, 2},
        {"x,y,z;-y,x-y,z;-x+y,-x,z", {1.0 / 3, 2.0 / 3, 0.4}, 3},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(site_order_3(xyz_list_of(row.ops), row.position), row.order) << row.ops;
    }
}

}  // namespace
