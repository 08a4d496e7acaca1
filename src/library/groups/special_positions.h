#pragma once

#include "foundation/sorted.h"
#include "symmetry/sg_decoder_3.h"

/// Writes a block `special_positions`: of the points on a grid of 12 steps along each cell edge
/// those with fewer images than the list has operators, in fractions of the edges, and their number
/// after the closing brace. Of the points of an orbit the first is written. Images that lie between
/// the points of the grid count as images and are no points themselves. The list should be
/// complete, its centring included.
void write_special_positions(const xyz_list_3& ops, stream_out& stream);

/// The same for the operators of a decoder.
void write_special_positions(const sg_decoder_3& decoder, stream_out& stream);

/// Sets of operators, by their indices in a list; each ascends.
using partition_3 = list_0_3<int_list_3>;

/// Divides the sets of a partition further, so that operators stay together only if they send the
/// point (x, y, z), in fractions of the cell edges, to the same place but for lattice translations.
/// An empty partition means one set of all operators.
void refine_partition_3(const xyz_list_3& ops, partition_3& partition, double x, double y,
                        double z);
