#include "library/vector_geometry.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "support/expect_failure.h"
#include "textout/sstring_out.h"

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double root_half = 0.70710678118654752440;
constexpr double zero[3] = {0, 0, 0};
constexpr double ex[3] = {1, 0, 0};
constexpr double ey[3] = {0, 1, 0};
constexpr double ez[3] = {0, 0, 1};
constexpr double minus_x[3] = {-2, 0, 0};
constexpr double xy[3] = {1, 1, 0};
constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan_value = std::numeric_limits<double>::quiet_NaN();

// The product of a matrix and a vector.
std::vector<double> turned(const double m[9], const double v[3]) {
    std::vector<double> out;
    for (int i = 0; i < 3; ++i) out.push_back(dot_product(m + 3 * i, v));
    return out;
}

void expect_near(const double* a, const std::vector<double>& b, double tolerance = 1e-12) {
    for (std::size_t i = 0; i < b.size(); ++i) EXPECT_NEAR(a[i], b[i], tolerance) << i;
}

TEST(VectorGeometry, Lengths) {
    const double a[3] = {1, 2, 3};
    const double b[3] = {3, 5, 9};
    EXPECT_EQ(distance(a, b), 7.0);
    EXPECT_EQ(distance_squared(a, b), 49.0);
    double v[3] = {3, 0, 4};
    normalise(v);
    expect_near(v, {0.6, 0, 0.8});
    difference(b, a, v);
    expect_near(v, {2, 3, 6});
    difference(v, a, v);  // in place
    expect_near(v, {1, 1, 3});
    double none[3] = {0, 0, 0};
    normalise(none);
    EXPECT_TRUE(std::isnan(none[0]));
    double out[4];
    diagonals(ex, ey, ez, out);
    expect_near(out, {std::sqrt(3), std::sqrt(3), std::sqrt(3), std::sqrt(3)});
    diagonals(ex, xy, zero, out);
    expect_near(out, {std::sqrt(5), std::sqrt(5), 1, 1});
    diagonals(ex, zero, xy, out);
    expect_near(out, {std::sqrt(5), 1, std::sqrt(5), 1});
    expect_near(identity_3(), {1, 0, 0, 0, 1, 0, 0, 0, 1});
}

TEST(VectorGeometry, ProjectsOnPlanes) {
    double p[3] = {5, 6, 7};
    const double n[3] = {0, 0, 2};
    project_on_plane(p, n, 6);
    expect_near(p, {5, 6, 3});
    project_on_plane(p, zero, 6);  // no plane: nothing moves
    expect_near(p, {5, 6, 3});
}

TEST(VectorGeometry, Angles) {
    const struct {
        const double* a;
        const double* b;
        double angle;
    } rows[] = {{ex, ey, pi / 2}, {ex, ex, 0}, {ex, minus_x, pi}, {ex, xy, pi / 4}};
    for (const auto& row : rows) EXPECT_NEAR(angle_between(row.a, row.b), row.angle, 1e-12);
    for (int i = 1; i < 100; ++i) {  // cosines that rounding may put beyond 1
        const double v[3] = {0.1 * i, 0.7 / i, 0.3};
        const double w[3] = {-3 * v[0], -3 * v[1], -3 * v[2]};
        EXPECT_EQ(angle_between(v, v), 0.0);
        EXPECT_NEAR(angle_between(v, w), pi, 1e-7);
    }
    EXPECT_NEAR(cos_between(ex, xy), root_half, 1e-15);
    EXPECT_NEAR(angle_at(ex, zero, xy), pi / 2, 1e-12);
    EXPECT_EQ(polar_angle(ez), 0.0);
    EXPECT_NEAR(polar_angle(xy), pi / 2, 1e-12);
    EXPECT_EQ(signed_angle(ex, ey, ez), angle_between(ex, ey));
    EXPECT_EQ(signed_angle(ey, ex, ez), -angle_between(ex, ey));
    EXPECT_EQ(signed_angle_of_three(ex, ez, xy), -angle_between(ex, ez));
    const double near_x[3] = {3, 0, 1};
    EXPECT_EQ(signed_angle_of_three(ex, ez, near_x), angle_between(ex, ez));
}

TEST(VectorGeometry, ShortVectorsHaveNoAngle) {
    const double tiny[3] = {9e-8, 0, 0};
    const double long_one[3] = {100, 0, 0};
    EXPECT_THROW(angle_between(zero, ex), xyz_bad_angle_3);
    EXPECT_THROW(cos_between(ex, tiny), xyz_bad_angle_3);
    EXPECT_EQ(cos_between(long_one, tiny), 1.0);  // the product of the lengths counts
    EXPECT_THROW(angle_at(ex, ex, ey), xyz_bad_angle_3);
    EXPECT_THROW(polar_angle(tiny), xyz_bad_angle_3);
    EXPECT_THROW(signed_angle(zero, ex, ez), xyz_bad_angle_3);
    EXPECT_THROW(signed_angle_of_three(ex, zero, ez), xyz_bad_angle_3);
}

TEST(VectorGeometry, Signs) {
    const struct {
        double x;
        int sign;
    } rows[] = {{1e-12, 0}, {-1e-12, 0}, {1e-11, 0}, {2e-11, 1}, {-2e-11, -1}, {nan_value, 0}};
    for (const auto& row : rows) EXPECT_EQ(sign_of(row.x), row.sign) << row.x;
    const double almost_x[3] = {7, 1e-12, -1e-12};
    EXPECT_EQ(same_signs(ex, almost_x), 1);
    EXPECT_EQ(same_signs(ex, xy), 0);
    EXPECT_EQ(same_signs(ex, minus_x), 0);
}

