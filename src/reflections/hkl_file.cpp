#include "reflections/hkl_file.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

#include "reflections/direct_list_3.h"
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

// A .hkl file. What needs memory comes before it is opened, the buffer of the standard library's
// stream included, which isn't used: rows come in large pieces, of which none is held back.
class hkl_stream : public file_out {
public:
    hkl_stream(const char* path, const triple_3& limits, int largest_index)
        : file_out(path, 0), rows(largest_index) {
        constexpr int room = 2048;
        buffer.set_max_n(room, false);
        keep = 0;
        head_ << "hkls " << limits[0] << ' ' << limits[1] << ' ' << limits[2] << "\n{\n";
    }

    void begin() {
        file_io::open(open_or_throw);
        std::setvbuf(file, nullptr, _IONBF, 0);
        rows.begin(*this, head_.text());
    }

    // The brace is what tells that a list is complete.
    void end() {
        rows.end();
        *this << '}';
        finish();
    }

    hkl_row_writer_3 rows;

private:
    string_out head_;
};

// False if the group isn't one for a list without a grid.
bool write_directly(const hkl_generator_3& generator, const char* hkl_path,
                    const triple_3& limits) {
    direct_list_3 list;
    if (!list.set_up(generator, limits)) return false;
    hkl_stream file(hkl_path, limits, list.largest_index());
    file.begin();
    list.write(file.rows);
    file.end();
    return true;
}

}  // namespace

void write_hkl_file_3(const char* sg_path, const char* hkl_path, int h, int k, int l,
                      hkl_road_3 road) {
    const triple_3 limits = {{h, k, l}};
    row_list_3 rows;
    {
        xyz_list_3 ops;
        load_sg_file_xyzs_3(sg_path, ops);
        hkl_generator_3 generator;
        generator.load(sg_path, ops);
        if (h >= 0 && k >= 0 && l >= 0) {
            if (road == hkl_road_3::any && write_directly(generator, hkl_path, limits)) return;
            generator.list(limits, rows);
        }
    }
    sort_rows_3(rows);
    // An index can be larger than the limits, as -h-k is.
    constexpr int enough = 1000;
    hkl_stream file(hkl_path, limits, 2 * std::clamp(std::max({h, k, l}), 0, enough));
    file.begin();
    file.rows.add(rows);
    file.end();
}
