#pragma once

#include "foundation/string_3.h"
#include "symmetry/xyz_op_3.h"
#include "textin/sstring_in.h"

// Reflection operators and the seven classes of reflections.
//
// A reflection operator is an xyz_op_3 whose rows give the new h, k and l in terms of the old; its
// translation is 0. A class is a pattern of zero indices, in the order hkl, hk0, h0l, 0kl, h00,
// 0k0, 00l. The class lists of a group are seven lists of operators in that order.

inline constexpr int n_hkl_classes_3 = 7;

using class_lists_3 = list_0_3<xyz_list_3>;

/// The names of the seven classes.
const string_list_3& hkl_class_names_3();

/// The class of a reflection; 0, 0, 0 falls to class 0.
int hkl_class_of_3(int h, int k, int l);

/// Reads the seven class blocks of a .sg file, which stand in class order behind the stream's
/// position. Fails when one is missing or malformed.
void load_hkl_classes_3(sstring_in& in, class_lists_3& classes);

/// Doubles each list: behind its n operators come their negatives, in the same order.
void add_friedel_mates_3(class_lists_3& classes);
