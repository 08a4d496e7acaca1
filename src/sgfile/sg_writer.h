#pragma once

#include "symmetry/xyz_op_3.h"
#include "textout/stream_out.h"

// Those parts of a .sg file that sg_decoder_3 doesn't write. A section leaves its last line open;
// the line feed comes with the next one.

/// What the file begins with: a comment about its origin.
void write_sg_banner(stream_out& stream);

/// Changes the places of the identity and the first operator, as the xyzs section has them.
void move_identity_to_front(xyz_list_3& ops);

/// The xyzs section up to the last of these operators; more may follow.
void write_xyzs_head(stream_out& stream, const xyz_list_3& ops);

/// The xyzs section of the operators in this order, without centring and without a count.
void write_plain_xyzs(stream_out& stream, const xyz_list_3& ops);
