// special_positions SYMBOL: the special positions of a group on a grid of twelfths; then the sets
// of operators that send the first of them, the origin, to the same place.

#include "library/groups/special_positions.h"

#include <cstdio>

#include "foundation/except_3.h"
#include "library/groups/space_group_3.h"
#include "textout/console.h"

int main(int argc, char** argv) {
    const auto failure = failure_of([&] {
        const space_group_3 group = space_group_of(argc > 1 ? argv[1] : "");
        stream_out& console = console_stream();
        write_special_positions(group.ops, console);
        partition_3 partition;
        refine_partition_3(group.ops, partition, 0.0, 0.0, 0.0);
        for (const int_list_3& set : partition) {
            console << "\nTogether:";
            for (const int i : set) write_xyz(console, group.ops[i]);
        }
        console << '\n';
    });
    if (failure == nullptr) return 0;
    std::fprintf(stderr, "Failed:%s\n", failure->text());
    return 1;
}
