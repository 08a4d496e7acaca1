#include "sgfile/sg_writer.h"

void write_sg_banner(stream_out& stream) { stream << "' Space-group generator\n\n"; }

void write_xyzs_head(stream_out& stream, const xyz_list_3& ops) {
    stream << "\nxyzs\n{";
    for (const xyz_op_3& op : ops) write_xyz(stream, op);
}

void write_plain_xyzs(stream_out& stream, const xyz_list_3& ops) {
    write_xyzs_head(stream, ops);
    stream << "\n}";
}
