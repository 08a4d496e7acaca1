#include "analysis/cell.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using namespace lomar;

std::string failure_of(const char* name, const unit_cell& cell) {
    try {
        fitting_cell(group_of(*find_setting(name)), cell);
    } catch (const cell_error& error) {
        return error.what();
    }
    return "no failure";
}

TEST(Cell, ContradictionsNameTheConstraintAndACellThatFits) {
    const struct {
        const char* name;
        unit_cell cell;
        const char* message;
    } cases[] = {
        {"P 1 21/c 1",
         {5, 6, 7, 91, 100, 90},
         "the cell contradicts P 1 21/c 1: alpha = 90 is broken by 91; this fits: 5 6 7 90 100 90"},
        {"P n m a",
         {5, 6, 7, 90, 90, 89.8},
         "the cell contradicts P n m a: gamma = 90 is broken by 89.8; this fits: 5 6 7 90 90 90"},
        {"P 4",
         {10, 10.5, 7, 90, 90, 90},
         "the cell contradicts P 4: a = b is broken by 10 and 10.5; this fits: "
         "10.25 10.25 7 90 90 90"},
        {"P 6/m c c",
         {5, 5, 7, 90, 90, 90},
         "the cell contradicts P 6/m c c: gamma = 120 is broken by 90; this fits: 5 5 7 90 90 120"},
        {"R -3 c:R",
         {6, 6, 6, 50, 50, 51},
         "the cell contradicts R -3 c:R: alpha = gamma is broken by 50 and 51; this fits: "
         "6 6 6 50.333333 50.333333 50.333333"},
        {"F d -3 m:2",
         {10, 10, 10.02, 90, 90, 90},
         "the cell contradicts F d -3 m:2: a = c is broken by 10 and 10.02; this fits: "
         "10.006667 10.006667 10.006667 90 90 90"},
        {"P 1", {5, 6, 7, 10, 20, 150}, "no cell has the angles 10, 20 and 150"},
        {"P 1", {5, 6, 7, 60, 60, 120}, "no cell has the angles 60, 60 and 120"},
        {"P 1", {0, 6, 7, 90, 90, 90}, "a = 0 is no length of a cell"},
        {"P 1",
         {5, std::numeric_limits<double>::quiet_NaN(), 7, 90, 90, 90},
         "b = nan is no length of a cell"},
        {"P 1", {5, 6, 1e300, 90, 90, 90}, "c = 1e+300 is no length of a cell"},
        {"P 1", {5, 6, 7, 90, 180, 90}, "beta = 180 is no angle of a cell"},
    };
    for (const auto& [name, cell, message] : cases) EXPECT_EQ(failure_of(name, cell), message);
}

TEST(Cell, TakenWithinTheSlack) {
    const struct {
        const char* name;
        unit_cell cell;
        unit_cell used;
    } cases[] = {
        {"P 1", {5, 6, 7, 80, 95, 110}, {5, 6, 7, 80, 95, 110}},
        {"P 1 1 2/a", {5, 6, 7, 90, 90, 110}, {5, 6, 7, 90, 90, 110}},
        {"P n m a", {5, 6, 7, 90, 90.1, 90}, {5, 6, 7, 90, 90, 90}},
        {"P 4", {10, 10.01, 7, 90, 90, 90}, {10.005, 10.005, 7, 90, 90, 90}},
        {"P 63", {5, 5.000000001, 7, 90, 90, 120}, {5, 5.000000001, 7, 90, 90, 120}},
        {"R 3:R",
         {6, 6, 6, 50, 50.06, 50.1},
         {6, 6, 6, 50.0533333333, 50.0533333333, 50.0533333333}},
    };
    for (const auto& [name, cell, used] : cases) {
        SCOPED_TRACE(name);
        const unit_cell found = fitting_cell(group_of(*find_setting(name)), cell);
        EXPECT_EQ(cell_text(found), cell_text(used));
        if (used == cell) {
            EXPECT_EQ(found, cell);
        }
    }
}

// A primitive cell of a cubic face-centred lattice: the operators fix its angles.
TEST(Cell, OddAxes) {
    space_group group = group_of(*find_setting("F m -3 m"));
    const basis_change primitive = {parse_basis("1/2b+1/2c,1/2a+1/2c,1/2a+1/2b"), {}};
    group.centring = {{}};
    group.operators.resize(48);
    for (symop& op : group.operators) op = transformed(op, primitive);
    group.tabulated = false;
    group.name = "the group";
    const unit_cell fits = {4, 4, 4, 60, 60, 60};
    EXPECT_EQ(fitting_cell(group, fits), fits);
    EXPECT_THROW(fitting_cell(group, {4, 4, 4, 90, 90, 90}), cell_error);
    EXPECT_THROW(fitting_cell(group, {4, 4, 5, 60, 60, 60}), cell_error);
}

TEST(Cell, Metric) {
    EXPECT_NEAR(volume_of({2, 3, 4, 90, 90, 120}), 24 * std::sqrt(0.75), 1e-12);
    const metric_matrix reciprocal = reciprocal_metric({2, 2, 4, 90, 90, 120});
    EXPECT_NEAR(reciprocal[0][0], 1.0 / 3, 1e-14);
    EXPECT_NEAR(reciprocal[0][1], 1.0 / 6, 1e-14);
    EXPECT_NEAR(reciprocal[2][2], 1.0 / 16, 1e-14);
}

}  // namespace
