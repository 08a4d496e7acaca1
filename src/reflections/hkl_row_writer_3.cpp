#include "reflections/hkl_row_writer_3.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr int least_ready = 48;  // no multiplicity of a group is larger
constexpr int most_ready = 999;  // below -999 a cell is wider

bool is_within(int value, int most) {
    return static_cast<unsigned>(value) + static_cast<unsigned>(most) <=
           2 * static_cast<unsigned>(most);
}

}  // namespace

hkl_row_writer_3::hkl_row_writer_3(int largest)
    : most_(std::clamp(largest, least_ready, most_ready)) {
    cells_.set_n(2 * most_ + 1);
    for (int value = -most_; value <= most_; ++value) {
        put_cell(value, cells_[value + most_].text);
    }
    buffer_.set_n(room + row_room);
    end_ = buffer_.block();
    full_ = end_ + room;
}

void hkl_row_writer_3::begin(file_out& file, const char* head) {
    file_ = &file;
    end_ = std::copy(head, head + std::strlen(head), buffer_.block());
}

char* hkl_row_writer_3::add_cell(int value, char* out) const {
    if (!is_within(value, most_)) return put_cell(value, out);
    std::memcpy(out, ready(value), sizeof(cell));
    return out + width;
}

void hkl_row_writer_3::pass_on() {
    char* const begin = buffer_.block();
    const char* const end = std::min<const char*>(end_, full_);
    *file_ << char_range_3{begin, end};
    end_ = std::copy(end, static_cast<const char*>(end_), begin);
    if (file_->is_incomplete()) file_->finish();
}

void hkl_row_writer_3::add(const hkl_row_3& row) {
    if (end_ >= full_) pass_on();
    for (const int value : {row.h, row.k, row.l, row.multiplicity}) end_ = add_cell(value, end_);
    *end_++ = '\n';
}

void hkl_row_writer_3::add(const list_0_3<hkl_row_3>& rows) {
    // In variables, of which it is known that writing a row doesn't change them.
    const cell* const zero = cells_.block() + most_;
    const int most = most_;
    char* out = end_;
    for (const hkl_row_3& row : rows) {
        if (out >= full_ || !is_within(row.h, most) || !is_within(row.k, most) ||
            !is_within(row.l, most) || !is_within(row.multiplicity, most)) {
            end_ = out;
            add(row);
            out = end_;
            continue;
        }
        std::memcpy(out, zero[row.h].text, sizeof(cell));
        std::memcpy(out + width, zero[row.k].text, sizeof(cell));
        std::memcpy(out + 2 * width, zero[row.l].text, sizeof(cell));
        std::memcpy(out + 3 * width, zero[row.multiplicity].text, sizeof(cell));
        out[4 * width] = '\n';
        out += 4 * width + 1;
    }
    end_ = out;
}

void hkl_row_writer_3::begin_line(int h, int k) {
    h_ = h;
    k_ = k;
    line_length_ = static_cast<int>(add_cell(k, add_cell(h, line_)) - line_);
}

void hkl_row_writer_3::add_run(int l, int last, int step, int multiplicity) {
    if (line_length_ != 2 * width || !is_within(multiplicity, most_)) {
        for (; l <= last; l += step) add({h_, k_, l, multiplicity});
        return;
    }
    for (; l <= last && !is_within(l, most_); l += step) add({h_, k_, l, multiplicity});
    const int n_ready = l > std::min(last, most_) ? 0 : (std::min(last, most_) - l) / step + 1;
    if (n_ready != 0) add_ready_run(l, l + (n_ready - 1) * step, step, multiplicity);
    for (l += n_ready * step; l <= last; l += step) add({h_, k_, l, multiplicity});
}

// All cells have a ready text. Copies of whole words are cheaper than those of what is needed.
void hkl_row_writer_3::add_ready_run(int l, int last, int step, int multiplicity) {
    constexpr int row_length = 4 * width + 1;
    cell tail;
    std::memcpy(tail.text, ready(multiplicity), sizeof tail);
    tail.text[width] = '\n';
    while (l <= last) {
        if (end_ >= full_) pass_on();
        const auto free = static_cast<int>(full_ - end_);
        const int n = std::min((last - l) / step + 1, (free - 1) / row_length + 1);
        char* out = end_;
        const char* third = ready(l);
        for (int i = 0; i < n; ++i) {
            std::memcpy(out, line_, 16);
            std::memcpy(out + 2 * width, third, sizeof(cell));
            std::memcpy(out + 3 * width, tail.text, sizeof tail);
            out += row_length;
            third += static_cast<std::ptrdiff_t>(step) * static_cast<int>(sizeof(cell));
        }
        end_ = out;
        l += n * step;
    }
}
