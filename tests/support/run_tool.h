#pragma once

#include <string>
#include <vector>

#include "support/scratch_dir.h"

/// What a run of the program left on standard output.
struct tool_run {
    int status;  ///< the exit status, or -1 when the program was ended by a signal
    std::string console;
    std::string errors;  ///< standard error, where only a sanitizer writes
};

/// Runs the built program in the current folder. One source file for each system has the body.
tool_run run_tool(const std::vector<std::string>& arguments);
