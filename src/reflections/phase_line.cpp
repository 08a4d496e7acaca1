#include "reflections/phase_line.h"

#include <cmath>

#include "foundation/except_3.h"

namespace {

constexpr double pi = 3.14159265358979;
constexpr double full_turn = 6.28318530717958;

bool is_multiple(double a, double unit) {
    constexpr double tolerance = 1e-8;
    const double rest = std::abs(std::fmod(a, unit));
    return rest < tolerance || std::abs(rest - unit) < tolerance;
}

}  // namespace

void get_a_b_for_phi_3(double& a, double& b, double d, double c, int n) {
    const double step = d / n;
    for (int m = n; m >= 1; --m) {
        for (const int sign : {1, -1}) {
            a = c + sign * m * step;
            if (!is_multiple(a, pi / n)) continue;
            b = -sign * static_cast<double>(m) / n;
            return;
        }
    }
    fail_with("Error in get_a_b_for_phi_3");
}

double phi_at_3(const double_list_3& table, double x, int i, int j, int n) {
    double a = 0.0;
    double b = 0.0;
    get_a_b_for_phi_3(a, b, table[i], table[j], n);
    return std::fmod(b * x + a, full_turn);
}
