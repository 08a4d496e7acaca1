#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "reflections/hkl_generator_3.h"
#include "sgfile/sg_reader.h"
#include "support/expect_failure.h"
#include "support/orbits.h"
#include "support/scratch_dir.h"
#include "support/sg_text.h"

namespace {

// The reflections that a .sg file gives, with their multiplicities.
std::map<hkl, int> rows_of(const std::string& sg_text, const hkl& limits) {
    write_file("group.sg", sg_text);
    xyz_list_3 ops;
    load_sg_file_xyzs_3("group.sg", ops);
    row_list_3 rows;
    hkl_generator_3().generate("group.sg", ops, {{limits[0], limits[1], limits[2]}}, rows);
    return multiplicities(rows);
}

TEST(HklGenerator, EverySettingByTheDefinition) {
    const scratch_dir dir;
    for_each_setting([&](const setting& row) {
        const std::string text = sg_text_of(row.operators);
        const std::vector<op_array> ops(row.group.begin(), row.group.end());
        for (const hkl& limits : {hkl{4, 4, 4}, {1, 2, 5}, {3, 0, 2}, {0, 3, 1}}) {
            std::map<hkl, int> rows = rows_of(text, limits);
            // Groups with a free axis aren't tested for absent general reflections. A glide plane
            // along a diagonal that shifts within the plane of the other two axes is missed so.
            // This happens in one setting alone, which the catalogue leaves out for that.
            if (row.symbol == "C -4 2 b") {
                const auto missed = [](const auto& found) {
                    const auto& [h, k, l] = found.first;
                    return h == k && h % 2 != 0 && l != 0;
                };
                EXPECT_EQ(std::erase_if(rows, missed) != 0, limits[0] * limits[1] != 0);
            }
            ASSERT_EQ(rows, orbits_within(ops, limits).present)
                << row.symbol << ' ' << row.choice << " limits " << testing::PrintToString(limits);
        }
    });
}

TEST(HklGenerator, WorkedLists) {
    const std::string screw = "x,y,z;-x,y+1/2,-z";
    const std::string p6 = operators_of("P 6");
    const std::string r3 = operators_of("R 3", "H");
    const struct {
        std::string ops;
        hkl index;
        int multiplicity;  // 0: not in the list
    } rows[] = {{screw, {0, 1, 0}, 0}, {screw, {0, 2, 0}, 2}, {screw, {0, 1, 1}, 4},
                {p6, {2, -1, 0}, 6},   {p6, {1, 0, 1}, 12},   {p6, {1, 1, 0}, 0},
                {r3, {1, 0, 1}, 6},    {r3, {1, 0, -2}, 6},   {r3, {1, 0, -1}, 0}};
    const scratch_dir dir;
    for (const auto& row : rows) {
        EXPECT_EQ(rows_of(sg_text_of(row.ops), {3, 3, 3})[row.index], row.multiplicity)
            << row.ops << testing::PrintToString(row.index);
    }
    // The greatest member of an orbit represents it, even beyond the limits.
    const std::map<hkl, int> m3m = {
        {{1, 0, 0}, 6}, {{1, 1, 0}, 12}, {{2, 0, 0}, 6}, {{2, 1, 0}, 24}};
    EXPECT_EQ(rows_of(sg_text_of(operators_of("P m -3 m")), {1, 2, 0}), m3m);
}

TEST(HklGenerator, LimitsOfAnySizeAndSign) {
    constexpr int most = 2147483647;
    const struct {
        hkl limits;
        std::size_t rows;
    } rows[] = {{{0, 0, 0}, 0}, {{0, 1, 100000}, 300001}, {{-1, 1, 1}, 0}, {{0, -70000, 0}, 0}};
    const scratch_dir dir;
    const std::string p1 = sg_text_of("x,y,z");
    for (const auto& row : rows) EXPECT_EQ(rows_of(p1, row.limits).size(), row.rows);
    const char* const too_large = " Index limits too large";
    for (const hkl& limits : {hkl{0, -most - 1, 0}, {1000, -1000000000, 1000}, {65536, 65536, 1}}) {
        EXPECT_FAILURE(rows_of(p1, limits), too_large) << testing::PrintToString(limits);
    }
    const std::string p6 = sg_text_of(operators_of("P 6"));
    EXPECT_FAILURE(rows_of(p6, {most / 2 + 1, most / 2, 0}), too_large);
}

// A .sg file with these operators and class blocks. What is left of the seven blocks holds the
// unit.
std::string sg_by_hand(const std::string& ops, const std::vector<std::string>& class_ops) {
    static const char* const units[] = {"h,k,l", "h,k,0", "h,0,l", "0,k,l",
                                        "h,0,0", "0,k,0", "0,0,l"};
    std::string text = "xyzs {" + ops + "\n}";
    for (unsigned i = 0; i < 7; ++i) {
        text += std::string("\n") + hkl_class_names_3()[static_cast<int>(i)].data + " {\n" +
                (i < class_ops.size() ? class_ops[i] : units[i]) + "\n}";
    }
    return text;
}

// Whatever a file says, the outcome is rows or a message.
TEST(HklGenerator, FilesMadeByHand) {
    const std::vector<std::string> empty(7);
    const auto h00_by_hand = [](const char* ops) {
        return sg_by_hand("x,y,z", {"", "", "", "", ops});
    };
    const struct {
        std::string text;
        hkl limits;
        std::map<hkl, int> rows;
    } rows[] = {
        {sg_by_hand("x,y,z", empty), {2147483647, 1, -2147483647}, {}},
        {sg_by_hand("", {}), {0, 0, 1}, {}},
        {sg_by_hand("0/1,0/1,0/1", {"0,0,0"}), {1, 0, 0}, {{{1, 0, 0}, 2}}},
        // Without the unit a reflection isn't among its own equivalents.
        {sg_by_hand("x,y,z", {"-h,k,l", "h,-k,0"}),
         {1, 1, 0},
         {{{0, 1, 0}, 2}, {{1, 0, 0}, 2}, {{1, 1, 0}, 2}}},
        {h00_by_hand("0,h,0"), {1, 0, 0}, {}},
        // The grid has room for what the limits themselves lead to. An equivalent outside it
        // doesn't count.
        {h00_by_hand("h,0,0\nh+h+h-l-l,0,0"),
         {2, 0, 1},
         {{{0, 0, 1}, 2}, {{2, 0, 0}, 2}, {{3, 0, 0}, 4}}},
        // Translations in single degrees, and beyond what fits.
        {sg_by_hand("x,y,z\n-x+7/360,-y+11/360,-z+13/360", {}), {0, 0, 1}, {{{0, 0, 1}, 2}}},
        {sg_by_hand("x,y,z\nx-268435456/1,y,z", {}), {1, 0, 0}, {{{1, 0, 0}, 2}}},
        {sg_by_hand("x,y,z\nx,y,z\nx,y,z+1/2", {}), {0, 0, 1}, {{{0, 0, 1}, 2}}},
    };
    const scratch_dir dir;
    for (const auto& row : rows) {
        EXPECT_EQ(rows_of(row.text, row.limits), row.rows) << row.text.substr(0, 200);
    }
    EXPECT_FAILURE(rows_of(sg_by_hand("x,y,z", {"h,k,2l"}), {1, 1, 1}),
                   " Error loading symmetry hkls");
}

// A coefficient counts its letters.
TEST(HklGenerator, HugeCoefficients) {
    const scratch_dir dir;
    const std::string many_h(4000000, 'h');
    std::string many_l;
    for (int i = 1; i < 4000000; ++i) many_l += "-l";
    std::vector<std::string> classes(7);
    classes[2] = many_h + many_l + ",0,l";
    const std::string text = sg_by_hand("x,y,z", classes);
    // Only where h and l are equal the image is in the grid: it is the reflection itself.
    std::map<hkl, int> rows = rows_of(text, {600, 0, 600});
    EXPECT_EQ(rows.size(), 600U);
    EXPECT_EQ((rows[{600, 0, 600}]), 2);
    EXPECT_FAILURE(rows_of(text, {2147483647, 0, 0}), " Index limits too large");
}

}  // namespace
