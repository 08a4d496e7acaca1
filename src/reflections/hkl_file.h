#pragma once

#include "reflections/hkl_generator_3.h"

/// Lists the reflections of the group in a .sg file in a .hkl file: a head with the limits, then
/// the rows in ascending order of h, k, l. Nothing is written before the list is complete.
void write_hkl_file_3(const char* sg_path, const char* hkl_path, int h, int k, int l);

/// Sorts ascending by h, then k, then l. No two rows may have the same indices. The rows come
/// nearly in order from the generator, which makes this cheap.
void sort_rows_3(row_list_3& rows);
