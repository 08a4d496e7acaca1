#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace lomar {

/// Whether an argument that begins with a minus is a value all the same: a digit, a dot, a capital
/// or a lattice letter follows, as in `-1/4`, `-.5`, `-P 2ybc`. A lone `-` is a value too.
bool is_value(const std::string& argument);

/// The arguments with all options and their values first, then `--`, then all others. Throws
/// usage_error for an option that the app lacks and for one whose values are not all there.
std::vector<std::string> options_first(const CLI::App& app,
                                       const std::vector<std::string>& arguments);

}  // namespace lomar
