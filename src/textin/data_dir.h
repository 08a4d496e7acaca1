#pragma once

#include "foundation/string_3.h"

/// Where the data files are: a directory with a separator at its end. The tool leaves it empty and
/// so reads them from the current directory; a program with other needs assigns to it at its start.
string_3& data_dir();

/// The path of a data file, such as `lomar5.txt`.
string_3 data_path(const char* name);
