#include "textin/read_arguments.h"

#include "foundation/except_3.h"

namespace {

// Stops on what follows the argument: a comma, or the closing parenthesis.
void pass_argument(sstring_in& in) {
    for (;;) {
        const unsigned char c = in.peek();
        if (c == 0) fail_with("Error in arguements");
        if (c == ',' || c == ')') return;
        in.advance();
        if (c == '(') in.skip_block('(', ')');
    }
}

}  // namespace

void read_arguments(sstring_in& in, argument_list_3& list) {
    if (in.peek_non_white() != '(') fail_with("Missing (");
    in.advance();
    if (list.n_max == 0) list.set_max_n(4, false);
    if (in.peek_non_white() == 0) fail_with("Missing )");
    for (;;) {
        const char* const begin = in.current();
        pass_argument(in);
        list.add(vstring_in(begin, in.current()));
        if (in.get_non_white() == ')') return;
        if (in.peek_non_white() == 0) fail_with("Missing )");
    }
}
