#include "reflections/crystal_system.h"

#include <cctype>
#include <climits>
#include <cmath>
#include <gtest/gtest.h>

#include "reflections/lattice_type_3.h"
#include "reflections/phase_line.h"
#include "support/expect_failure.h"
#include "support/operators.h"

namespace {

TEST(CrystalSystem, OfEverySetting) {
    constexpr int last_numbers[] = {2, 15, 74, 142, 167, 194, 230};
    for_each_setting([&](const setting& row) {
        int system = 0;
        while (row.number > last_numbers[system]) ++system;
        const int found = crystal_system_of_3(xyz_list_of(row.operators));
        EXPECT_EQ(crystal_system_letters_3[found], "amotrhc"[system]) << row.symbol;
    });
    for (const char* ops : {"", "x,y,z;-x,-y,z;x,-y,-z", "x+y,y,z", "x+y,x,z"}) {
        EXPECT_FAILURE(crystal_system_of_3(xyz_list_of(ops)),
                       " Cannot find Crystal System from xyz's");
    }
}

TEST(LatticeType, Letters) {
    xyz_list_3 r = xyz_list_of("x,y,z;x-1/3,y+1/3,z+1/3;x+1/3,y-1/3,z-1/3");
    r[1].trans(0) = -120;
    r[2].trans(1) = 600;
    EXPECT_EQ(lattice_letter_3(r), 'r');
    // Only some of the operators have a partner.
    EXPECT_EQ(lattice_letter_3(xyz_list_of("-x,-y,z;-x,-y+1/2,z+1/2;x,y,z")), 'p');
    for_each_setting([&](const setting& row) {
        const int letter = row.choice == "R" ? 'p' : std::tolower(row.centring);
        EXPECT_EQ(lattice_letter_3(xyz_list_of(row.operators)), letter) << row.symbol << row.choice;
    });
}

// The two conditions together let a reflection exist exactly if every centring vector scatters in
// phase with the origin.
TEST(LatticeType, Conditions) {
    for (const char* ops :
         {"x,y,z", "x,y,z;x,y+1/2,z+1/2", "x,y,z;x+1/2,y,z+1/2", "x,y,z;x+1/2,y+1/2,z",
          "x,y,z;x+1/2,y+1/2,z+1/2", "x,y,z;x,y+1/2,z+1/2;x+1/2,y,z+1/2;x+1/2,y+1/2,z",
          "x,y,z;x+2/3,y+1/3,z+1/3;x+1/3,y+2/3,z+2/3"}) {
        const xyz_list_3 list = xyz_list_of(ops);
        const lattice_type_3& lattice = lattice_of_3(list);
        for (int i = 0; i < 13 * 13 * 13; ++i) {
            const int h = i / 169 - 6;
            const int k = i / 13 % 13 - 6;
            const int l = i % 13 - 6;
            bool in_phase = true;
            bool reverse_in_phase = true;  // of the other rhombohedral setting
            for (const xyz_op_3& op : list) {
                const int hk_phase = h * op.trans(0) + k * op.trans(1);
                in_phase &= (hk_phase + l * op.trans(2)) % 360 == 0;
                reverse_in_phase &= (hk_phase - l * op.trans(2)) % 360 == 0;
            }
            const bool allowed = lattice.hk_allowed(h, k) && lattice.hkl_allowed(h, k, l);
            ASSERT_EQ(allowed, in_phase || reverse_in_phase)
                << ops << ' ' << h << ' ' << k << ' ' << l;
        }
    }
    EXPECT_EQ(f_lattice_type_3().hk_allowed(1, 0), 0) << "it needs no l for that";
    EXPECT_EQ(rr_lattice_type_3().hkl_allowed(INT_MIN, INT_MAX, INT_MAX), 0);
    EXPECT_EQ(i_lattice_type_3().hkl_allowed(INT_MIN, INT_MAX, INT_MIN), 0);
}

TEST(PhaseLine, FindsTheLine) {
    const double pi = std::acos(-1.0);
    const struct {
        double d, c;
        int n;
        double a, b;
    } rows[] = {{pi / 2, 3 * pi / 4, 2, pi, -0.5},
                {1, pi / 3 + 2.0 / 3, 3, pi / 3, 2.0 / 3},
                {1, 1 - 0.9e-8, 1, -0.9e-8, 1}};
    double a = 0;
    double b = 0;
    for (const auto& row : rows) {
        get_a_b_for_phi_3(a, b, row.d, row.c, row.n);
        EXPECT_NEAR(a, row.a, 1e-12) << row.d << ' ' << row.c;
        EXPECT_NEAR(b, row.b, 1e-12) << row.d << ' ' << row.c;
    }
    constexpr char message[] = " Error in get_a_b_for_phi_3";
    EXPECT_FAILURE(get_a_b_for_phi_3(a, b, 1, 1, 0), message);
    for (const double c : {1 + 2e-8, std::nan("")}) {
        EXPECT_FAILURE(get_a_b_for_phi_3(a, b, 1, c, 1), message);
    }
    double_list_3 table;
    for (const double value : {1.0, 1.0 + pi}) table.add(value);
    EXPECT_NEAR(phi_at_3(table, 8.0, 0, 1, 1), 8.0 - pi, 1e-12);
    EXPECT_NEAR(phi_at_3(table, -8.0, 0, 1, 1), -8.0 + pi, 1e-12);
}

}  // namespace
