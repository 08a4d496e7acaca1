// The least that a run of the tool must do: start, load the two data files of the current
// directory, and write a file of the size of a .sg file. The tool's time is measured against it.
//
//     floor SIZE_OR_FILE [OUTPUT]
//
// SIZE_OR_FILE is a number of bytes, or a file whose size is taken. OUTPUT is floor.out by default.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

namespace {

long size_of_file(const char* path) {
    std::FILE* file = std::fopen(path, "rb");
    if (!file) return -1;
    std::fseek(file, 0, SEEK_END);
    const long size = std::ftell(file);
    std::fclose(file);
    return size;
}

struct loaded_file {
    std::unique_ptr<char[]> bytes;
    std::size_t size = 0;
};

loaded_file load(const char* path) {
    const long size = size_of_file(path);
    std::FILE* file = size > 0 ? std::fopen(path, "rb") : nullptr;
    if (!file) return {};
    const auto capacity = static_cast<std::size_t>(size);
    loaded_file loaded{std::make_unique_for_overwrite<char[]>(capacity)};
    loaded.size = std::fread(loaded.bytes.get(), 1, capacity, file);
    std::fclose(file);
    return loaded;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("floor SIZE_OR_FILE [OUTPUT]\n", stderr);
        return 1;
    }
    const loaded_file catalogue = load("lomar5.txt");
    const loaded_file rotations = load("sgrots3.txt");
    if (catalogue.size == 0 || rotations.size == 0) {
        std::fputs("lomar5.txt or sgrots3.txt can't be read\n", stderr);
        return 1;
    }

    long size = size_of_file(argv[1]);
    if (size < 0) size = std::atol(argv[1]);
    // What is written depends on what was read, so that no part of the work can be left out.
    const auto fill = static_cast<char>('a' + (catalogue.bytes[0] ^ rotations.bytes[0]) % 26);
    const std::vector<char> out(static_cast<std::size_t>(std::max(size, 0L)), fill);
    std::FILE* file = std::fopen(argc > 2 ? argv[2] : "floor.out", "wb");
    if (!file) return 1;
    const bool complete = std::fwrite(out.data(), 1, out.size(), file) == out.size();
    return std::fclose(file) == 0 && complete ? 0 : 1;
}
