#include "analysis/wyckoff.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <set>

#include "analysis/oriented_symbol.h"
#include "analysis/symmetry_element.h"
#include "explorer/analysis/table_file.h"
#include "group/embedded_data.h"

namespace {

using namespace lomar;

struct table_row {
    char letter;
    int multiplicity;
    std::string site_symmetry;
    std::string coordinates;
};

// The rows of each group's number.
std::map<int, std::vector<table_row>> standard_positions() {
    std::map<int, std::vector<table_row>> result;
    std::istringstream table{std::string(wyckoff_data)};
    std::string line;
    std::getline(table, line);
    int number = 0;
    int multiplicity = 0;
    std::string letter, point_group, symmetry, coordinates;
    while (table >> number >> letter >> multiplicity >> point_group >> symmetry >> coordinates) {
        result[number].push_back({letter[0], multiplicity, symmetry, coordinates});
    }
    return result;
}

// A point of a position that no position with fewer points holds.
fraction_vector some_point(const symop& map) {
    return map * fraction_vector{fraction(29, 211), fraction(53, 223), fraction(97, 227)};
}

std::set<fraction_vector> orbit_of(const fraction_vector& point, const space_group& group) {
    std::set<fraction_vector> orbit;
    for (const symop& op : group.operators) orbit.insert(modulo_one(op * point));
    return orbit;
}

TEST(Wyckoff, OrbitsOfEverySetting) {
    const auto table = standard_positions();
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        const std::vector<wyckoff_position> positions = wyckoff_positions(group);
        const std::vector<table_row>& rows = table.at(row.number);
        ASSERT_EQ(positions.size(), rows.size());
        std::set<fraction_vector> met;
        for (std::size_t i = 0; i < positions.size(); ++i) {
            const wyckoff_position& position = positions[i];
            const table_row& in_table = rows[rows.size() - 1 - i];
            SCOPED_TRACE(position.letter);
            EXPECT_EQ(position.letter, in_table.letter);
            const fraction volume = determinant(group.to_standard.matrix);
            EXPECT_EQ(fraction(position.multiplicity) * volume, fraction(in_table.multiplicity));

            // All points of the position are those of the first, and those of no other position.
            std::set<fraction_vector> points;
            for (const symop& map : position.orbit) {
                for (const fraction_vector& vector : group.centring) {
                    points.insert(modulo_one(some_point(map) + vector));
                }
            }
            const fraction_vector first = some_point(position.orbit[0]);
            EXPECT_EQ(points, orbit_of(first, group));
            EXPECT_EQ(points.size(), static_cast<std::size_t>(position.multiplicity));
            for (const fraction_vector& point : points) EXPECT_TRUE(met.insert(point).second);
            const fraction_vector standard = transformed(first, group.to_standard);
            if (row.name() == standard_setting(row.number).name()) {
                EXPECT_EQ(position.positions[0], in_table.coordinates);
                EXPECT_EQ(standard, first);
            }
        }
        EXPECT_EQ(positions.back().multiplicity, static_cast<int>(group.operators.size()));
    }
}

// An orthorhombic symbol from the axes and planes of the operators that fix a point: of m and 2 in
// one direction the plane is written, but with 2 if nothing is in the others.
std::string symbol_of_site(const space_group& group, const fraction_vector& point) {
    bool axis[3] = {}, plane[3] = {}, centre = false;
    for (const symop& op : group.operators) {
        if (!is_integer(op * point - point)) continue;
        const symmetry_element element = element_of(op);
        centre = centre || element.kind == -1;
        for (std::size_t i = 0; i < 3; ++i) {
            if (element.axis[i] == 0) continue;
            (element.kind == 2 ? axis : plane)[i] = true;
        }
    }
    std::string result;
    int n_directions = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        n_directions += axis[i] || plane[i];
        result += plane[i] ? "m" : axis[i] ? "2" : ".";
    }
    if (n_directions == 0) return centre ? "-1" : "1";
    if (n_directions == 1 && centre) {
        result.insert(result.find('m'), "2/");
    }
    return result;
}

TEST(Wyckoff, OrthorhombicSymbolsFollowTheAxes) {
    int n_settings = 0;
    for (const setting& row : settings()) {
        if (row.crystal_system != "orthorhombic") continue;
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        for (const wyckoff_position& position : wyckoff_positions(group)) {
            EXPECT_EQ(position.site_symmetry, symbol_of_site(group, some_point(position.orbit[0])))
                << position.letter;
        }
        ++n_settings;
    }
    EXPECT_GT(n_settings, 240);
}

TEST(Wyckoff, PositionsAsPrinted) {
    const struct {
        const char* name;
        std::size_t place;
        const char* symmetry;
        std::vector<std::string> positions;
    } cases[] = {
        {"P 1 21/c 1", 0, "-1", {"0,0,0", "0,1/2,1/2"}},
        {"P 1 21/c 1", 4, "1", {"x,y,z", "-x,y+1/2,-z+1/2", "-x,-y,-z", "x,-y+1/2,z+1/2"}},
        {"P n m a", 2, ".m.", {"x,1/4,z", "-x,3/4,-z", "-x+1/2,3/4,z+1/2", "x+1/2,1/4,-z+1/2"}},
        {"P b n m", 2, "..m", {"x,y,1/4", "-x,-y,3/4", "-x+1/2,y+1/2,1/4", "x+1/2,-y+1/2,3/4"}},
        {"C 4 2 2", 13, "..2", {}},
        {"C -4 2 m", 0, "-42m", {"0,0,0"}},
        {"R -3 m:R", 2, "3m", {"x,x,x", "-x,-x,-x"}},
        {"R -3 m:H", 2, "3m", {"0,0,z", "0,0,-z"}},
        {"F d -3 m:1", 0, "-43m", {"0,0,0", "1/4,1/4,1/4"}},
        {"P m m m", 26, "1", {}},
    };
    for (const auto& [name, place, symmetry, positions] : cases) {
        SCOPED_TRACE(name);
        const auto found = wyckoff_positions(group_of(*find_setting(name))).at(place);
        EXPECT_EQ(found.site_symmetry, symmetry);
        if (positions.empty()) continue;
        auto sorted = found.positions;
        auto wanted = positions;
        std::sort(sorted.begin(), sorted.end());
        std::sort(wanted.begin(), wanted.end());
        EXPECT_EQ(sorted, wanted);
        EXPECT_EQ(found.positions[0], positions[0]);
    }
}

TEST(Wyckoff, SymbolsInTurnedTetragonalAxes) {
    const space_group group = group_of(*find_setting("C 4 2 2"));
    const struct {
        const char* standard;
        const char* turned;
    } cases[] = {{"1", "1"},         {"2..", "2.."},    {".2.", "..2"},     {"..m", ".m."},
                 {"..2/m", ".2/m."}, {"2mm.", "2.mm"},  {"m.2m", "m2m."},   {"222.", "2.22"},
                 {"-4m2", "-42m"},   {"m.mm", "mmm."},  {"4/mmm", "4/mmm"}, {"-4..", "-4.."},
                 {"4mm", "4mm"},     {"2/m..", "2/m.."}};
    for (const auto& [standard, turned] : cases) {
        EXPECT_EQ(oriented_symbol(standard, group), turned);
    }
}

}  // namespace
