#include "reflections/hkl_file.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "sgfile/sg_reader.h"
#include "textout/file_out.h"

namespace {

// A stretch of rows.
struct row_range {
    hkl_row_3* begin;
    hkl_row_3* end;
};

template <typename Key>
bool ascends(row_range range, Key key) {
    for (const hkl_row_3* row = range.begin + 1; row < range.end; ++row) {
        if (key(row[-1]) > key(*row)) return false;
    }
    return true;
}

constexpr auto h_of = [](const hkl_row_3& row) { return row.h; };
constexpr auto k_of = [](const hkl_row_3& row) { return row.k; };
constexpr auto l_of = [](const hkl_row_3& row) { return row.l; };

// Sorts rows by one index by counting; rows with the same value keep their order. Values that lie
// far apart in a short list are left to a comparing sort.
template <typename Key>
void counting_sort(row_range range, Key key, row_list_3& copy) {
    const auto n = range.end - range.begin;
    int least = key(*range.begin);
    int most = least;
    for (const hkl_row_3* row = range.begin; row != range.end; ++row) {
        least = std::min(least, key(*row));
        most = std::max(most, key(*row));
    }
    const std::int64_t width = std::int64_t{most} - least + 1;
    if (copy.n < n) copy.new_n(static_cast<int>(n));
    std::copy(range.begin, range.end, copy.begin());
    if (width > 4 * n + 1024) {
        int_list_3 index;
        index.set_n(static_cast<int>(n));
        for (int i = 0; i < index.n; ++i) index[i] = i;
        const hkl_row_3* const from = copy.begin();
        heap_sort_positions(
            from, index.begin(), index.n,
            [](const hkl_row_3& a, const hkl_row_3& b) { return element_less(a, b); });
        for (int i = 0; i < index.n; ++i) range.begin[i] = from[index[i]];
        return;
    }
    int_list_3 places;
    places.new_n_zero(static_cast<int>(width) + 1);
    for (const hkl_row_3* row = range.begin; row != range.end; ++row)
        ++places[key(*row) - least + 1];
    for (int i = 1; i < places.n; ++i) places[i] += places[i - 1];
    for (const hkl_row_3* row = copy.begin(); row != copy.begin() + n; ++row) {
        range.begin[places[key(*row) - least]++] = *row;
    }
}

// Sorts rows that differ in k and l alone. The l of equal k mostly come in a row, upward or
// downward.
void sort_same_h(row_range range, row_list_3& copy) {
    if (!ascends(range, k_of)) counting_sort(range, k_of, copy);
    for (hkl_row_3* begin = range.begin; begin != range.end;) {
        hkl_row_3* end = begin + 1;
        while (end != range.end && end->k == begin->k) ++end;
        if (!ascends({begin, end}, l_of)) std::reverse(begin, end);
        if (!ascends({begin, end}, l_of)) counting_sort({begin, end}, l_of, copy);
        begin = end;
    }
}

}  // namespace

void sort_rows_3(row_list_3& rows) {
    row_list_3 copy;
    hkl_row_3* const end = rows.end();
    for (hkl_row_3* begin = rows.begin(); begin != end;) {
        // Most stretches of equal h are in order, which shows while their end is looked for.
        bool sorted = true;
        hkl_row_3* next = begin + 1;
        for (; next != end && next->h == begin->h; ++next) {
            if (element_less(*next, next[-1])) sorted = false;
        }
        if (next != end && next->h < begin->h) {
            begin = rows.begin();
            counting_sort({begin, end}, h_of, copy);
            continue;
        }
        if (!sorted) sort_same_h({begin, next}, copy);
        begin = next;
    }
}

namespace {

// Composes rows of integers in large pieces.
class row_composer {
public:
    explicit row_composer(stream_out& stream) : stream_(stream) {
        for (int value = -most; value <= most; ++value) cell_text(value, cells_[value + most]);
    }
    ~row_composer() { pass_on(); }

    void add(const hkl_row_3& row) {
        if (end_ > buffer_ + sizeof buffer_ - row_room) pass_on();
        add_cell(row.h);
        add_cell(row.k);
        add_cell(row.l);
        add_cell(row.multiplicity);
        *end_++ = '\n';
    }

private:
    static constexpr int most = 511;  ///< the largest value that is looked up
    static constexpr int width = 5;
    static constexpr int row_room = 64;

    // As write_cell (textout/row_writers.h), with a look-up where it can.
    static char* cell_text(int value, char* out) {
        char digits[16];
        const char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
        const auto length = end - digits;
        for (auto blanks = std::max<std::ptrdiff_t>(width - length, 1); blanks > 0; --blanks) {
            *out++ = ' ';
        }
        return std::copy(static_cast<const char*>(digits), end, out);
    }

    void add_cell(int value) {
        if (value < -most || value > most) {
            end_ = cell_text(value, end_);
            return;
        }
        std::memcpy(end_, cells_[value + most], sizeof cells_[0]);
        end_ += width;
    }

    void pass_on() {
        stream_ << char_range_3{buffer_, end_};
        end_ = buffer_;
    }

    stream_out& stream_;
    char cells_[2 * most + 1][8] = {};
    char buffer_[1 << 16];
    char* end_ = buffer_;
};

void write_rows(const row_list_3& rows, stream_out& stream) {
    row_composer composer(stream);
    for (const hkl_row_3& row : rows) composer.add(row);
}

}  // namespace

void write_hkl_file_3(const char* sg_path, const char* hkl_path, int h, int k, int l) {
    row_list_3 rows;
    {
        xyz_list_3 ops;
        load_sg_file_xyzs_3(sg_path, ops);
        hkl_generator_3 generator;
        generator.generate(sg_path, ops, {{h, k, l}}, rows);
    }
    sort_rows_3(rows);
    file_out stream(hkl_path);
    stream << "hkls " << h << ' ' << k << ' ' << l << "\n{\n";
    write_rows(rows, stream);
    stream << '}';
}
