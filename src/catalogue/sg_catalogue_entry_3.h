#pragma once

#include "driver/request/sg_file_names_3.h"
#include "foundation/string_3.h"
#include "textin/data_text_3.h"
#include "textin/sstring_in.h"
#include "textout/stream_out.h"

/// A space group in one of its settings, as the catalogue describes it. Texts that don't apply are
/// empty.
struct sg_catalogue_entry_3 {
    string_3 axes;                    ///< how the axes are exchanged: `cab`, `mcba`
    string_3 computer_symbol;         ///< lattice letter, head and generators: see sg_decoder_3
    string_3 unique_axis;             ///< `x`, `y` or `z`; only monoclinic groups have it
    string_3 symbol;                  ///< its main name in the catalogue
    string_3 point_group;             ///< filled from point_group_table_3
    string_3 rhombohedral_hexagonal;  ///< `r` for a trigonal group on rhombohedral axes
    int number = -1;

    /// Writes the space_group block, and turns the fields to lower case for it.
    void write_record(stream_out& stream);

    /// Reads the next space_group block; words that it doesn't know are passed over. Fails when
    /// there is none.
    void read_record(sstring_in& in);
};

/// Searches the catalogue file for the key of `names`; the first name that equals it wins. Fails
/// with " Space group not found in lomar5.txt", or when the file is missing or malformed.
sg_catalogue_entry_3 find_catalogue_entry(sg_file_names_3& names);

/// The same for a name as it is in the text of a catalogue.
sg_catalogue_entry_3 find_catalogue_entry(const data_text_3& catalogue, const string_3& key);
