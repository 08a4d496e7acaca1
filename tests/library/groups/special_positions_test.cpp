#include "library/groups/special_positions.h"

#include <gtest/gtest.h>
#include <sstream>
#include <vector>

#include "support/operators.h"
#include "textout/sstring_out.h"

namespace {

std::string block_of(std::string_view operators) {
    sg_decoder_3 decoder;
    decoder.ops = xyz_list_of(operators);
    sstring_out text;
    write_special_positions(decoder, text);
    return text.text();
}

TEST(SpecialPositions, Text) {
    EXPECT_EQ(block_of(""), "\nspecial_positions\n{\n} 0");
    EXPECT_EQ(block_of("x,y,z;-x,-y,-z"),
              "\nspecial_positions\n{\n0 0 0\n0 0 0.5\n0 0.5 0\n0 0.5 0.5\n"
              "0.5 0 0\n0.5 0 0.5\n0.5 0.5 0\n0.5 0.5 0.5\n} 8");
    EXPECT_TRUE(
        block_of("x,y,z;x,-y+1/6,z").ends_with("\n0.916666667 0.583333333 0.916666667\n} 288"));
    // Every point on the mirrors has one image between the points of the grid.
    EXPECT_TRUE(block_of("x,y,z;x,-y,z;-x,-y,-z+1/8;-x,y,-z+1/8").ends_with("} 288"));
}

using point = std::array<int, 3>;  // in twelfths of the edges

// A point is special if an operator besides the identity leaves it in place. Each special point of
// the grid is the image of exactly one of those that are written, and none comes before that one.
TEST(SpecialPositions, EverySetting) {
    for_each_setting([&](const setting& row) {
        const std::string block = block_of(row.operators);
        std::vector<int> met(12 * 12 * 12);
        int n_points = 0;
        std::istringstream in(block.substr(block.find('{') + 1));
        for (double x = 0, y = 0, z = 0; in >> x >> y >> z; ++n_points) {
            const point p = {static_cast<int>(x * 12 + 0.5), static_cast<int>(y * 12 + 0.5),
                             static_cast<int>(z * 12 + 0.5)};
            std::set<int> orbit;
            for (const op_array& op : row.group) {
                const auto [a, b, c] = image_of_twelfths(op, p);
                if (a % 30 + b % 30 + c % 30 == 0) orbit.insert((a * 12 + b) * 12 / 30 + c / 30);
            }
            EXPECT_EQ(*orbit.begin(), (p[0] * 12 + p[1]) * 12 + p[2]);
            for (const int cell : orbit) ++met[static_cast<std::size_t>(cell)];
        }
        for (int i = 0; i < 12 * 12 * 12; ++i) {
            const point p = {i / 144, i / 12 % 12, i % 12};
            int stabiliser = 0;
            for (const op_array& op : row.group) {
                stabiliser += image_of_twelfths(op, p) == point{30 * p[0], 30 * p[1], 30 * p[2]};
            }
            ASSERT_EQ(met[static_cast<std::size_t>(i)], stabiliser > 1) << i;
        }
        EXPECT_TRUE(block.ends_with("\n} " + std::to_string(n_points)));
    });
}

}  // namespace
