#pragma once

#include <string>

namespace lomar {

/// All bytes of a file, or of standard input for `-`. Throws input_error when it can't be read, or
/// has no end within 256 MiB.
std::string read_input(const std::string& path);

}  // namespace lomar
