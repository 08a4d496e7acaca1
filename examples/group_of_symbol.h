#pragma once

#include "catalogue/sg_catalogue_entry_3.h"
#include "symmetry/sg_decoder_3.h"

/// Finds a group by its symbol and works out its operators, centring included. Gives its record.
inline sg_catalogue_entry_3 group_of_symbol(const char* symbol, sg_decoder_3& decoder) {
    sg_file_names_3 names;
    names.set_symbol(symbol);
    const sg_catalogue_entry_3 entry = find_catalogue_entry(names);
    decoder.set_computer_symbol(entry.computer_symbol.data);
    decoder.decode(entry.axes.data);
    stream_out nowhere;
    decoder.write_xyzs(nowhere);  // this adds the centring
    return entry;
}
