#include "library/numeric/vector_geometry.h"

#include <algorithm>
#include <cmath>

#include "foundation/except_3.h"

namespace {

constexpr double degrees = 57.29577951308238;
constexpr double half_pi = 1.570796326794895;
constexpr double shortest_squared = 1e-14;

// A vector as a value, so that outputs may overlap inputs.
struct vector_value {
    double v[3];
    operator const double*() const { return v; }
    operator double*() { return v; }
};

vector_value minus(const double a[3], const double b[3]) {
    return {{a[0] - b[0], a[1] - b[1], a[2] - b[2]}};
}

vector_value cross(const double a[3], const double b[3]) {
    return {{a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]}};
}

vector_value unit_vector(const double a[3]) {
    vector_value result = {{a[0], a[1], a[2]}};
    normalise(result.v);
    return result;
}

void store(const double from[3], double to[3]) { std::copy(from, from + 3, to); }

double limited_acos(double cosine) {
    if (cosine > 1.0) return 0.0;
    return std::acos(cosine < -1.0 ? -1.0 : cosine);
}

}  // namespace

const double* identity_3() {
    static const double matrix[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};
    return matrix;
}

double distance(const double a[3], const double b[3]) { return std::sqrt(distance_squared(a, b)); }

double distance_squared(const double a[3], const double b[3]) {
    return length_squared(minus(b, a));
}

double length_squared(const double a[3]) { return dot_product(a, a); }

void difference(const double a[3], const double b[3], double out[3]) { store(minus(a, b), out); }

double dot_product(const double a[3], const double b[3]) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

void cross_product(const double a[3], const double b[3], double out[3]) { store(cross(a, b), out); }

void normalise(double a[3]) {
    const double length = std::sqrt(length_squared(a));
    for (int i = 0; i < 3; ++i) a[i] /= length;
}

void project_on_plane(double p[3], const double n[3], double d) {
    const double step = (d - dot_product(p, n)) / std::max(length_squared(n), 1e-15);
    const vector_value way = {{n[0] * step, n[1] * step, n[2] * step}};
    for (int i = 0; i < 3; ++i) p[i] += way.v[i];
}

void read_vector(double v[3], sstring_in& in) {
    for (int i = 0; i < 3; ++i) v[i] = in.read_double();
}

void write_vector(const double v[3], stream_out& stream) {
    const bool binary = stream.is_binary() != 0;
    for (int i = 0; i < 3; ++i) {
        if (i > 0 && !binary) stream << ' ';
        stream << v[i];
    }
}

double cos_between(const double a[3], const double b[3]) {
    const double aa = length_squared(a);
    const double bb = length_squared(b);
    const double squared = aa * bb;
    if (squared < shortest_squared) throw xyz_bad_angle_3();
    // The root of the product is exact for a vector with itself, but it may be too large.
    const double lengths = std::isinf(squared) ? std::sqrt(aa) * std::sqrt(bb) : std::sqrt(squared);
    return dot_product(a, b) / lengths;
}

double angle_between(const double a[3], const double b[3]) {
    return limited_acos(cos_between(a, b));
}

double angle_at(const double p[3], const double a[3], const double b[3]) {
    return angle_between(minus(a, p), minus(b, p));
}

double polar_angle(const double v[3]) {
    const double squared = length_squared(v);
    if (squared < shortest_squared) throw xyz_bad_angle_3();
    return limited_acos(v[2] / std::sqrt(squared));
}

int sign_of(double x) {
    constexpr double zero = 1e-11;
    return x < -zero ? -1 : x > zero ? 1 : 0;
}

int same_signs(const double a[3], const double b[3]) {
    for (int i = 0; i < 3; ++i) {
        if (sign_of(a[i]) != sign_of(b[i])) return 0;
    }
    return 1;
}

double signed_angle(const double a[3], const double b[3], const double reference[3]) {
    const double angle = angle_between(a, b);
    return same_signs(reference, cross(a, b)) != 0 ? angle : -angle;
}

double signed_angle_of_three(const double a[3], const double b[3], const double c[3]) {
    const double angle = angle_between(a, b);
    return same_signs(cross(b, c), cross(b, a)) != 0 ? angle : -angle;
}

