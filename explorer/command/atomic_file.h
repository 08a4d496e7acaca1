#pragma once

#include <string>
#include <string_view>

namespace lomar {

/// A file that is there whole or not at all: it is written next to its place under another name,
/// which keep() changes in one step. What was at the place before stays until then, and for good if
/// anything fails. A device or a pipe is written directly.
///
/// Every failure throws input_error, whose message names the file.
class atomic_file {
public:
    /// Throws when nothing can be written there.
    explicit atomic_file(const std::string& path);
    atomic_file(const atomic_file&) = delete;
    atomic_file& operator=(const atomic_file&) = delete;
    /// Without a keep() before it, nothing has happened.
    ~atomic_file();

    void write(std::string_view text);
    void keep();

private:
    [[noreturn]] void fail(const std::string& reason) const;
    void open_temporary();

    std::string shown;      // as the user wrote it
    std::string place;      // after following any links
    std::string temporary;  // empty for a device
    int file = -1;
};

/// Writes one whole file.
void write_file(const std::string& path, std::string_view text);

}  // namespace lomar
