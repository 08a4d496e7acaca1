#pragma once

#include "textin/sstring_in.h"
#include "textout/stream_out.h"

// Geometry with double v[3], orthogonal coordinates of equal units, and double matrix[9], one row
// after the other. Where nothing is said about an angle it is in radians. An output may be the
// same array as an input. Components that aren't finite give results that aren't.

/// A vector of (nearly) no length has no direction and so no angle. Catch this by reference.
class xyz_bad_angle_3 {};

/// The value of a result that couldn't be computed.
inline constexpr double no_value_3 = -999.0;

/// The matrix that changes nothing.
const double* identity_3();

// Basic operations

/// How far apart two points are.
double distance(const double a[3], const double b[3]);
double distance_squared(const double a[3], const double b[3]);
double length_squared(const double a[3]);
/// out = a - b
void difference(const double a[3], const double b[3], double out[3]);
double dot_product(const double a[3], const double b[3]);
void cross_product(const double a[3], const double b[3], double out[3]);
/// Makes a unit vector of a. All components become NaN if they are 0.
void normalise(double a[3]);
/// Replaces p by the nearest point of the plane n x = d, where n may have any length.
void project_on_plane(double p[3], const double n[3], double d);
/// Three numbers, as sstring_in::read_double reads them.
void read_vector(double v[3], sstring_in& in);
/// The counterpart: blanks between the numbers, but for a binary stream, which gets bytes.
void write_vector(const double v[3], stream_out& stream);

// Angles. Any of them may throw an xyz_bad_angle_3.

double cos_between(const double a[3], const double b[3]);
/// 0 to pi.
double angle_between(const double a[3], const double b[3]);
/// The angle at the point p between the points a and b.
double angle_at(const double p[3], const double a[3], const double b[3]);
/// The angle from the z axis.
double polar_angle(const double v[3]);
/// -1, 0 or 1; 0 for anything of at most 1e-11 in size.
int sign_of(double x);
/// 1 if all three pairs of components have the same sign_of, else 0.
int same_signs(const double a[3], const double b[3]);
/// angle_between(a, b), negated unless the cross product of a and b has the signs of `reference`.
double signed_angle(const double a[3], const double b[3], const double reference[3]);
/// angle_between(a, b), negated unless a lies on the side of b that c lies on: the cross products
/// of b with both have the same signs.
double signed_angle_of_three(const double a[3], const double b[3], const double c[3]);

// Spherical coordinates. They have a value for every vector.

/// `phi` is the angle about z from x, `theta` the one from z.
void direction_angles(const double v[3], double& phi, double& theta);
/// The same, and the length.
void to_spherical(const double v[3], double& phi, double& theta, double& r);

/// How long the four body diagonals of a cell are. All contain +a; the signs of b and c are ++, +-,
/// -+ and --.
void diagonals(const double a[3], const double b[3], const double c[3], double out[4]);

// Atoms, as points. A result that can't be computed stays no_value_3.

/// The bond a-b and the bond angle a-b-c in degrees. 1, or 0 if b is (nearly) where a
/// or c is.
int distance_angle(const double atom_a[3], const double atom_b[3], const double atom_c[3],
                   double& dist, double& angle);
/// As distance_angle, and the torsion angle a-b-c-d in degrees, above -180 and at most 180. The
/// torsion is done first, then the angle, then the distance; a 0 means that one of the angles has
/// no value, and neither have the results after it.
int distance_angle_torsion(const double atom_a[3], const double atom_b[3], const double atom_c[3],
                           const double atom_d[3], double& dist, double& angle, double& torsion);

// Rotation matrices

/// Turns by `angle` about `axis`: from x to y if the axis is z. Fails with
/// " Colinear in get_rotation_matrix" when the axis is (nearly) 0.
void axis_rotation_matrix(const double axis[3], double matrix[9], double angle);
/// Turns the vector a, about the normal of a and b, until it points as b does. 1, or 0 without a
/// matrix if a or b is (nearly) 0. Fails with " Colinear in get_rotation_matrix" when they are
/// parallel or opposite.
int get_rotation_matrix(const double a[3], double matrix[9], const double b[3]);

// Planes

/// The plane through three points: u = a - p and v = b - p lie in it, `normal` is its unit normal,
/// away from the origin, and d its distance from the origin, at least 0. Points on one line give
/// non-numbers.
void plane_through(const double p[3], const double a[3], const double b[3], double u[3],
                   double v[3], double normal[3], double& d);
/// Coordinates for a plane, which `normal` and `d` define as in project_on_plane. `frame` becomes
/// three unit vectors at right angles, the first along `normal`; `origin` is where `point` has its
/// projection.
void plane_frame(double frame[9], double origin[3], const double normal[3], double d,
                 const double point[3]);
