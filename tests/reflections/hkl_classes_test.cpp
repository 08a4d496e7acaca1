#include "reflections/hkl_classes.h"

#include <cmath>
#include <gtest/gtest.h>

#include "reflections/crystal_system.h"
#include "reflections/phase_line.h"
#include "support/expect_failure.h"
#include "support/operators.h"

namespace {

TEST(HklClasses, ClassOfReflection) {
    for (int h : {-3, 0, 1}) {
        for (int k : {-1, 0, 2}) {
            for (int l : {-2147483647, 0, 5}) {
                std::string name;
                name += h != 0 ? 'h' : '0';
                name += k != 0 ? 'k' : '0';
                name += l != 0 ? 'l' : '0';
                if (name == "000") name = "hkl";
                EXPECT_EQ(hkl_class_names_3()[hkl_class_of_3(h, k, l)].data, name);
            }
        }
    }
}

TEST(HklClasses, LoadsInOrder) {
    const std::string text =
        "xyzs { x,y,z\n} hkl { h,k,l\n} hk0 { h,k,0\n-h,k,0\n} 2 h0l{} h0l { } 0kl { 0,k,l\n}\n"
        "h00 { h,0,0\n} 0k0 {} note {0,k,0\n} 00l { 0,0,l\n";
    sstring_in in(text.c_str());
    class_lists_3 classes;
    load_hkl_classes_3(in, classes);
    ASSERT_EQ(classes.n, 7);
    const int counts[] = {1, 2, 0, 1, 1, 0, 1};
    for (int i = 0; i < 7; ++i) EXPECT_EQ(classes[i].n, counts[i]) << i;
    EXPECT_EQ(array_of(classes[1][1]), op_of("-h,k,0"));
    in.set_text("hk0 { h,k,0\n} hkl { h,k,l\n}");
    EXPECT_FAILURE(load_hkl_classes_3(in, classes), " Cannot find: hk0");
    in.set_text("xyzs { x,y,z\n} 1");
    EXPECT_FAILURE(load_hkl_classes_3(in, classes), " Cannot find: hkl");
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
    for (const setting& row : read_settings()) {
        const int n = row.number;
        const char letter = n <= 2     ? 'a'
                            : n <= 15  ? 'm'
                            : n <= 74  ? 'o'
                            : n <= 142 ? 't'
                            : n <= 167 ? 'r'
                            : n <= 194 ? 'h'
                                       : 'c';
        const xyz_list_3 ops = xyz_list_of(row.operators);
        EXPECT_EQ(crystal_system_letters_3[crystal_system_of_3(ops)], letter) << row.symbol;
    }
    EXPECT_EQ(crystal_system_of_3(xyz_list_of("x,y,z")), 0);
    EXPECT_EQ(crystal_system_of_3(xyz_list_of("x,y,z;-x,-y,-z")), 0);
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
    for (const auto& row : rows) {
        double a = 0;
        double b = 0;
        EXPECT_EQ(message_of([&] { get_a_b_for_phi_3(a, b, row.d, row.c, row.n); }), std::nullopt);
        EXPECT_NEAR(a, row.a, 1e-12) << row.d << ' ' << row.c;
        EXPECT_NEAR(b, row.b, 1e-12) << row.d << ' ' << row.c;
    }
    double a = 0;
    double b = 0;
    constexpr char message[] = " Error in get_a_b_for_phi_3";
    for (const int n : {0, -3}) EXPECT_FAILURE(get_a_b_for_phi_3(a, b, 1, 1, n), message);
    for (const double c : {0.5, 1 + 2e-8, std::nan("")}) {
        EXPECT_FAILURE(get_a_b_for_phi_3(a, b, 1, c, 1), message);
    }
    double_list_3 table;
    for (const double value : {1.0, 1.0 + pi, 0.0}) table.add(value);
    EXPECT_NEAR(phi_at_3(table, 8.0, 0, 1, 1), 8.0 + pi - 2 * pi, 1e-12);
    EXPECT_NEAR(phi_at_3(table, -8.0, 0, 1, 1), -8.0 + pi, 1e-12);
}

}  // namespace
