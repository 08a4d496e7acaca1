// geometry: distance, angle and torsion angle of a chain of four atoms, in Cartesian coordinates.

#include <cstdio>

#include "library/numeric/vector_geometry.h"

int main() {
    const double a[3] = {1.0, 1.0, 0.0};
    const double b[3] = {0.0, 1.0, 0.0};
    const double c[3] = {0.0, 0.0, 0.0};
    const double d[3] = {0.0, 0.0, 2.0};
    double distance_ab = 0.0;
    double angle = 0.0;
    double torsion = 0.0;
    if (distance_angle_torsion(a, b, c, d, distance_ab, angle, torsion) == 0) return 1;
    std::printf("distance %.3f angle %.1f torsion %.1f\n", distance_ab, angle, torsion);
}
