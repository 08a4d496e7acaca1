// operators SYMBOL: the number of a space group and its operators.

#include <cstdio>

#include "foundation/except_3.h"
#include "library/groups/space_group_3.h"
#include "textout/console.h"

int main(int argc, char** argv) {
    const auto failure = failure_of([&] {
        const space_group_3 group = space_group_of(argc > 1 ? argv[1] : "");
        stream_out& console = console_stream();
        console << group.entry.symbol << " has the number " << group.entry.number << " and "
                << group.ops.n << " operators:";
        for (const xyz_op_3& op : group.ops) write_xyz(console, op);
        console << '\n';
    });
    if (failure == nullptr) return 0;
    std::fprintf(stderr, "Failed:%s\n", failure->text());
    return 1;
}
