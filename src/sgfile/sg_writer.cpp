#include "sgfile/sg_writer.h"

#include <utility>

void write_sg_banner(stream_out& stream) { stream << "' Space-group generator\n\n"; }

void move_identity_to_front(xyz_list_3& ops) {
    for (xyz_op_3& op : ops) {
        if (!is_identity_rotation(op) || op.trans(0) != 0 || op.trans(1) != 0 || op.trans(2) != 0) {
            continue;
        }
        std::swap(ops[0], op);
        return;
    }
}

void write_xyzs_head(stream_out& stream, const xyz_list_3& ops) {
    stream << "\nxyzs\n{";
    for (const xyz_op_3& op : ops) write_xyz(stream, op);
}

void write_plain_xyzs(stream_out& stream, const xyz_list_3& ops) {
    write_xyzs_head(stream, ops);
    stream << "\n}";
}
