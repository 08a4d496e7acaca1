#include "analysis/site.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <optional>
#include <stdexcept>

#include "analysis/hkl_class.h"

namespace lomar {

namespace {

constexpr std::int64_t fine_parts = 1'000'000'000'000;
constexpr std::int64_t most_parts = 1000 * fine_parts;
constexpr std::int64_t furthest = 1'000'000;

fraction rounded(const fraction& value) {
    const double parts = std::floor(value.modulo_one().to_double() * fine_parts + 0.5);
    return fraction(value.floor()) + fraction(static_cast<std::int64_t>(parts), fine_parts);
}

fraction_vector usable(fraction_vector point) {
    bool fits = true;
    std::int64_t denominator = 1;
    for (const fraction& part : point) {
        const std::int64_t whole = part.floor();
        if (whole < -furthest || whole > furthest) {
            throw std::invalid_argument(part.text() + " is too far from the cell");
        }
        const std::int64_t step = part.den() / std::gcd(denominator, part.den());
        fits = fits && step <= most_parts / denominator;
        if (fits) denominator *= step;
    }
    if (!fits) {
        for (fraction& part : point) part = rounded(part);
    }
    return point;
}

std::int64_t nearest_integer(const fraction& value) { return (value + fraction(1, 2)).floor(); }

fraction magnitude(const fraction& value) { return value < fraction() ? -value : value; }

// One position of an orbit with all its lattice translations: the points whose images under some
// rows are those of its origin, but for integers.
class lattice_of_sites {
public:
    explicit lattice_of_sites(const symop& map) : origin_(map.trans) {
        std::vector<int_vector> directions;
        for (std::size_t j = 0; j < 3; ++j) {
            const int_vector column = {map.rot[0][j], map.rot[1][j], map.rot[2][j]};
            if (column != int_vector{}) directions.push_back(column);
        }
        if (directions.size() == 1) line_ = directions[0];
        // The rows span the indices that are normal to all directions.
        hkl_class rows = all_reflections();
        if (directions.size() == 1) rows = reflections_of_zone(primitive(directions[0]));
        if (directions.size() == 2) {
            const int_vector normal = cross(directions[0], directions[1]);
            rows = reflections_of_row(primitive(normal));
        }
        if (directions.size() == 3) rows = {};
        rows_ = transposed(rows.pattern);
        back_ = transposed(rows.parameters);
    }

    // The lattice translation of the site's copy that the point may be on.
    std::optional<fraction_vector> near(const fraction_vector& point, const fraction_vector& moved,
                                        const fraction& tolerance) const {
        const fraction_vector images = rows_ * (point - origin_ - moved);
        int_vector whole{};
        for (std::size_t i = 0; i < 3; ++i) {
            const std::int64_t nearest = nearest_integer(images[i]);
            std::int64_t sum = 0;
            for (const int part : rows_[i]) sum += std::abs(part);
            if (magnitude(images[i] - fraction(nearest)) > tolerance * fraction(sum)) {
                return std::nullopt;
            }
            whole[i] = static_cast<int>(nearest);
        }
        const int_vector lattice = back_ * whole;
        return fraction_vector{lattice[0], lattice[1], lattice[2]} + moved;
    }

    // Whether some point of that copy is within the tolerance in each coordinate. For planes and
    // points near() has said so; on a line, each coordinate leaves a stretch of the parameter.
    bool within(const fraction_vector& point, const fraction_vector& moved,
                const fraction& tolerance) const {
        const fraction_vector from_origin = point - origin_ - moved;
        std::optional<fraction> least, most;
        for (std::size_t i = 0; i < 3; ++i) {
            if (line_[i] == 0) continue;
            const fraction step(line_[i]);
            const fraction one = (from_origin[i] - tolerance) / step;
            const fraction other = (from_origin[i] + tolerance) / step;
            if (!least || std::min(one, other) > *least) least = std::min(one, other);
            if (!most || std::max(one, other) < *most) most = std::max(one, other);
        }
        return !least || *least <= *most;
    }

private:
    static int_vector cross(const int_vector& a, const int_vector& b) {
        return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
    }
    static int_vector primitive(const int_vector& v) {
        const int common = std::gcd(std::gcd(v[0], v[1]), v[2]);
        return {v[0] / common, v[1] / common, v[2] / common};
    }

