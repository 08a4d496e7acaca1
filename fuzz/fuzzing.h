#pragma once

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>

#include "foundation/except_3.h"

/// Runs an action; a failure with a message is a clean end.
template <typename Action>
void run_cleanly(Action action) {
    const auto failure = failure_of(action);
    if (failure && failure->text()[0] != ' ') __builtin_trap();
}

/// The input up to its first line feed, which goes with it.
inline std::string take_line(std::string& input) {
    const std::size_t end = input.find('\n');
    const std::string line = input.substr(0, end);
    input.erase(0, end == std::string::npos ? end : end + 1);
    return line;
}

inline void write_file(const char* name, const std::string& bytes) {
    std::ofstream(name, std::ios::binary) << bytes;
}
