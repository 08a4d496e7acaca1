#pragma once

#include "driver/sg_file_names_3.h"
#include "foundation/string_3.h"
#include "textin/sstring_in.h"
#include "textout/stream_out.h"

/// What the catalogue knows of a space group in one setting.
struct sg_catalogue_entry_3 {
    string_3 axes;                    ///< the axis setting, such as `cab` or `mcba`
    string_3 computer_symbol;         ///< lattice letter, head and generators: see sg_decoder_3
    string_3 unique_axis;             ///< x, y or z for the numbers 3 to 15, else empty
    string_3 symbol;                  ///< the main name of the setting
    string_3 point_group;             ///< filled from point_group_table_3
    string_3 rhombohedral_hexagonal;  ///< r for a setting on rhombohedral axes, else empty
    int number = -1;

    /// Writes the space_group block. The texts are made lower case as they are written.
    void write_record(stream_out& stream);

    /// Reads the next space_group block; words that it doesn't know are passed over. Fails when
    /// there is none.
    void read_record(sstring_in& in);
};

/// Searches the catalogue file for the key of `names`; the first name that equals it wins. Fails
/// with " Space group not found in lomar5.txt", or when the file is missing or malformed.
sg_catalogue_entry_3 find_catalogue_entry(sg_file_names_3& names);
