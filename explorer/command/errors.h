#pragma once

#include <stdexcept>

namespace lomar {

// How a subcommand fails: with one line for the user and no name of the program before it. Any
// other std::exception counts as an input_error.

/// The input names no group, can't be read, or a file can't be written: status 1.
class input_error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The command line is wrong, or asks for a format that the command does not have: status 2.
class usage_error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Whoever reads standard output has gone: the program ends without a word.
class closed_pipe : public std::runtime_error {
public:
    closed_pipe() : std::runtime_error("closed pipe") {}
};

}  // namespace lomar
