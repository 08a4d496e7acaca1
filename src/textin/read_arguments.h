#pragma once

#include "foundation/ctr_3.h"
#include "textin/sstring_in.h"

using argument_list_3 = list_n1_3<vstring_in>;

/// Reads a list of arguments in parentheses, divided by commas; an argument may hold parentheses,
/// and commas within those. Appends a stream over each to the list: it has no white space at its
/// start, but may at its end. `()` gives one empty argument. Fails with " Missing (",
/// " Missing )", " Error in arguements" or " Unclosed:  )".
void read_arguments(sstring_in& in, argument_list_3& list);
