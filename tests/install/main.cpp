// A user's program: it finds the headers by their paths in the library, and links.

#include <cstdio>

#include "symmetry/xyz_op_3.h"
#include "textout/sstring_out.h"

int main() {
    xyz_op_3 screw;
    screw.rot(0, 0) = -1;
    screw.rot(1, 1) = 1;
    screw.rot(2, 2) = -1;
    screw.trans(1) = 180;
    sstring_out text;
    write_xyz(text, screw);
    std::puts(text.text());
    return text_equal(text.text(), "\n\t-x, y+1/2, -z ") ? 0 : 1;
}
