#include "textout/stream_out.h"

stream_out& stream_out::operator<<(char_range_3 range) {
    for (const char* c = range.begin; c != range.end; ++c) *this << *c;
    return *this;
}

stream_out& stream_out::operator<<(char c) {
    static char text[2] = {0, 0};
    text[0] = c;
    return *this << text;
}
