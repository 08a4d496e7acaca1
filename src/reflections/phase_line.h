#pragma once

#include "foundation/sorted.h"

/// Finds a line a + b x that is c at d. Its a must be a multiple of pi/n (within 1e-8), its b one
/// of 1/n, 2/n, ... 1, or minus that. Fails with " Error in get_a_b_for_phi_3" for want of such a
/// line, or when n isn't positive.
void get_a_b_for_phi_3(double& a, double& b, double d, double c, int n);

/// The value at x of the line through table[i] and table[j], less whole turns.
double phi_at_3(const double_list_3& table, double x, int i, int j, int n);
