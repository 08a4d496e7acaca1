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

constexpr int grid = 24;

// The number of a point of the grid, or -1 beside it.
int place_on_grid(const fraction_vector& point) {
    int place = 0;
    for (const fraction& part : modulo_one(point)) {
        const fraction steps = part * fraction(grid);
        if (!steps.is_integer()) return -1;
        place = place * grid + static_cast<int>(steps.num());
    }
    return place;
}

// Of each point of the grid the multiplicity of the most special position that holds it.
std::vector<int> least_multiplicities(const space_group& group) {
    std::vector<int> least(grid * grid * grid, static_cast<int>(group.operators.size()));
    for (const wyckoff_position& position : wyckoff_positions(group)) {
        for (const symop& map : position.orbit) {
            const auto steps = [&](std::size_t column) {
                const auto has = [&](const auto& row) { return row[column] != 0; };
                return std::any_of(map.rot.begin(), map.rot.end(), has) ? 2 * grid : 1;
            };
            if (steps(0) > 1 && steps(1) > 1 && steps(2) > 1) continue;
            for (int x = 0; x < steps(0); ++x) {
                for (int y = 0; y < steps(1); ++y) {
                    for (int z = 0; z < steps(2); ++z) {
                        const fraction_vector point =
                            map * fraction_vector{fraction(x, 2 * grid), fraction(y, 2 * grid),
                                                  fraction(z, 2 * grid)};
                        for (const fraction_vector& vector : group.centring) {
                            const int place = place_on_grid(point + vector);
                            if (place < 0) continue;
                            int& known = least[static_cast<std::size_t>(place)];
                            known = std::min(known, position.multiplicity);
                        }
                    }
                }
            }
        }
    }
    return least;
}

// How many operators fix the point of the grid up to a lattice translation.
int n_fixing(const std::vector<std::array<int, 12>>& operators, const int_vector& point) {
    int count = 0;
    for (const std::array<int, 12>& op : operators) {
        bool fixes = true;
        for (std::size_t i = 0; i < 3 && fixes; ++i) {
            const int* const row = op.data() + 4 * i;
            fixes =
                (row[0] * point[0] + row[1] * point[1] + row[2] * point[2] + row[3]) % grid == 0;
        }
        count += fixes ? 1 : 0;
    }
    return count;
}

// W - 1 and w of each operator, in steps of the grid.
std::vector<std::array<int, 12>> displacements(const space_group& group) {
    std::vector<std::array<int, 12>> result;
    for (const symop& op : group.operators) {
        std::array<int, 12>& row = result.emplace_back();
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) row[4 * i + j] = op.rot[i][j] - (i == j ? 1 : 0);
            row[4 * i + 3] = static_cast<int>((op.trans[i] * fraction(grid)).num());
        }
    }
    return result;
}

// Each point of a grid of 1/24 is on a position of as many points as its site symmetry leaves, and
// on none of fewer.
TEST(Wyckoff, GridOfEverySetting) {
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        const space_group group = group_of(row);
        const std::vector<int> least = least_multiplicities(group);
        const auto operators = displacements(group);
        std::size_t place = 0;
        for (int x = 0; x < grid; ++x) {
            for (int y = 0; y < grid; ++y) {
                for (int z = 0; z < grid; ++z, ++place) {
                    const int order = static_cast<int>(operators.size());
                    ASSERT_EQ(least[place] * n_fixing(operators, {x, y, z}), order)
                        << x << "/24 " << y << "/24 " << z << "/24";
                }
            }
        }
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
