#pragma once

#include "foundation/ctr_3.h"
#include "textout/file_out.h"
#include "textout/row_writers.h"

/// Composes the lines of a .hkl file, which are those of write_row_4 with line ends, in large
/// pieces out of ready texts for the numbers. All memory is taken at the start. The pieces go to a
/// file when they are full, and the last one with `end`: without that it is lost, since a
/// destructor must not write. They are whole pages of the file, which a system takes with less
/// work. When the system can't write a piece, this fails as file_out::finish does, and rows are no
/// longer taken for nothing.
class hkl_row_writer_3 {
public:
    /// Texts will be ready for numbers up to `largest` in size, if that isn't too many.
    explicit hkl_row_writer_3(int largest);

    /// From now on rows go to `file`, which must stay until the end and is empty as yet; `head`, of
    /// at most 64 characters, comes before them.
    void begin(file_out& file, const char* head);
    void add(const hkl_row_3& row);
    void add(const list_0_3<hkl_row_3>& rows);

    /// The next rows have these two indices.
    void begin_line(int h, int k);
    /// Adds those with the third index l, l + step and so on up to `last`.
    void add_run(int l, int last, int step, int multiplicity);

    /// Passes on what is left.
    void end() {
        while (end_ != buffer_.block()) pass_on();
    }

private:
    struct cell {
        char text[8];
    };
    static constexpr int width = 5;  ///< of a cell with a ready text
    static constexpr int room = 1 << 16;
    static constexpr int row_room = 64;  ///< for the longest row, and copies that write beyond it

    const char* ready(int value) const { return cells_[value + most_].text; }
    char* add_cell(int value, char* out) const;
    void add_ready_run(int l, int last, int step, int multiplicity);
    void pass_on();

    file_out* file_ = nullptr;
    int most_;
    list_0_3<cell> cells_;
    list_0_3<char> buffer_;
    char* end_;
    const char* full_;        ///< no row begins here or beyond
    char line_[2 * 16] = {};  ///< the cells of h and k
    int line_length_ = 0;
    int h_ = 0;
    int k_ = 0;
};
