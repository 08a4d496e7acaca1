#include "driver/request/sg_file_names_3.h"

#include "foundation/except_3.h"
#include "foundation/platform.h"
#include "textin/data_dir.h"
#include "textin/file_io.h"

namespace {

bool ends_in(const string_3& text, const char* ending) {
    const int skipped = text.length() - static_cast<int>(std::strlen(ending));
    return skipped >= 0 && text_equal(text.data + skipped, ending);
}

// A key as the name of a file.
string_3 stem_of_key(const string_3& key) {
    string_3 stem(key);
    stem.replace_char('/', 'o');
    stem.replace_char(':', 'q');
    return stem;
}

// The catalogue's key for a symbol, or the empty text.
string_3 key_of_symbol(const string_3& symbol) {
    string_3 key(symbol);
    key.remove_chars("_ ");
    key.to_lower();
    const bool is_number = key.data[0] >= '1' && key.data[0] <= '9';
    if (!is_number && key.length() >= 2 && !ends_in(key, ":2")) key.remove_chars(":");
    key.replace_char('h', 0);
    if (ends_in(key, ":1")) key.data[key.length() - 2] = 0;
    if (!is_number && text_index(key.data[0], "pabcifr") == not_found) key.clear();
    if (!platform_can_name_file(stem_of_key(key).data)) key.clear();
    return key;
}

}  // namespace

void sg_file_names_3::set_symbol(const char* text) {
    raw_symbol_ = text;
    raw_symbol_.remove_chars("() ");
    if (raw_symbol_.is_empty()) fail_with("No Spacegroup");
    if (out_dir_.is_empty()) {
        out_dir_ = data_path("sg");
    }
    for (string_3* field : {&file_stem_, &sg_file_, &hkl_file_, &sg_path_, &hkl_path_,
                            &run_command_, &lower_symbol_}) {
        field->clear();
    }
    lower_symbol();
}

void sg_file_names_3::set_out_dir(const char* text) {
    out_dir_ = text;
    if (*out_dir_.last() == platform_separator) *out_dir_.last() = 0;
}

bool sg_file_names_3::is_valid() { return !lower_symbol().is_empty(); }

const string_3& sg_file_names_3::lower_symbol() {
    if (lower_symbol_.is_empty() && !raw_symbol_.is_empty()) {
        lower_symbol_ = key_of_symbol(raw_symbol_);
    }
    return lower_symbol_;
}

const string_3& sg_file_names_3::file_stem() {
    if (file_stem_.is_empty() && is_valid()) {
        file_stem_ = stem_of_key(lower_symbol_);
    }
    return file_stem_;
}

const string_3& sg_file_names_3::with_ending(string_3& field, const char* ending) {
    if (field.is_empty() && is_valid()) {
        field = file_stem();
        field.append(ending);
    }
    return field;
}

const string_3& sg_file_names_3::in_out_dir(string_3& field, const string_3& file) {
    if (field.is_empty() && is_valid()) {
        field = out_dir_;
        if (!field.is_empty()) field.append(platform_separator);
        field.append(file.data);
    }
    return field;
}

const string_3& sg_file_names_3::sg_file() { return with_ending(sg_file_, ".sg"); }

const string_3& sg_file_names_3::hkl_file() { return with_ending(hkl_file_, ".hkl"); }

const string_3& sg_file_names_3::sg_path() { return in_out_dir(sg_path_, sg_file()); }

const string_3& sg_file_names_3::hkl_path() { return in_out_dir(hkl_path_, hkl_file()); }

const string_3& sg_file_names_3::run_command() {
    if (run_command_.is_empty()) {
        string_out command;
        command << '"' << data_path("lomar6") << "\" " << lower_symbol() << " -dir \"" << out_dir_
                << '"';
        run_command_ = command.text();
    }
    return run_command_;
}

bool sg_file_names_3::sg_file_exists() { return is_valid() && file_exists(sg_path().data); }

const string_3& catalogue_path() {
    static const string_3 path = data_path("lomar5.txt");
    return path;
}
