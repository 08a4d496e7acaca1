#pragma once

#include "reflections/hkl_generator_3.h"

/// How the rows are found: with a grid of bits, which serves any lists, or without one where that
/// gives the same (direct_list_3).
enum class hkl_road_3 { any, grid };

/// Makes a .hkl file for the group of a .sg file: the limits, then a sorted line for each
/// reflection; none with a limit below 0. The file is opened only when nothing can fail any more
/// but writing, so a failure before leaves an old one as it was. The closing brace is written last:
/// a list without it isn't complete. Fails with those of reading, " Index limits too large", and
/// those of file_out.
void write_hkl_file_3(const char* sg_path, const char* hkl_path, int h, int k, int l,
                      hkl_road_3 road = hkl_road_3::any);

/// Sorts rows by their indices, h before k before l, which must differ. The rows come nearly in
/// order from the generator, which makes this cheap.
void sort_rows_3(row_list_3& rows);
