#pragma once

#include "symmetry/xyz_op_3.h"
#include "textout/stream_out.h"

// The sections of a .sg file that aren't members of sg_decoder_3. A section begins with a line
// feed and doesn't end with one.

/// The comment at the head of the file.
void write_sg_banner(stream_out& stream);

/// The xyzs section of the operators as they stand, without centring and without a count.
void write_plain_xyzs(stream_out& stream, const xyz_list_3& ops);
