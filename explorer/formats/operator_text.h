#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "analysis/completion.h"

namespace lomar {

/// Input that can't be read: one line that names the place.
class unreadable_input : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    /// `line 3: ` and the reason; the reason alone for line 0.
    unreadable_input(int line, const std::string& reason);
};

/// Reads one operator as people write it: `-x,y+1/2,-z+1/2`, `1/2+X, .5 - y, 2*x-z`, `x/2+y/2,...`,
/// fields with commas or, if there are none, with blanks between them; in quotes or after a number
/// (`(2) -x,-y,z`) too. A fourth field is time reversal: `x,y,z,-1`.
///
/// A decimal that is a fraction with a denominator up to 24, rounded or cut at its last digit, is
/// that fraction: `0.3333`, `0.667`, `.16667`, `0.1429`. Two digits stand for thirds and sixths
/// alone, three for 3, 6, 7, 9, 12 and 24; all others are exact.
///
/// Throws unreadable_input. `line` is where the text comes from.
given_operator parse_operator(std::string_view text, int line);

/// A part of some text in quotes for a message: cut when it is long, control characters as blanks.
std::string shown(std::string_view text);

}  // namespace lomar
