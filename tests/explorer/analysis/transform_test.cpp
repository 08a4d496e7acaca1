#include "analysis/transform.h"

#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <stdexcept>

#include "analysis/identify.h"
#include "group/names.h"

namespace {

using namespace lomar;

std::set<symop> operators_of(const space_group& group) {
    return {group.operators.begin(), group.operators.end()};
}

space_group named(const char* name) { return resolve_symbol(name).group; }

TEST(Transform, EverySettingToStandardAndBack) {
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        const space_group standard = group_of(standard_setting(row.number));
        const basis_change there = change_between(group, standard);
        const space_group found = in_other_axes(group, there);
        EXPECT_TRUE(found.tabulated);
        EXPECT_EQ(operators_of(found), operators_of(standard));
        EXPECT_EQ(operators_of(in_other_axes(found, inverse(there))), operators_of(group));
    }
}

// Axes that no table has: the Hall symbol finds the same operators.
TEST(Transform, UntabulatedAxesOfEverySetting) {
    int tabulated = 0;
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        const basis_change change{parse_basis("a+b,b,c"), parse_point("1/8,0,1/5")};
        space_group found;
        try {
            found = in_other_axes(group, change);
        } catch (const std::domain_error&) {
            continue;
        }
        tabulated += found.tabulated ? 1 : 0;
        const space_group again = named(found.name.c_str());
        EXPECT_EQ(operators_of(again), operators_of(found));
        // Four pairs of settings have the same operators.
        EXPECT_EQ(operators_of(in_other_axes(found, inverse(change))), operators_of(group));
    }
    EXPECT_LT(tabulated, 20);
}

TEST(Transform, NamedResults) {
    const struct {
        const char* group;
        const char* basis;
        const char* origin;
        const char* name;
        std::size_t operators;
    } rows[] = {
        {"P 21/c", "-a-c,b,a", "0,0,0", "P 1 21/n 1", 4},
        {"P 21/n", "c,b,-a-c", "0,0,0", "P 1 21/c 1", 4},
        {"C 2/c", "c,b,-a-c", "0,0,0", "I 1 2/a 1", 8},
        {"P n m a", "b,c,a", "0,0,0", "P m c n", 8},
        {"F d -3 m:1", "a,b,c", "1/8,1/8,1/8", "F d -3 m:2", 192},
        {"R -3 m", "2/3a+1/3b+1/3c,-1/3a+1/3b+1/3c,-1/3a-2/3b+1/3c", "0,0,0", "R -3 m:R", 12},
        {"P 1", "a,b,2c", "0,0,0", "hall:P 1 (x,y,1/2*z)", 2},
        {"F m -3 m", "1/2b+1/2c,1/2a+1/2c,1/2a+1/2b", "0,0,0", "hall:-F 4 2 3 (-x+y+z,x-y+z,x+y-z)",
         48},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.group);
        const space_group found =
            in_other_axes(named(row.group), {parse_basis(row.basis), parse_point(row.origin)});
        EXPECT_EQ(found.name, row.name);
        EXPECT_EQ(found.operators.size(), row.operators);
    }
}

TEST(Transform, AxesThatLoseSomething) {
    const struct {
        const char* group;
        const char* basis;
        const char* message;
    } rows[] = {
        {"P 21/c", "1/2a,b,c", "the new axis a is no lattice translation of P 1 21/c 1"},
        {"P m -3 m", "a,b,2c", "the new axes lose "},
        {"P 4", "a+b,b,c", ""},
        {"P 31", "b,a,c", "the new axes are left-handed: their determinant is below 0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.group);
        const std::string wanted = row.message;
        std::string message;
        try {
            in_other_axes(named(row.group), {parse_basis(row.basis), {}});
        } catch (const std::domain_error& failure) {
            message = failure.what();
        }
        EXPECT_EQ(message.substr(0, wanted.size()), wanted);
        EXPECT_EQ(message.empty(), wanted.empty());
    }
    EXPECT_THROW(change_between(named("P n m a"), named("P n m n")), std::domain_error);
}

TEST(Transform, CellAndIndices) {
    // The I cell of a C cell keeps its volume; the body diagonal of a cube.
    const cell_lengths monoclinic = {10, 5, 8, 90, 110, 90};
    const fraction_matrix to_i = parse_basis("-a-c,b,a");
    const cell_lengths turned = transformed_cell(monoclinic, to_i);
    EXPECT_NEAR(cell_volume(turned), cell_volume(monoclinic), 1e-9);
    EXPECT_EQ(turned[1], 5);
    EXPECT_EQ(turned[3], 90);
    EXPECT_NEAR(turned[0], std::sqrt(100 + 64 + 160 * std::cos(110 * std::acos(-1) / 180)), 1e-9);
    const cell_lengths diagonal = transformed_cell({2, 2, 2, 90, 90, 90}, parse_basis("a+b+c,b,c"));
    EXPECT_NEAR(diagonal[0], 2 * std::sqrt(3), 1e-12);
    EXPECT_EQ(transformed_indices({1, 2, 3}, to_i), (fraction_vector{-4, 2, 1}));
    for (const cell_lengths& bad :
         {cell_lengths{0, 1, 1, 90, 90, 90}, cell_lengths{1, 1, 1, 10, 10, 90},
          cell_lengths{1, 1, 1, 90, 180, 90}, cell_lengths{1, 1, NAN, 90, 90, 90}}) {
        EXPECT_THROW(check_cell(bad), std::domain_error);
    }
}

}  // namespace