TEST(VectorGeometry, SphericalCoordinates) {
    const struct {
        double v[3];
        double phi;
        double theta;
        double r;
    } rows[] = {{{0, 0, 1}, 0, 0, 1},
                {{0, 0, -2}, 0, pi, 2},
                {{0, 3, 0}, pi / 2, pi / 2, 3},
                {{1e-17, -3, 0}, -pi / 2, pi / 2, 3},
                {{-1, 0, 0}, pi, pi / 2, 1},
                {{1, 1, std::sqrt(2)}, pi / 4, pi / 4, 2},
                {{0, 0, 0}, 0, 0, 0}};
    for (const auto& row : rows) {
        double phi = 0.0;
        double theta = 0.0;
        double r = 0.0;
        to_spherical(row.v, phi, theta, r);
        EXPECT_NEAR(phi, row.phi, 1e-12);
        EXPECT_NEAR(theta, row.theta, 1e-12);
        EXPECT_NEAR(r, row.r, 1e-12);
    }
}

TEST(VectorGeometry, AtomsOfAChain) {
    const double b[3] = {1, 1, 1};
    const double a[3] = {1, 3, 1};
    const double c[3] = {2, 1, 1};
    const struct {
        double d[3];
        double torsion;
    } rows[] = {{{2, 5, 1}, 0},
                {{2, 0, 1}, 180},
                {{2, 1, 4}, 90},
                {{2, 1, -4}, -90},
                {{2, 0, 1 - 1e-7}, 180}};
    for (const auto& row : rows) {
        double dist = 0.0;
        double angle = 0.0;
        double torsion = 0.0;
        EXPECT_EQ(distance_angle_torsion(a, b, c, row.d, dist, angle, torsion), 1);
        EXPECT_EQ(dist, 2.0);
        EXPECT_NEAR(angle, 90.0, 1e-12);
        EXPECT_NEAR(torsion, row.torsion, 1e-4);
    }
    double dist = 0.0;
    double angle = 0.0;
    double torsion = 0.0;
    EXPECT_EQ(distance_angle(a, b, c, dist, angle), 1);
    EXPECT_EQ(dist, 2.0);
    EXPECT_NEAR(angle, 90.0, 1e-12);
    EXPECT_EQ(distance_angle(b, b, c, dist, angle), 0);
    EXPECT_EQ(dist, -999.0);
    EXPECT_EQ(angle, -999.0);
    const double straight[3] = {3, 1, 1};
    EXPECT_EQ(distance_angle_torsion(a, b, c, straight, dist, angle, torsion), 0);
    for (const double value : {dist, angle, torsion}) EXPECT_EQ(value, -999.0);
}

TEST(VectorGeometry, RotationMatrices) {
    double m[9];
    axis_rotation_matrix(ez, m, pi / 2);
    expect_near(m, {0, -1, 0, 1, 0, 0, 0, 0, 1});
    const double diagonal[3] = {2, 2, 2};
    axis_rotation_matrix(diagonal, m, 2 * pi / 3);
    expect_near(m, {0, 0, 1, 1, 0, 0, 0, 1, 0});
    const double a[3] = {1, 2, -3};
    const double b[3] = {-2, 0.5, 4};
    EXPECT_EQ(get_rotation_matrix(a, m, b), 1);
    std::vector<double> image = turned(m, a);
    EXPECT_NEAR(angle_between(image.data(), b), 0.0, 1e-7);
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) EXPECT_NEAR(dot_product(m + 3 * i, m + 3 * j), i == j, 1e-12);
    }
    EXPECT_EQ(get_rotation_matrix(zero, m, b), 0);
    const char* const colinear = " Colinear in get_rotation_matrix";
    EXPECT_FAILURE(get_rotation_matrix(ex, m, ex), colinear);
    EXPECT_FAILURE(get_rotation_matrix(ex, m, minus_x), colinear);
    EXPECT_FAILURE(axis_rotation_matrix(zero, m, 1.0), colinear);
    const double no_numbers[3] = {nan_value, 0, 0};
    EXPECT_FAILURE(get_rotation_matrix(ex, m, no_numbers), colinear);
}

TEST(VectorGeometry, Planes) {
    const double points[3][3] = {{0, 0, -2}, {1, 0, -2}, {0, 5, -2}};
    for (int first = 0; first < 3; ++first) {
        double u[3];
        double v[3];
        double normal[3];
        double d = 0.0;
        plane_through(points[first], points[(first + 1) % 3], points[(first + 2) % 3], u, v, normal,
                      d);
        expect_near(normal, {0, 0, -1});
        EXPECT_EQ(d, 2.0);
        EXPECT_EQ(u[2], 0.0);
    }
    double point[3] = {1, 2, 3};
    for (const double* const normal : {ex, ey, ez, xy, minus_x}) {
        double frame[9];
        double origin[3];
        plane_frame(frame, origin, normal, 4.0, point);
        EXPECT_NEAR(dot_product(origin, normal), 4.0, 1e-12);
        for (int i = 0; i < 3; ++i) {
            for (int j = 0; j < 3; ++j) {
                EXPECT_NEAR(dot_product(frame + 3 * i, frame + 3 * j), i == j, 1e-12);
            }
        }
        double third[3];
        cross_product(frame, frame + 3, third);
        expect_near(frame + 6, {third[0], third[1], third[2]});
    }
    double frame[9];
    plane_frame(frame, point, ex, 4.0, point);  // in place
    expect_near(point, {4, 2, 3});
    for (const double* bad : {zero, &inf, &nan_value}) {
        const double normal[3] = {bad[0], 0, 0};
        plane_frame(frame, point, normal, inf, ex);
        EXPECT_TRUE(std::isnan(frame[0]) || std::isinf(frame[0]));
    }
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
