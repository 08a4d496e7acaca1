#include "sgfile/sg_writer.h"

#include "foundation/sorted.h"
#include "symmetry/centring_table.h"
#include "symmetry/sg_decoder_3.h"

void write_sg_banner(stream_out& stream) { stream << "' Space-group generator\n\n"; }

namespace {

void write_xyzs_head(stream_out& stream, const xyz_list_3& ops) {
    stream << "\nxyzs\n{";
    for (const xyz_op_3& op : ops) write_xyz(stream, op);
}

void write_centring_head(stream_out& stream, const triple_3& vector) {
    stream << "\n\t' +(";
    for (int i = 0; i < 3; ++i) {
        if (i > 0) stream << ", ";
        stream << fraction_text(vector[i], false);
    }
    stream << ") -------------------------";
}

}  // namespace

void write_plain_xyzs(stream_out& stream, const xyz_list_3& ops) {
    write_xyzs_head(stream, ops);
    stream << "\n}";
}

void sg_decoder_3::write_xyzs(stream_out& stream) {
    write_xyzs_head(stream, ops);
    const int uncentred = ops.n;
    const int place = text_index(computer_symbol.data[0], lattice_letters_3);
    const int null_row = centring_index_3(place, 0);
    for (int row = null_row + 1; row <= centring_index_3(place, 1); ++row) {
        // Copies made by one vector differ from each other, so that the list before will do.
        xyz_list_3 known(ops);
        sort_xyzs_3(known);
        write_centring_head(stream, centring_vector_3(row));
        for (int i = 0; i < uncentred; ++i) {
            xyz_op_3 copy = ops[i];
            add_translation(copy, centring_vector_3(row));
            normalise(copy);
            if (bsearch(known, copy) != not_found) continue;
            write_xyz(stream, copy);
            ops.add(copy);
        }
    }
    stream << "\n} " << ops.n;
    sort_xyzs_3(ops);
}

void sg_decoder_3::write_equivalence_of_xyz(stream_out& stream) {
    constexpr triple_3 permutations[] = {{{0, 1, 2}}, {{0, 2, 1}}, {{1, 0, 2}},
                                         {{1, 2, 0}}, {{2, 0, 1}}, {{2, 1, 0}}};
    stream << "\nequivalence_of_xyz\n{\n";
    sort_xyzs_3(ops);
    xyz_list_3 copy;
    for (const triple_3& p : permutations) {
        copy = ops;
        for (int i = 0; i < ops.n; ++i) permute_columns(copy[i], ops[i], p);
        sort_xyzs_3(copy);
        if (!equal_xyzs_3(ops, copy)) continue;
        stream << '\t' << "xyz"[p[0]] << "xyz"[p[1]] << "xyz"[p[2]] << '\n';
        xyz_permutations.add(p);
    }
    stream << '}';
}
