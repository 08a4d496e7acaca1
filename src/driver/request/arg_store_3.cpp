#include "driver/request/arg_store_3.h"

#include "foundation/except_3.h"
#include "foundation/platform.h"
#include "foundation/text.h"

const char* error_marker = nullptr;

void touch_error_marker() {
    if (error_marker != nullptr) platform_make_empty_file(error_marker);
}

void arg_store_3::set_up(int argc_, const char* const* argv_) {
    argc = argc_;
    argv = argv_;
    error_marker = nullptr;
    const int i = find_arg("-e");
    if (i != not_found && i + 1 < argc) error_marker = argv[i + 1];
}

int arg_store_3::find_arg(const char* text) const {
    for (int i = 1; i < argc; ++i) {
        if (text_equal(argv[i], text)) return i;
    }
    return not_found;
}

const char* arg_store_3::value_of(int i, int place) const {
    if (argc - i <= place) (error_builder_3() << "Missing value for" << argv[i]).fail();
    return argv[i + place];
}
