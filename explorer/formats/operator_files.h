#pragma once

#include <string>
#include <string_view>

#include "group/space_group.h"

namespace lomar {

// The operators of a group in the forms that other programs read.

/// One operator a line, all of the cell: `-x,y+1/2,-z+1/2`.
std::string xyz_lines(const space_group& group);

/// A block of a CIF: number, symbols and all operators of the cell, under the names with
/// underscores, since common readers find no group under the dotted ones.
std::string cif_block(const space_group& group);
/// A value as CIF 1.1 wants it: as it is, in quotes, or as a text field of its own lines.
std::string cif_value(std::string_view text);
/// The same in apostrophes wherever it can be, as names of groups are usually written.
std::string cif_name(std::string_view text);

/// The LATT and SYMM cards of SHELX. LATT is positive only if the inversion is at the origin, and
/// R is obverse on hexagonal axes; a centring that has no number is written out in SYMM.
std::string shelx_cards(const space_group& group);

/// A table of the operators: number, xyz, kind, sense, axis, intrinsic, location, seitz.
std::string csv_operators(const space_group& group);

/// The .sg file of lomar6, byte by byte. Throws std::runtime_error for axes that lomar6 has no name
/// for.
std::string sg_file(const space_group& group);

}  // namespace lomar
