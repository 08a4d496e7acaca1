// The least that a list of reflections must cost: a look at every bit of a grid of indices, and
// rows of four numbers written to a file. The tool's -hkl is measured against it.
//
//     hkl_floor [H K L ROWS OUTPUT]
//
// The grid holds the indices from -H to H, -K to K and -L to L. Without arguments this is an empty
// process.

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace {

using bit_grid = std::vector<std::uint64_t>;

// A few marks, so that the outcome of a test isn't known beforehand.
bit_grid make_grid(std::int64_t cells, int step) {
    bit_grid grid(static_cast<std::size_t>(cells / 64 + 1));
    for (std::size_t i = 0; i < grid.size(); i += static_cast<std::size_t>(step)) grid[i] = 1;
    return grid;
}

std::int64_t count_clear(const bit_grid& grid, int h, int k, int l) {
    std::int64_t clear = 0;
    std::int64_t cell = 0;
    for (int i = -h; i <= h; ++i) {
        for (int j = -k; j <= k; ++j) {
            for (int m = -l; m <= l; ++m, ++cell) {
                const std::uint64_t word = grid[static_cast<std::size_t>(cell >> 6)];
                clear += ((word >> (cell & 63)) & 1) == 0;
            }
        }
    }
    return clear;
}

// As the tool writes a number of a row.
char* put_number(char* out, int value) {
    char digits[16];
    const char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    const auto length = static_cast<std::size_t>(end - digits);
    const std::size_t blanks = length < 5 ? 5 - length : 1;
    std::memset(out, ' ', blanks);
    std::memcpy(out + blanks, digits, length);
    return out + blanks + length;
}

bool write_rows(std::FILE* file, int k, int l, std::int64_t rows) {
    constexpr std::size_t room = std::size_t{1} << 20;
    constexpr std::size_t longest_row = 64;
    const auto buffer = std::make_unique_for_overwrite<char[]>(room);
    char* out = buffer.get();
    int index[3] = {0, -k, -l};
    bool complete = true;
    const auto pass_on = [&] {
        const auto size = static_cast<std::size_t>(out - buffer.get());
        complete = std::fwrite(buffer.get(), 1, size, file) == size && complete;
        out = buffer.get();
    };
    for (std::int64_t i = 0; i < rows; ++i) {
        if (out > buffer.get() + room - longest_row) pass_on();
        for (int value : index) out = put_number(out, value);
        out = put_number(out, 2);
        *out++ = '\n';
        if (++index[2] <= l) continue;
        index[2] = -l;
        if (++index[1] <= k) continue;
        index[1] = -k;
        ++index[0];
    }
    pass_on();
    return complete;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 6) return 0;
    const int h = std::atoi(argv[1]);
    const int k = std::atoi(argv[2]);
    const int l = std::atoi(argv[3]);
    const std::int64_t rows = std::atoll(argv[4]);
    const std::int64_t cells = (2 * std::int64_t{h} + 1) * (2 * k + 1) * (2 * l + 1);
    const std::int64_t clear = count_clear(make_grid(cells, argc), h, k, l);
    std::FILE* const file = std::fopen(argv[5], "wb");
    if (file == nullptr) return 1;
    const bool complete = clear > 0 && write_rows(file, k, l, rows);
    return std::fclose(file) == 0 && complete ? 0 : 1;
}
