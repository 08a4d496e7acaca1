#pragma once

#include "symmetry/sg_decoder_3.h"
#include "textout/stream_out.h"

/// Writes what follows the record in a whole .sg file: operators, similar reflections, exchanges of
/// axes. The decoder has decoded its symbol; afterwards its list holds the centred operators too.
void write_sg_sections(sg_decoder_3& decoder, stream_out& stream);
