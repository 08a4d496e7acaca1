#include <cctype>
#include <climits>
#include <gtest/gtest.h>

#include "reflections/lattice_type_3.h"
#include "support/operators.h"

namespace {

TEST(LatticeType, Letters) {
    xyz_list_3 r = xyz_list_of("x,y,z;x-1/3,y+1/3,z+1/3;x+1/3,y-1/3,z-1/3");
    r[1].trans(0) = -120;
    r[2].trans(1) = 600;
    EXPECT_EQ(lattice_letter_3(r), 'r');
    // Only some of the operators have a partner.
    EXPECT_EQ(lattice_letter_3(xyz_list_of("-x,-y,z;-x,-y+1/2,z+1/2;x,y,z")), 'p');
    for (const setting& row : read_settings()) {
        const int letter = row.choice == "R" ? 'p' : std::tolower(row.centring);
        EXPECT_EQ(lattice_letter_3(xyz_list_of(row.operators)), letter) << row.symbol << row.choice;
    }
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
    // What each of the two decides alone.
    const f_lattice_type_3 f;
    EXPECT_EQ(f.hkl_allowed(1, 1, 0), 0);
    EXPECT_EQ(f.hk_allowed(1, 0), 0);
    EXPECT_EQ(c_lattice_type_3().hkl_allowed(1, 0, 0), 1);
    EXPECT_EQ(a_lattice_type_3().hk_allowed(1, 0), 1);
    EXPECT_EQ(rr_lattice_type_3().hkl_allowed(INT_MIN, INT_MAX, INT_MAX), 0);
    EXPECT_EQ(i_lattice_type_3().hkl_allowed(INT_MIN, INT_MAX, INT_MIN), 0);
}

}  // namespace
