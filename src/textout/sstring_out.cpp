#include "textout/sstring_out.h"

stream_out& sstring_out::operator<<(char_range_3 range) {
    static_cast<string_out&>(*this) << range;
    return *this;
}

stream_out& sstring_out::operator<<(char c) {
    static_cast<string_out&>(*this) << c;
    return *this;
}

stream_out& sstring_out::operator<<(const char* text) {
    static_cast<string_out&>(*this) << text;
    return *this;
}
