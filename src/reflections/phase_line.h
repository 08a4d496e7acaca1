#pragma once

#include "foundation/sorted.h"

/// Finds a line b x + a through table values d and c: b is a multiple of 1/n, at most 1 in size,
/// and a = c - b d a multiple of pi/n, within 1e-8. Fails with " Error in get_a_b_for_phi_3" when
/// there is none, or when n isn't positive.
void get_a_b_for_phi_3(double& a, double& b, double d, double c, int n);

/// The value at x of the line through table[i] and table[j], less whole turns.
double phi_at_3(const double_list_3& table, double x, int i, int j, int n);
