#pragma once

#include "textout/stream_out.h"

/// Collects what is written in a string_out, where `text()` gives it.
class sstring_out : public string_out, public stream_out {
public:
    using stream_out::operator<<;

    int text_length() const override { return length(); }
    stream_out& operator<<(char_range_3 range) override;
    stream_out& operator<<(char c) override;
    stream_out& operator<<(const char* text) override;
    void pop() override { string_out::pop(); }
    char last() const override { return string_out::last(); }
    char second_last() const override { return string_out::second_last(); }
};
