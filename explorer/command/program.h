#pragma once

#include <string>
#include <vector>

namespace lomar {

/// Runs the program on the arguments that follow its name. The result is the exit status: 0 when
/// done, 1 when the input names no group, can't be read, or a file can't be written, 2 when the
/// command line is wrong. A failure is one line on standard error.
int run_program(std::vector<std::string> arguments);

}  // namespace lomar
