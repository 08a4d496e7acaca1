#include "library/special_positions.h"

#include <gtest/gtest.h>
#include <sstream>
#include <vector>

#include "support/operators.h"
#include "textout/sstring_out.h"

namespace {

std::string block_of(const xyz_list_3& ops) {
    sg_decoder_3 decoder;
    decoder.ops = ops;
    sstring_out text;
    write_special_positions(decoder, text);
    return text.text();
}

TEST(SpecialPositions, Text) {
    EXPECT_EQ(block_of(xyz_list_of("x,y,z")), "\nspecial_positions\n{\n} 0");
    EXPECT_EQ(block_of(xyz_list_of("x,y,z;-x,-y,-z")),
              "\nspecial_positions\n{\n0 0 0\n0 0 0.5\n0 0.5 0\n0 0.5 0.5\n"
              "0.5 0 0\n0.5 0 0.5\n0.5 0.5 0\n0.5 0.5 0.5\n} 8");
    EXPECT_EQ(block_of({}), "\nspecial_positions\n{\n} 0");
    const std::string mirror = block_of(xyz_list_of("x,y,z;x,-y+1/6,z"));
    EXPECT_NE(mirror.find("\n0 0.0833333333 0\n"), std::string::npos);
    EXPECT_TRUE(mirror.ends_with("} 288"));
    // Every point on the mirrors has one image between the points of the grid.
    const std::string shifted = block_of(xyz_list_of("x,y,z;x,-y,z;-x+1/8,-y,-z;-x+1/8,y,-z"));
    EXPECT_TRUE(shifted.ends_with("} 288"));
}

using point = std::array<int, 3>;  // in twelfths of the edges

// The image of a point, in 1/360 of the edges.
point image_under(const op_array& op, const point& at) {
    point image{};
    for (unsigned i = 0; i < 3; ++i) {
        const int sum = op[4 * i] * at[0] + op[4 * i + 1] * at[1] + op[4 * i + 2] * at[2];
        image[i] = ((30 * sum + op[4 * i + 3]) % 360 + 360) % 360;
    }
    return image;
}

std::vector<point> points_in(const std::string& block) {
    std::istringstream in(block.substr(block.find('{') + 1));
    std::vector<point> points;
    for (double x = 0, y = 0, z = 0; in >> x >> y >> z;) {
        points.push_back({static_cast<int>(x * 12 + 0.5), static_cast<int>(y * 12 + 0.5),
                          static_cast<int>(z * 12 + 0.5)});
    }
    return points;
}

// A point is special if an operator besides the identity leaves it in place. Each special point of
// the grid is the image of exactly one of those that are written, and none comes before that one.
TEST(SpecialPositions, EverySetting) {
    for (const setting& row : read_settings()) {
        SCOPED_TRACE(row.symbol + ' ' + row.choice);
        const xyz_list_3 list = xyz_list_of(row.operators);
        const std::vector<op_array> ops = arrays_of(list);
        const std::string block = block_of(list);
        std::vector<int> met(12 * 12 * 12);
        const std::vector<point> points = points_in(block);
        for (const point& p : points) {
            std::vector<std::size_t> cells;
            for (const op_array& op : ops) {
                const point image = image_under(op, p);
                if (image[0] % 30 + image[1] % 30 + image[2] % 30 != 0) continue;
                cells.push_back(static_cast<std::size_t>(image[0] / 30 * 144 + image[1] / 30 * 12 +
                                                         image[2] / 30));
            }
            const std::set<std::size_t> orbit(cells.begin(), cells.end());
            EXPECT_EQ(*orbit.begin(), static_cast<std::size_t>(p[0] * 144 + p[1] * 12 + p[2]));
            for (const std::size_t cell : orbit) ++met[cell];
        }
        for (int i = 0; i < 12 * 12 * 12; ++i) {
            const point p = {i / 144, i / 12 % 12, i % 12};
            const point unmoved = {30 * p[0], 30 * p[1], 30 * p[2]};
            int stabiliser = 0;
            for (const op_array& op : ops) stabiliser += image_under(op, p) == unmoved;
            ASSERT_EQ(met[static_cast<std::size_t>(i)], stabiliser > 1) << i;
        }
        EXPECT_TRUE(block.ends_with("\n} " + std::to_string(points.size())));
    }
}

}  // namespace
