#pragma once

#include "foundation/ctr_3.h"
#include "textin/sstring_in.h"

using argument_list_3 = list_n1_3<vstring_in>;

/// Reads `(a, f(b, c), d)` into a stream for each of the three arguments, after those that are in
/// `list` already. Commas inside inner parentheses don't divide. White space before an argument is
/// skipped, white space after it belongs to it, and `()` counts as an argument without text. Fails
/// with " Missing (", " Missing )", " Error in arguements" or " Unclosed:  )".
void read_arguments(sstring_in& in, argument_list_3& list);