void direction_angles(const double v[3], double& phi, double& theta) {
    const double x = v[0];
    const double y = v[1];
    theta = std::atan2(std::sqrt(x * x + y * y), v[2]);
    if (std::abs(x) < 1e-16) {
        phi = y > 0.0 ? half_pi : y < 0.0 ? -half_pi : 0.0;
    } else {
        phi = std::atan2(y, x);
    }
}

void to_spherical(const double v[3], double& phi, double& theta, double& r) {
    direction_angles(v, phi, theta);
    r = std::sqrt(length_squared(v));
}

void diagonals(const double a[3], const double b[3], const double c[3], double out[4]) {
    double lengths[4];
    for (int k = 0; k < 4; ++k) {
        const double b_sign = k < 2 ? 1.0 : -1.0;
        const double c_sign = k % 2 == 0 ? 1.0 : -1.0;
        double sum[3];
        for (int i = 0; i < 3; ++i) sum[i] = a[i] + b_sign * b[i] + c_sign * c[i];
        lengths[k] = std::sqrt(length_squared(sum));
    }
    std::copy(lengths, lengths + 4, out);
}

int distance_angle(const double atom_a[3], const double atom_b[3], const double atom_c[3],
                   double& dist, double& angle) {
    dist = no_value_3;
    angle = no_value_3;
    try {
        angle = angle_at(atom_b, atom_a, atom_c) * degrees;
    } catch (const xyz_bad_angle_3&) {
        return 0;
    }
    dist = distance(atom_a, atom_b);
    return 1;
}

int distance_angle_torsion(const double atom_a[3], const double atom_b[3], const double atom_c[3],
                           const double atom_d[3], double& dist, double& angle, double& torsion) {
    dist = no_value_3;
    angle = no_value_3;
    torsion = no_value_3;
    const vector_value a = minus(atom_a, atom_b);
    const vector_value b = minus(atom_c, atom_b);
    const vector_value c = minus(atom_d, atom_b);
    try {
        torsion = signed_angle(cross(b, a), cross(b, c), b) * degrees;
        if (std::abs(torsion + 180.0) < 0.0001) torsion = 180.0;
        angle = angle_between(a, b) * degrees;
    } catch (const xyz_bad_angle_3&) {
        return 0;
    }
    dist = distance(atom_a, atom_b);
    return 1;
}

void axis_rotation_matrix(const double axis[3], double matrix[9], double angle) {
    if (!(length_squared(axis) > 1e-11)) fail_with("Colinear in get_rotation_matrix");
    const auto [x, y, z] = unit_vector(axis).v;
    const double s = std::sin(angle);
    const double c = std::cos(angle);
    const double t = 1.0 - c;
    const double rows[9] = {t * x * x + c,     t * x * y - s * z, t * x * z + s * y,
                            t * x * y + s * z, t * y * y + c,     t * y * z - s * x,
                            t * x * z - s * y, t * y * z + s * x, t * z * z + c};
    std::copy(rows, rows + 9, matrix);
}

int get_rotation_matrix(const double a[3], double matrix[9], const double b[3]) {
    double angle = 0.0;
    try {
        angle = angle_between(a, b);
    } catch (const xyz_bad_angle_3&) {
        return 0;
    }
    axis_rotation_matrix(cross(a, b), matrix, angle);
    return 1;
}

void plane_through(const double p[3], const double a[3], const double b[3], double u[3],
                   double v[3], double normal[3], double& d) {
    const vector_value in_plane_u = minus(a, p);
    const vector_value in_plane_v = minus(b, p);
    vector_value n = unit_vector(cross(in_plane_u, in_plane_v));
    d = dot_product(n, p);
    if (d < 0.0) {
        for (double& component : n.v) component = -component;
        d = -d;
    }
    store(in_plane_u, u);
    store(in_plane_v, v);
    store(n, normal);
}

void plane_frame(double frame[9], double origin[3], const double normal[3], double d,
                 const double point[3]) {
    const vector_value n = {{normal[0], normal[1], normal[2]}};
    vector_value foot = {{point[0], point[1], point[2]}};
    project_on_plane(foot, n, d);
    vector_value w = {};
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) w.v[j] = foot.v[j] + n.v[j];
        w.v[i] += 10.0;
        project_on_plane(w, n, d);
        w = minus(w, foot);
        if (length_squared(w) > 1.0) break;
    }
    store(foot, origin);
    store(unit_vector(n), frame);
    store(unit_vector(w), frame + 3);
    store(unit_vector(cross(n, w)), frame + 6);
}
