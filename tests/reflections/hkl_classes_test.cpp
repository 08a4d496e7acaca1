#include "reflections/hkl_classes.h"

#include <cmath>
#include <gtest/gtest.h>

#include "reflections/crystal_system.h"
#include "reflections/phase_line.h"
#include "support/expect_failure.h"
#include "support/operators.h"

namespace {

TEST(HklClasses, ClassOfReflection) {
    const struct {
        int h, k, l;
        const char* name;
    } rows[] = {{1, -2, 3, "hkl"}, {-2, 1, 0, "hk0"}, {1, 0, -2147483647, "h0l"}, {0, -1, 1, "0kl"},
                {-1, 0, 0, "h00"}, {0, 2, 0, "0k0"},  {0, 0, -1, "00l"},          {0, 0, 0, "hkl"}};
    for (const auto& row : rows) {
        EXPECT_STREQ(hkl_class_names_3()[hkl_class_of_3(row.h, row.k, row.l)].data, row.name);
    }
}

TEST(HklClasses, FriedelMates) {
    class_lists_3 classes;
    classes.new_n(7);
    classes[0] = xyz_list_of("h,k,l;-h,k+h,-l");
    add_friedel_mates_3(classes);
    EXPECT_EQ(arrays_of(classes[0]), arrays_of(xyz_list_of("h,k,l;-h,k+h,-l;-h,-k,-l;h,-k-h,l")));
    EXPECT_EQ(classes[0].n_max, 4);
    EXPECT_EQ(classes[1].n, 0);
}

TEST(CrystalSystem, OfEverySetting) {
    constexpr int last_numbers[] = {2, 15, 74, 142, 167, 194, 230};
    for (const setting& row : read_settings()) {
        int system = 0;
        while (row.number > last_numbers[system]) ++system;
        const int found = crystal_system_of_3(xyz_list_of(row.operators));
        EXPECT_EQ(crystal_system_letters_3[found], "amotrhc"[system]) << row.symbol;
    }
    for (const char* ops : {"", "x,y,z;-x,-y,z;x,-y,-z", "x+y,y,z", "x+y,x,z"}) {
        EXPECT_FAILURE(crystal_system_of_3(xyz_list_of(ops)),
                       " Cannot find Crystal System from xyz's");
    }
}

TEST(PhaseLine, FindsTheLine) {
    const double pi = std::acos(-1.0);
    const struct {
        double d, c;
        int n;
        double a, b;
    } rows[] = {{pi / 2, pi / 2, 1, pi, -1},   {pi / 2, 3 * pi / 4, 2, pi, -0.5},
                {1, 1 + pi, 1, pi, 1},         {1, pi / 3 + 2.0 / 3, 3, pi / 3, 2.0 / 3},
                {1, 1 + 0.9e-8, 1, 0.9e-8, 1}, {1, 1 - 0.9e-8, 1, -0.9e-8, 1}};
    double a = 0;
    double b = 0;
    for (const auto& row : rows) {
        get_a_b_for_phi_3(a, b, row.d, row.c, row.n);
        EXPECT_NEAR(a, row.a, 1e-12) << row.d << ' ' << row.c;
        EXPECT_NEAR(b, row.b, 1e-12) << row.d << ' ' << row.c;
    }
    constexpr char message[] = " Error in get_a_b_for_phi_3";
    for (const int n : {0, -3}) EXPECT_FAILURE(get_a_b_for_phi_3(a, b, 1, 1, n), message);
    for (const double c : {0.5, 1 + 2e-8, std::nan("")}) {
        EXPECT_FAILURE(get_a_b_for_phi_3(a, b, 1, c, 1), message);
    }
    double_list_3 table;
    for (const double value : {1.0, 1.0 + pi}) table.add(value);
    EXPECT_NEAR(phi_at_3(table, 8.0, 0, 1, 1), 8.0 - pi, 1e-12);
    EXPECT_NEAR(phi_at_3(table, -8.0, 0, 1, 1), -8.0 + pi, 1e-12);
}

}  // namespace
