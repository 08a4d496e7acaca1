#include "formats/cif_transform.h"

#include <gtest/gtest.h>
#include <stdexcept>

#include "formats/cif_number.h"

namespace {

using namespace lomar;

constexpr const char* sample = R"(# kept
data_one
_cell_length_a 10.000(2)
_cell_length_b   5.00(1)
_cell_length_c 8.0
_cell_angle_alpha 90
_cell_angle_beta 110.0
_cell_angle_gamma 90
_cell_volume 375.9
_symmetry_space_group_name_H-M 'P 21/c'   # a comment
_refine_special_details
; loop_ _cell_length_a
 kept
;
loop_
_symmetry_equiv_pos_as_xyz
'x, y, z' '-x, y+1/2, -z+1/2'
'-x, -y, -z' 'x, -y+1/2, z+1/2'
loop_
_atom_site_label
_atom_site_fract_x
_atom_site_fract_y
_atom_site_fract_z
O1 0.1000(3) 0.25 0.3000(4)
C2 0.5 ? 0
loop_
_atom_site_aniso_label
_atom_site_aniso_U_11
_atom_site_aniso_U_22
_atom_site_aniso_U_33
_atom_site_aniso_U_12
_atom_site_aniso_U_13
_atom_site_aniso_U_23
O1 0.010(1) 0.02 0.03 0.001 0.004 0.003
C2 0.02 0.02 0.02 ? ? ?
loop_ _refln_index_h _refln_index_k _refln_index_l 1 2 3
_geom_bond_site_symmetry_2 2_555
data_two
_kept 'as it is'
)";

basis_change to_n(const space_group&) { return {parse_basis("-a-c,b,a"), {}}; }

TEST(CifTransform, AxesOfAnotherCellChoice) {
    // By hand: x' = -z, z' = x - z; beta tensors go as the products of coordinates.
    const std::string found = transformed_cif(sample, to_n);
    for (const char* piece :
         {"# kept\ndata_one\n# In other axes: (-a-c,b,a), origin 0,0,0.\n"
          "# Not changed, and so in the old axes: _geom_bond_site_symmetry_2\n",
          "_cell_length_b   5.00(1)\n", "_cell_length_c 10.000(2)\n", "_cell_volume 375.9\n",
          "_symmetry_space_group_name_H-M 'P 1 21/n 1'   # a comment\n",
          "; loop_ _cell_length_a\n kept\n;\n", "\n-x+1/2,y+1/2,-z+1/2\n",
          "O1 -0.3000(4) 0.25 -0.2000(5)\n", "C2 0 ? 0.5\n", "_refln_index_l -4 2 1\n",
          "\nC2 ? ? ? ? ? ?\n", "_geom_bond_site_symmetry_2 2_555\ndata_two\n_kept 'as it is'\n"}) {
        EXPECT_NE(found.find(piece), std::string::npos) << piece << "\nin\n" << found;
    }
    const std::string back = transformed_cif(found, [](const space_group&) {
        return basis_change{parse_basis("c,b,-a-c"), {}};
    });
    for (const char* piece : {"_cell_length_c 8.00", "O1 0.100", "'P 1 21/c 1'", "O1 0.010",
                              "_refln_index_l 1 2 3\n"}) {
        EXPECT_NE(back.find(piece), std::string::npos) << piece << "\nin\n" << back;
    }
}

// Blocks without a name, and comments close to words: the operators go over in each.
TEST(CifTransform, HeadingsAndQuotesOfAllForms) {
    for (const char* heading : {"data_\n", "global_\n", "global_# one\n", "DATA_x\n"}) {
        const std::string text =
            heading + std::string(
                          "_kept 'a b'# x\nloop_# operators\n_symmetry_equiv_pos_as_xyz\n"
                          "'x,y,z'#one\n'-x,-y+1/2,z'#two\n_atom 1\n");
        const std::string found = transformed_cif(text, [](const space_group&) {
            return basis_change{parse_basis("b,c,a"), {}};
        });
        EXPECT_NE(found.find("\nx,y,z\n-x+1/2,y,-z#two\n_atom 1\n"), std::string::npos) << found;
        EXPECT_NE(found.find("_kept 'a b'# x\n"), std::string::npos) << found;
    }
}

// The displacement of an atom along a vector doesn't depend on axes.
TEST(CifTransform, DisplacementsInASignedPermutation) {
    const std::string found = transformed_cif(sample, [](const space_group&) {
        return basis_change{parse_basis("c,-b,a"), {}};
    });
    EXPECT_NE(found.find("O1 0.030 0.020 0.010(1) -0.003 0.004 -0.001\n"), std::string::npos)
        << found;
}

TEST(CifTransform, Refusals) {
    const auto with = [](const std::string& from, const std::string& to) {
        std::string text = sample;
        return text.replace(text.find(from), from.size(), to);
    };
    const struct {
        std::string text;
        const char* message;
    } rows[] = {
        {with("'P 21/c'", "'P n m a'"),
         "data_one: the symbol 'P n m a' is number 62, but the operators are those of number 14, P "
         "1 21/c 1"},
        {with("0.1000(3)", "zero"), "line 24: 'zero' is no number"},
        {with("_cell_angle_beta 110.0", "_cell_angle_beta 180.0"),
         "a cell angle is not between 0 and 180 degrees"},
    };
    for (const auto& row : rows) {
        try {
            transformed_cif(row.text, to_n);
            ADD_FAILURE() << row.message;
        } catch (const std::exception& failure) {
            EXPECT_STREQ(failure.what(), row.message);
        }
    }
    // Cut off anywhere it is another CIF or one line.
    const std::string text = sample;
    for (std::size_t length = 0; length < text.size(); ++length) {
        try {
            transformed_cif(text.substr(0, length), to_n);
        } catch (const std::exception& failure) {
            EXPECT_EQ(std::string(failure.what()).find('\n'), std::string::npos);
        }
    }
}

TEST(CifNumber, Texts) {
    const struct {
        const char* text;
        fraction value;
        int decimals;
        double uncertainty;
    } rows[] = {
        {"0.1234(5)", {1234, 10000}, 4, 0.0005},
        {"-.5", {-1, 2}, 1, 0},
        {"0.333", {1, 3}, 3, 0},
        {"0.66667", {2, 3}, 5, 0},
        {"0.33", {33, 100}, 2, 0},
        {"0.3333(2)", {3333, 10000}, 4, 0.0002},
        {"12", 12, 0, 0},
    };
    for (const auto& row : rows) {
        const auto number = read_cif_number(row.text);
        ASSERT_TRUE(number) << row.text;
        EXPECT_EQ(number->value, row.value) << row.text;
        EXPECT_EQ(number->decimals, row.decimals) << row.text;
        EXPECT_NEAR(number->uncertainty, row.uncertainty, 1e-12) << row.text;
    }
    for (const char* text :
         {"", "x", "1.2.3", "1e5", "1(", "1()", "1(2", "-", "1234567890123456"}) {
        EXPECT_FALSE(read_cif_number(text)) << text;
    }
    EXPECT_EQ(cif_number_text(fraction(1, 8), 2, 0), "0.125");
    EXPECT_EQ(cif_number_text(fraction(1, 3), 2, 0), "0.333333");
    EXPECT_EQ(cif_number_text(fraction(-1, 20), 2, 0.0123), "-0.05(1)");
    EXPECT_EQ(cif_number_text(fraction(1, 4), 4, 0.0123), "0.250(12)");
    EXPECT_EQ(cif_number_text(-0.00001, 3, 0), "0.000");
}

}  // namespace
