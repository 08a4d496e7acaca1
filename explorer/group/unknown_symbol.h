#pragma once

#include <stdexcept>

namespace lomar {

/// A symbol that names no group. what() is the message for the user: one line of printable
/// characters, without the program's name.
class unknown_symbol : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace lomar
