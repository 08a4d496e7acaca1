// operators SYMBOL: the number of a space group and its operators.

#include <cstdio>

#include "foundation/except_3.h"
#include "group_of_symbol.h"
#include "textout/console.h"

int main(int argc, char** argv) {
    try {
        sg_decoder_3 decoder;
        const sg_catalogue_entry_3 entry = group_of_symbol(argc > 1 ? argv[1] : "", decoder);
        stream_out& console = console_stream();
        console << entry.symbol << " has the number " << entry.number << " and " << decoder.ops.n
                << " operators:";
        for (const xyz_op_3& op : decoder.ops) write_xyz(console, op);
        console << '\n';
    } catch (except_3* failure) {
        std::fprintf(stderr, "Failed:%s\n", failure->text());
        delete failure;
        return 1;
    }
}
