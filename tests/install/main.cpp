// A user's program: it finds the headers by their paths in the library, and links.

#include <cstdio>

#include "foundation/string_3.h"

int main() {
    string_3 symbol("F_d_d_d");
    symbol.to_lower();
    symbol.remove_chars("_");
    std::puts(symbol.text());
    return text_equal(symbol.text(), "fddd") ? 0 : 1;
}
