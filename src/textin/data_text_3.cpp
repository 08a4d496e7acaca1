#include "textin/data_text_3.h"

#include "textin/file_in.h"

data_text_3::data_text_3(const char* begin, int length) : contents_(length + 1) {
    contents_ << char_range_3{begin, begin + length};
    blank_for_reading(contents_.p, length, file_in::data_file);
}

data_text_3::data_text_3(const string_3& path) {
    const file_in file(path, file_in::data_file);
    contents_ << file.current();
}
