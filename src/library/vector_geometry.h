#pragma once

#include "textin/sstring_in.h"
#include "textout/stream_out.h"

// Points and directions in Cartesian space. A vector is an array of three doubles, a matrix one of
// nine by rows. Angles are in radians unless the text says degrees. An output may be the same array
// as an input. Components that aren't finite give results that aren't.

/// Thrown by value when an angle is asked of a vector that is too short to have a direction.
class xyz_bad_angle_3 {};

/// What stands in a result that couldn't be computed.
inline constexpr double no_value_3 = -999.0;

/// The unit matrix, filled at first use.
const double* identity_3();

// Basic operations

/// The length of b - a.
double distance(const double a[3], const double b[3]);
double distance_squared(const double a[3], const double b[3]);
double length_squared(const double a[3]);
/// out = a - b
void difference(const double a[3], const double b[3], double out[3]);
double dot_product(const double a[3], const double b[3]);
void cross_product(const double a[3], const double b[3], double out[3]);
/// Divides by the length, in place. A zero vector becomes non-numbers.
void normalise(double a[3]);
/// Moves the point p along n onto the plane of all x whose dot product with n is d.
void project_on_plane(double p[3], const double n[3], double d);
/// Three numbers, as sstring_in::read_double reads them.
void read_vector(double v[3], sstring_in& in);
/// With a blank between the numbers; as they are in a binary stream.
void write_vector(const double v[3], stream_out& stream);

// Angles. These throw xyz_bad_angle_3.

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

/// The lengths of a + b + c, a + b - c, a - b + c and a - b - c: the diagonals of a cell.
void diagonals(const double a[3], const double b[3], const double c[3], double out[4]);

// Atoms, as points. A result that can't be computed stays no_value_3.

/// The angle at b between a and c, in degrees, and the distance from a to b. Answers 1, or 0 if the
/// angle can't be computed.
int distance_angle(const double atom_a[3], const double atom_b[3], const double atom_c[3],
                   double& dist, double& angle);
/// The torsion angle of a-b-c-d in degrees, above -180 and at most 180, the angle at b between a
/// and c, and the distance from a to b. Answers 1, or 0 if an angle can't be computed; what was
/// computed before it stays, in the order torsion, angle, distance.
int distance_angle_torsion(const double atom_a[3], const double atom_b[3], const double atom_c[3],
                           const double atom_d[3], double& dist, double& angle, double& torsion);

// Rotation matrices

/// The right-handed rotation about an axis. Fails with " Colinear in get_rotation_matrix" when the
/// axis is too short.
void axis_rotation_matrix(const double axis[3], double matrix[9], double angle);
/// The rotation that turns the direction a into the direction b. Answers 1, or 0 if one of them is
/// too short. Fails with " Colinear in get_rotation_matrix" when they are parallel or opposite.
int get_rotation_matrix(const double a[3], double matrix[9], const double b[3]);

// Planes

/// The plane through three points: u = a - p and v = b - p lie in it, `normal` is its unit normal,
/// away from the origin, and d its distance from the origin, at least 0. Points on one line give
/// non-numbers.
void plane_through(const double p[3], const double a[3], const double b[3], double u[3],
                   double v[3], double normal[3], double& d);
/// An orthonormal frame of three vectors in a row: the unit normal of a plane and two vectors in
/// the plane. `origin` becomes the projection of `point` on the plane of `normal` and `d`.
void plane_frame(double frame[9], double origin[3], const double normal[3], double d,
                 const double point[3]);