    fraction_vector origin_;
    int_matrix rows_;
    int_matrix back_;
    int_vector line_{};  // the direction, if it is a line
};

// The operators that fix every point of a position, moved by a vector.
std::vector<symop> operators_that_fix(const symop& map, const fraction_vector& moved,
                                      const space_group& group) {
    std::vector<symop> result;
    for (const symop& op : group.operators) {
        symop shifted = map;
        shifted.trans = map.trans + moved;
        const symop image = op * shifted;
        const fraction_vector lattice = shifted.trans - image.trans;
        if (image.rot != map.rot || !is_integer(lattice)) continue;
        result.push_back({op.rot, op.trans + lattice});
    }
    return result;
}

fraction_vector mean_image(const fraction_vector& point, const std::vector<symop>& operators) {
    // Shifts are small and exact; their sum has room where that of the images might not.
    fraction_vector sum;
    for (const symop& op : operators) sum = sum + (op * point - point);
    for (fraction& part : sum) part /= fraction(static_cast<std::int64_t>(operators.size()));
    return point + sum;
}

fraction largest_part(const fraction_vector& shift) {
    return std::max({magnitude(shift[0]), magnitude(shift[1]), magnitude(shift[2])});
}

bool nearer(const site& a, const site& b) { return largest_part(a.shift) < largest_part(b.shift); }

// The nearest site of a position, if the point is near enough to any.
std::optional<site> nearest_site(const wyckoff_position& position, const space_group& group,
                                 const fraction_vector& point, const fraction& tolerance) {
    std::optional<site> best;
    for (const symop& map : position.orbit) {
        const lattice_of_sites sites(map);
        for (const fraction_vector& vector : group.centring) {
            const auto moved = sites.near(point, vector, tolerance);
            if (!moved || !sites.within(point, *moved, tolerance)) continue;
            site found;
            found.operators = operators_that_fix(map, *moved, group);
            found.point = mean_image(point, found.operators);
            found.shift = found.point - point;
            if (!best || nearer(found, *best)) best = found;
        }
    }
    if (!best) return best;
    best->letter = position.letter;
    best->multiplicity = position.multiplicity;
    best->site_symmetry = position.site_symmetry;
    return best;
}

// The general position, the last, holds every point.
site most_special(const std::vector<wyckoff_position>& positions, const space_group& group,
                  const fraction_vector& point, const fraction& tolerance) {
    std::optional<site> best;
    for (const wyckoff_position& position : positions) {
        if (best && position.multiplicity > best->multiplicity) continue;
        const auto found = nearest_site(position, group, point, tolerance);
        if (!found) continue;
        if (!best || found->multiplicity < best->multiplicity || nearer(*found, *best)) {
            best = found;
        }
    }
    return *best;
}

std::vector<fraction_vector> orbit_of(const fraction_vector& point, const space_group& group) {
    std::vector<fraction_vector> orbit;
    for (const symop& op : group.operators) {
        const fraction_vector image = modulo_one(op * point);
        if (std::find(orbit.begin(), orbit.end(), image) == orbit.end()) orbit.push_back(image);
    }
    return orbit;
}

}  // namespace

site site_of(const space_group& group, const fraction_vector& point, const fraction& tolerance) {
    return site_of(group, wyckoff_positions(group), point, tolerance);
}

site site_of(const space_group& group, const std::vector<wyckoff_position>& positions,
             const fraction_vector& point, const fraction& tolerance) {
    if (tolerance < fraction() || tolerance > largest_tolerance()) {
        throw std::invalid_argument("a tolerance is from 0 to " + largest_tolerance().text() +
                                    ", not " + tolerance.text());
    }
    const fraction_vector asked = usable(point);
    site best = most_special(positions, group, asked, tolerance);
    // The mean may be on a site that was too far.
    if (!tolerance.is_zero()) best = most_special(positions, group, best.point, fraction());
    best.shift = best.point - point;
    best.orbit = orbit_of(best.point, group);
    return best;
}

}  // namespace lomar
