#include "foundation/sorted.h"
#include "sgfile/sg_writer.h"
#include "symmetry/centring_table.h"
#include "symmetry/sg_decoder_3.h"

namespace {

void write_centring_head(stream_out& stream, const triple_3& vector) {
    stream << "\n\t' +(";
    for (int i = 0; i < 3; ++i) {
        if (i > 0) stream << ", ";
        stream << fraction_text(vector[i], false);
    }
    stream << ") -------------------------";
}

}  // namespace

void sg_decoder_3::write_xyzs(stream_out& stream) {
    write_xyzs_head(stream, ops);
    const int uncentred = ops.n;
    const int place = text_index(computer_symbol.data[0], lattice_letters_3);
    for (const triple_3& vector : centring_vectors_3(place)) {
        if (uncentred > 0) write_centring_head(stream, vector);
        const int first = ops.n;
        add_centring_copies(ops, uncentred, vector);
        for (int i = first; i < ops.n; ++i) write_xyz(stream, ops[i]);
    }
    stream << "\n} " << ops.n;
    sort_xyzs_3(ops);
}

void sg_decoder_3::write_equivalence_of_xyz(stream_out& stream) {
    stream << "\nequivalence_of_xyz\n{\n";
    sort_xyzs_3(ops);
    xyz_list_3 copy;
    for (const triple_3& p : axis_permutations_3) {
        copy = ops;
        for (int i = 0; i < ops.n; ++i) permute_columns(copy[i], ops[i], p);
        sort_xyzs_3(copy);
        if (!equal_xyzs_3(ops, copy)) continue;
        stream << '\t' << "xyz"[p[0]] << "xyz"[p[1]] << "xyz"[p[2]] << '\n';
        xyz_permutations.add(p);
    }
    stream << '}';
}
