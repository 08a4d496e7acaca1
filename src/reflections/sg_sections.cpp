#include "reflections/sg_sections.h"

#include "reflections/similar_hkls.h"
#include "sgfile/sg_writer.h"

void write_sg_sections(sg_decoder_3& decoder, stream_out& stream) {
    move_identity_to_front(decoder.ops);
    decoder.write_xyzs(stream);
    add_similar_hkls_3(decoder.ops, stream);
    decoder.write_equivalence_of_xyz(stream);
}
