#pragma once

#include <span>
#include <string_view>

#include "group/symop.h"

namespace lomar {

/// What the symmetry directions leave of a choice of axes.
enum class axes_family { triclinic, monoclinic, orthorhombic, tetragonal, hexagonal, cubic };

/// One of the 32 types of point groups.
struct point_group_type {
    std::string_view name;  ///< as the column point_group of the settings: `-42m`, never `-4m2`
    axes_family family;     ///< of the conventional axes, hexagonal for trigonal groups too
};

/// The order of a rotation, negative for one with an inversion (-2 is a mirror), from determinant
/// and trace: International Tables for Crystallography A (2016), table 1.2.2.1. 0 for any other
/// matrix; an order is right only if rotation_order is not 0.
int rotation_kind(const int_matrix& rot);
/// W, or -W if W inverts.
int_matrix proper_part(const int_matrix& rot);

/// The type of the group that the rotations make, which must be complete and each in the list once.
/// Throws std::runtime_error when it is none of the 32.
point_group_type point_group_of(std::span<const symop> operators);

}  // namespace lomar
