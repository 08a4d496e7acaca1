#include "library/numeric/vector_geometry.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <vector>

#include "support/expect_failure.h"
#include "textout/sstring_out.h"

namespace {

constexpr double pi = std::numbers::pi;
constexpr double zero[3] = {0, 0, 0};
constexpr double ex[3] = {1, 0, 0};
constexpr double ey[3] = {0, 1, 0};
constexpr double ez[3] = {0, 0, 1};
constexpr double minus_x[3] = {-2, 0, 0};
constexpr double xy[3] = {1, 1, 0};
constexpr double nan_value = std::numeric_limits<double>::quiet_NaN();

void expect_near(const double* a, const std::vector<double>& b) {
    for (std::size_t i = 0; i < b.size(); ++i) EXPECT_NEAR(a[i], b[i], 1e-12) << i;
}

void expect_orthonormal(const double m[9]) {
    for (int i = 0; i < 9; ++i) {
        EXPECT_NEAR(dot_product(m + i / 3 * 3, m + i % 3 * 3), i % 4 == 0, 1e-12) << i;
    }
}

TEST(VectorGeometry, Numbers) {
    const double a[3] = {1, 2, 3};
    const double b[3] = {3, 5, 9};
    const double almost_x[3] = {7, 1e-12, -1e-12};
    const double tiny[3] = {9e-8, 0, 0};
    const double long_one[3] = {100, 0, 0};
    // Of two lengths the product counts.
    const double found[] = {distance(a, b), cos_between(long_one, tiny), cos_between(ex, xy)};
    expect_near(found, {7, 1, std::sqrt(0.5)});
    const double turns[] = {polar_angle(ez),
                            polar_angle(xy),
                            angle_at(ex, zero, xy),
                            signed_angle(ex, ey, ez),
                            signed_angle(ey, ex, ez),
                            signed_angle_of_three(ex, ez, xy),
                            signed_angle_of_three(ex, ez, almost_x)};
    expect_near(turns, {0, pi / 2, pi / 2, pi / 2, -pi / 2, -pi / 2, pi / 2});
    for (int i = 1; i < 100; ++i) {  // cosines that rounding may put beyond 1
        const double v[3] = {0.1 * i, 0.7 / i, 0.3};
        const double w[3] = {-3 * v[0], -3 * v[1], -3 * v[2]};
        EXPECT_EQ(angle_between(v, v), 0.0);
        EXPECT_NEAR(angle_between(v, w), pi, 1e-7);
    }
    for (const auto& [x, sign] : {std::pair{1e-11, 0}, {2e-11, 1}, {-2e-11, -1}, {nan_value, 0}}) {
        EXPECT_EQ(sign_of(x), sign);
    }
    EXPECT_THROW(cos_between(ex, tiny), xyz_bad_angle_3);
    EXPECT_THROW(polar_angle(tiny), xyz_bad_angle_3);
}

TEST(VectorGeometry, Vectors) {
    const double a[3] = {1, 2, 3};
    double v[3] = {3, 0, 4};
    normalise(v);
    expect_near(v, {0.6, 0, 0.8});
    difference(a, v, v);  // in place
    expect_near(v, {0.4, 2, 2.2});
    cross_product(ex, ey, v);
    expect_near(v, {0, 0, 1});
    double lengths[4];
    diagonals(ex, ez, xy, lengths);
    expect_near(lengths, {std::sqrt(6), std::sqrt(2), std::sqrt(6), std::sqrt(2)});
    double p[3] = {5, 6, 7};
    const double n[3] = {0, 0, 2};
    project_on_plane(p, n, 6);
    expect_near(p, {5, 6, 3});
    project_on_plane(p, zero, 6);  // no plane: nothing moves
    expect_near(p, {5, 6, 3});
}

TEST(VectorGeometry, SphericalCoordinates) {
    const struct {
        double v[3], phi, theta, r;
    } rows[] = {{{0, 0, -2}, 0, pi, 2},
                {{0, 3, 0}, pi / 2, pi / 2, 3},
                {{1e-17, -3, 0}, -pi / 2, pi / 2, 3},
                {{-1, 0, 0}, pi, pi / 2, 1},
                {{1, 1, std::sqrt(2)}, pi / 4, pi / 4, 2},
                {{0, 0, 0}, 0, 0, 0}};
    for (const auto& row : rows) {
        double found[3];
        to_spherical(row.v, found[0], found[1], found[2]);
        expect_near(found, {row.phi, row.theta, row.r});
    }
}

TEST(VectorGeometry, AtomsOfAChain) {
    const double a[3] = {1, 3, 1};
    const double b[3] = {1, 1, 1};
    const double c[3] = {2, 1, 1};
    const struct {
        double d[3], torsion;
    } rows[] = {{{2, 5, 1}, 0},
                {{2, 1, 4}, 90},
                {{2, 1, -4}, -90},
                {{2, 0, 1 - 1e-7}, 180},
                {{3, 1, 1}, -999}};  // all on one line
    for (const auto& row : rows) {
        double found[3];
        const bool is_known = row.torsion != -999;
        EXPECT_EQ(distance_angle_torsion(a, b, c, row.d, found[0], found[1], found[2]), is_known);
        const double expected[] = {is_known ? 2.0 : -999, is_known ? 90.0 : -999, row.torsion};
        for (int i = 0; i < 3; ++i) EXPECT_NEAR(found[i], expected[i], i == 2 ? 1e-4 : 1e-12);
    }
    double found[2];
    EXPECT_EQ(distance_angle(a, b, c, found[0], found[1]), 1);
    expect_near(found, {2, 90});
    EXPECT_EQ(distance_angle(b, b, c, found[0], found[1]), 0);
    expect_near(found, {-999, -999});
}

TEST(VectorGeometry, RotationMatrices) {
    double m[9];
    expect_near(identity_3(), {1, 0, 0, 0, 1, 0, 0, 0, 1});
    const double diagonal[3] = {2, 2, 2};
    axis_rotation_matrix(diagonal, m, 2 * pi / 3);
    expect_near(m, {0, 0, 1, 1, 0, 0, 0, 1, 0});
    const double a[3] = {1, 2, -3};
    const double b[3] = {-2, 0.5, 4};
    EXPECT_EQ(get_rotation_matrix(a, m, b), 1);
    const double image[3] = {dot_product(m, a), dot_product(m + 3, a), dot_product(m + 6, a)};
    EXPECT_NEAR(angle_between(image, b), 0.0, 1e-7);
    expect_orthonormal(m);
    EXPECT_EQ(get_rotation_matrix(zero, m, b), 0);
    const double no_numbers[3] = {nan_value, 0, 0};
    for (const double* to : {minus_x, no_numbers}) {
        EXPECT_FAILURE(get_rotation_matrix(ex, m, to), " Colinear in get_rotation_matrix");
    }
}

TEST(VectorGeometry, Planes) {
    const double points[3][3] = {{0, 0, -2}, {1, 0, -2}, {0, 5, -2}};
    double u[3];
    double v[3];
    for (const int first : {1, 2}) {
        double normal[3];
        double d = 0.0;
        plane_through(points[0], points[first], points[3 - first], u, v, normal, d);
        expect_near(normal, {0, 0, -1});
        EXPECT_EQ(d, 2.0);
    }
    expect_near(u, {0, 5, 0});
    expect_near(v, {1, 0, 0});
    double frame[9];
    double point[3] = {1, 2, 3};
    for (const double* const direction : {ex, ey, xy, minus_x}) {
        double origin[3];
        plane_frame(frame, origin, direction, 4.0, point);
        EXPECT_NEAR(dot_product(origin, direction), 4.0, 1e-12);
        EXPECT_NEAR(angle_between(frame, direction), 0.0, 1e-7);
        expect_orthonormal(frame);
        cross_product(frame, frame + 3, v);
        expect_near(frame + 6, {v[0], v[1], v[2]});
    }
    plane_frame(frame, point, ex, 4.0, point);  // in place
    expect_near(point, {4, 2, 3});
    plane_frame(frame, point, zero, 4.0, ex);  // no plane
    EXPECT_FALSE(std::isfinite(frame[0]));
}

struct binary_stream : sstring_out {
    int is_binary() const override { return 1; }
};

TEST(VectorGeometry, Text) {
    double v[3];
    sstring_in in(" 1.5\n-2e3 x");
    read_vector(v, in);
    sstring_out text;
    write_vector(v, text);
    EXPECT_STREQ(text.text(), "1.5 -2000 0");
    binary_stream binary;
    write_vector(v, binary);
    EXPECT_STREQ(binary.text(), "1.5-20000");
}

}  // namespace
