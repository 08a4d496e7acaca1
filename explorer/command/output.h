#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "command/atomic_file.h"

namespace lomar {

/// Where the answer of a subcommand goes: standard output, or the file of -o.
class output {
public:
    /// An empty path, or `-`, is standard output.
    output(const std::string& path, std::string_view format);
    output(const output&) = delete;
    output& operator=(const output&) = delete;

    /// The format asked for, one of the command's.
    const std::string& format() const { return format_; }
    /// Whether text may carry colours: a person sees it, and NO_COLOR is not set.
    bool colour() const { return colour_; }

    /// Adds to the answer. A command finds what is wrong with its input before it writes.
    void write(std::string_view text);
    /// The answer is complete: all of it is written, and the file of -o gets its name.
    void finish();

private:
    void flush();

    std::string format_;
    std::optional<atomic_file> file;
    std::string buffer;
    bool colour_ = false;
};

}  // namespace lomar
