#include "textout/row_writers.h"

void write_row_4(const hkl_row_3& row, stream_out& stream) {
    write_row_3(row, stream);
    write_cell(row.multiplicity, stream);
}

void write_row_3(const hkl_row_3& row, stream_out& stream) {
    write_cell(row.h, stream);
    write_cell(row.k, stream);
    write_cell(row.l, stream);
}

void write_cell(int value, stream_out& stream) { stream << format_number(" %4d", value); }
