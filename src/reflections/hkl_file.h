#pragma once

#include "reflections/hkl_generator_3.h"

/// Makes a .hkl file for the group of a .sg file: the limits, then a sorted line for each
/// reflection. The file is opened only when all lines are there, so a failure before leaves an old
/// one as it was.
void write_hkl_file_3(const char* sg_path, const char* hkl_path, int h, int k, int l);

/// Sorts rows by their indices, h before k before l, which must differ. The rows come nearly in
/// order from the generator, which makes this cheap.
void sort_rows_3(row_list_3& rows);
