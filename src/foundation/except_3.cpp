#include "foundation/except_3.h"

#include <utility>

error_builder_3& error_builder_3::operator<<(const char* text) {
    static_cast<string_out&>(*held_) << ' ' << text;
    return *this;
}

error_builder_3& error_builder_3::operator<<(char c) {
    static_cast<string_out&>(*held_) << ' ' << c;
    return *this;
}

void error_builder_3::fail() { throw std::exchange(held_, nullptr); }

void fail_with(const char* message) { (error_builder_3() << message).fail(); }
