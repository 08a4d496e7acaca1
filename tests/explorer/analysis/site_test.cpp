#include "analysis/site.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <stdexcept>

namespace {

using namespace lomar;

// The operators of the cell that fix a point, up to lattice translations.
std::size_t n_fixing(const space_group& group, const fraction_vector& point) {
    return static_cast<std::size_t>(
        std::count_if(group.operators.begin(), group.operators.end(),
                      [&](const symop& op) { return is_integer(op * point - point); }));
}

void expect_site(const space_group& group, const fraction_vector& point, const site& found) {
    const std::size_t n = n_fixing(group, point);
    EXPECT_EQ(found.operators.size(), n) << text(point);
    EXPECT_EQ(found.multiplicity * static_cast<int>(n), static_cast<int>(group.operators.size()));
    EXPECT_EQ(found.orbit.size(), static_cast<std::size_t>(found.multiplicity));
    for (const symop& op : found.operators) EXPECT_EQ(op * point, point);
}

// Points of the grid of 1/24: a few of each setting, others in each.
TEST(Site, GridPointsOfEverySetting) {
    unsigned next = 1;
    const auto coordinate = [&] {
        next = next * 1103515245u + 12345u;
        const int n = static_cast<int>((next >> 16) % 48) - 12;
        // Half of them where special sites are.
        return fraction((next >> 24) % 2 == 0 ? n - n % 6 : n, 24);
    };
    std::set<std::string> symmetries;
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        const auto positions = wyckoff_positions(group);
        for (int i = 0; i < 16; ++i) {
            const fraction_vector point = {coordinate(), coordinate(), coordinate()};
            const site found = site_of(group, positions, point, fraction());
            EXPECT_EQ(found.point, point);
            expect_site(group, point, found);
            symmetries.insert(found.site_symmetry);
        }
    }
    EXPECT_GT(symmetries.size(), 50u);
}

// Every position is found again from a point of each of its copies, and from one that is off it by
// less than the tolerance in each coordinate.
TEST(Site, PositionsOfEverySettingAndPointsNextToThem) {
    const fraction_vector parameters = parse_point("29/211 53/223 97/227");
    const fraction tolerance(1, 1000);
    const fraction_vector off = parse_point("0.0009 -0.0008 0.00095");
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        const auto positions = wyckoff_positions(group);
        for (const wyckoff_position& position : positions) {
            for (const symop& map : {position.orbit.front(), position.orbit.back()}) {
                const fraction_vector point = map * parameters + fraction_vector{1, -2, 0};
                const site exact = site_of(group, positions, point, tolerance);
                EXPECT_EQ(exact.letter, position.letter) << map.trans[0].text();
                EXPECT_EQ(exact.shift, fraction_vector());
                const site near = site_of(group, positions, point + off, tolerance);
                EXPECT_EQ(near.letter, position.letter) << text(point);
                EXPECT_EQ(near.point, point + off + near.shift);
                expect_site(group, near.point, near);
            }
        }
    }
}

TEST(Site, Answers) {
    const struct {
        const char* name;
        const char* asked;
        const char* tolerance;
        char letter;
        int multiplicity;
        const char* symmetry;
        const char* point;
    } cases[] = {
        {"F d -3 m:2", "0.125 0.125 0.125", "0", 'a', 8, "-43m", "1/8 1/8 1/8"},
        {"F d -3 m:1", "0.125 0.125 0.125", "0", 'c', 16, ".-3m", "1/8 1/8 1/8"},
        {"P 6/m m m", "0.3333 0.6667 0", "1/1000", 'c', 2, "-6m2", "1/3 2/3 0"},
        {"P 6/m m m", "0.3333 0.6668 0", "0", 'p', 12, "m..", "0.3333 0.6668 0"},
        {"P n m a", "0.1 0.2493 0.7", "0.001", 'c', 4, ".m.", "0.1 1/4 0.7"},
        {"P n m a", "0.1 0.2493 0.7", "0.0005", 'd', 8, "1", "0.1 0.2493 0.7"},
        {"P -1", "-0.0004 1.4996 -1/2", "1/1000", 'g', 1, "-1", "0 3/2 -1/2"},
        {"P m -3 m", "0.2 0.2004 0.1998", "1/1000", 'g', 8, ".3m",
         "3001/15000 3001/15000 3001/15000"},
        {"P 6 m m", "0.2009 0.3991 0", "1/1000", 'e', 6, ".m.", "3991/20000 3991/10000 0"},
    };
    for (const auto& [name, asked, tolerance, letter, multiplicity, symmetry, point] : cases) {
        SCOPED_TRACE(std::string(name) + " at " + asked);
        const site found =
            site_of(group_of(*find_setting(name)), parse_point(asked), parse_number(tolerance));
        EXPECT_EQ(found.letter, letter);
        EXPECT_EQ(found.multiplicity, multiplicity);
        EXPECT_EQ(found.site_symmetry, symmetry);
        EXPECT_EQ(text(found.point), text(parse_point(point)));
    }
}

TEST(Site, NumbersOfAnySize) {
    const space_group group = group_of(*find_setting("I a -3 d"));
    EXPECT_EQ(site_of(group, parse_point("0.12345678901234567 0.2 0.33333333333333333")).letter,
              'h');
    EXPECT_EQ(site_of(group, parse_point("0.24999999999999999 0.125 0.00000000000000001")).letter,
              'c');
    EXPECT_EQ(site_of(group, parse_point("1/999983 1/999979 1/999961")).letter, 'a');
    EXPECT_EQ(site_of(group, parse_point("1000000 -999999.5 0.5")).letter, 'a');
    EXPECT_THROW(site_of(group, parse_point("1000001 0 0")), std::invalid_argument);
    EXPECT_THROW(site_of(group, parse_point("0 0 -123456789012345678")), std::invalid_argument);
    EXPECT_THROW(site_of(group, {}, fraction(-1, 1000)), std::invalid_argument);
    EXPECT_THROW(site_of(group, {}, fraction(1, 9)), std::invalid_argument);
}

}  // namespace
