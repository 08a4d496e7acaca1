#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

/// A fresh folder under the current one. It is the current folder until this object goes, and it
/// goes along with all that it holds.
class scratch_dir {
public:
    scratch_dir() : before(std::filesystem::current_path()) {
        // Tests run side by side: whoever creates a folder has it. One that its test removes at
        // this moment is an error for this one.
        std::error_code error;
        for (int i = 0; path_.empty(); ++i) {
            const std::filesystem::path candidate = before / ("scratch_" + std::to_string(i));
            if (std::filesystem::create_directory(candidate, error)) path_ = candidate;
            if (i == 1000) throw std::filesystem::filesystem_error("no folder", candidate, error);
        }
        std::filesystem::current_path(path_);
    }
    scratch_dir(const scratch_dir&) = delete;
    scratch_dir& operator=(const scratch_dir&) = delete;
    ~scratch_dir() {
        std::error_code ignored;
        std::filesystem::current_path(before, ignored);
        std::filesystem::remove_all(path_, ignored);
    }

    /// The absolute path, without a separator at its end.
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path before;
    std::filesystem::path path_;
};

/// Creates or replaces a file that holds exactly these bytes.
inline void write_file(const std::filesystem::path& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// All bytes of a file; a file that can't be opened reads as empty.
inline std::string read_file(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
