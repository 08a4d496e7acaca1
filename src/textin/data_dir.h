#pragma once

#include "foundation/string_3.h"

/// The prefix in front of the names of all data files, with its separator. It is empty unless a
/// program that links the library fills it, so that data files are looked for in the current
/// directory.
string_3& data_dir();
