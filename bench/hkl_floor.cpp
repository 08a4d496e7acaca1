// The least that a list of reflections must cost: rows of four numbers written to a file, each a
// copy of a ready text. The tool's -hkl is measured against it.
//
//     hkl_floor [LIMIT ROWS OUTPUT]
//
// The indices run from -LIMIT to LIMIT. Without arguments this is an empty process.

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

struct cell {
    char text[8];
};
using table = std::unique_ptr<cell[]>;

constexpr std::size_t width = 5;

// The numbers from -limit to limit, of at most four characters each, as the tool writes them.
table ready_texts(int limit) {
    auto cells = std::make_unique<cell[]>(2 * static_cast<std::size_t>(limit) + 1);
    for (int value = -limit; value <= limit; ++value) {
        char digits[16];
        const char* const end = std::to_chars(digits, digits + sizeof digits, value).ptr;
        const auto length = static_cast<std::size_t>(end - digits);
        char* const text = cells[static_cast<std::size_t>(value + limit)].text;
        std::memset(text, ' ', width - length);
        std::memcpy(text + width - length, digits, length);
    }
    return cells;
}

bool write_rows(std::FILE* file, int limit, std::int64_t rows) {
    constexpr std::size_t room = std::size_t{1} << 16;
    constexpr std::size_t row_room = 32;
    const table cells = ready_texts(limit);
    const cell* const zero = cells.get() + limit;
    const auto buffer = std::make_unique<char[]>(room);
    char* out = buffer.get();
    bool complete = true;
    const auto pass_on = [&] {
        const auto size = static_cast<std::size_t>(out - buffer.get());
        complete = std::fwrite(buffer.get(), 1, size, file) == size && complete;
        out = buffer.get();
    };
    int h = 0;
    int k = -limit;
    int l = -limit;
    for (std::int64_t i = 0; i < rows; ++i) {
        if (out > buffer.get() + room - row_room) pass_on();
        std::memcpy(out, zero[h].text, sizeof(cell));
        std::memcpy(out + width, zero[k].text, sizeof(cell));
        std::memcpy(out + 2 * width, zero[l].text, sizeof(cell));
        std::memcpy(out + 3 * width, zero[2].text, sizeof(cell));
        out[4 * width] = '\n';
        out += 4 * width + 1;
        if (++l <= limit) continue;
        l = -limit;
        if (++k <= limit) continue;
        k = -limit;
        if (++h > limit) h = 0;
    }
    pass_on();
    return complete;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4) return 0;
    std::FILE* const file = std::fopen(argv[3], "wb");
    if (file == nullptr) return 1;
    std::setvbuf(file, nullptr, _IONBF, 0);
    const bool complete = write_rows(file, std::atoi(argv[1]), std::atoll(argv[2]));
    return std::fclose(file) == 0 && complete ? 0 : 1;
}
