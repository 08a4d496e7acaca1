#include "foundation/except_3.h"

#include <utility>

error_builder_3& error_builder_3::operator<<(const char* text) {
    static_cast<string_out&>(*held) << ' ' << text;
    return *this;
}

error_builder_3& error_builder_3::operator<<(char c) {
    static_cast<string_out&>(*held) << ' ' << c;
    return *this;
}

void error_builder_3::fail() { throw std::exchange(held, nullptr); }

void fail_with(const char* message) { (error_builder_3() << message).fail(); }
