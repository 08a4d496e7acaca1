#pragma once

#include "foundation/string_3.h"
#include "symmetry/xyz_op_3.h"
#include "textin/sstring_in.h"

// How symmetry takes one reflection to another.
//
// The operators are of type xyz_op_3 without translation: (R h)i is the new index i. Where indices
// are 0 fewer operators make a difference, so the reflections are divided by their zeros into seven
// classes, numbered from 0: hkl, hk0, h0l, 0kl, h00, 0k0, 00l. A group has a list of operators for
// each class.

inline constexpr int n_hkl_classes_3 = 7;

using class_lists_3 = list_0_3<xyz_list_3>;

/// What the classes are called in files, by number.
const string_list_3& hkl_class_names_3();

/// The number of a reflection's class. That of 0, 0, 0 is 0, though it is no hkl.
int hkl_class_of_3(int h, int k, int l);

/// Reads the blocks of the classes, one after the other, from a .sg file. Fails when one of the
/// seven is missing or malformed.
void load_hkl_classes_3(sstring_in& in, class_lists_3& classes);

/// Doubles each list: its n operators are followed by their negatives, in the same order.
void add_friedel_mates_3(class_lists_3& classes);
