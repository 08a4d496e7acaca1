#include "group/catalogue_names.h"

#include "group/library_adapter.h"
#include "group/symbol_text.h"

namespace lomar {

namespace {

// The name that the catalogue has first for a setting: of monoclinic groups the short symbol may be
// it, of shifted origins a z takes the place of the a.
bool is_main_name(const std::string& main_name, const setting& row, const std::string& own) {
    if (main_name == own) return true;
    if (row.number >= 3 && row.number <= 15) return main_name == short_key(row);
    return own.ends_with('a') && main_name == own.substr(0, own.size() - 1) + "z";
}

const setting* row_of(const library_name& name) {
    const setting* result = nullptr;
    for (const setting& row : settings()) {
        if (row.number != name.number) continue;
        const std::string own = own_key(row);
        if (own == name.key) return &row;
        if (result == nullptr && is_main_name(name.main_name, row, own)) result = &row;
    }
    return result;
}

}  // namespace

std::string own_key(const setting& row) {
    std::string key = squeezed(lower_case(row.symbol));
    if (row.choice == "2") key += ":2";
    if (row.choice == "R") key += "r";
    return key;
}

std::string short_key(const setting& row) {
    std::string key;
    for (const std::string& word : words_of(row.symbol)) {
        if (word != "1") key += word;
    }
    return key;
}

const setting* find_catalogue_name(const std::string& key) {
    const std::optional<library_name> name = find_library_name(key);
    return name ? row_of(*name) : nullptr;
}

std::vector<catalogue_name> catalogue_names() {
    std::vector<catalogue_name> result;
    for (const library_name& name : library_names()) result.push_back({name.key, row_of(name)});
    return result;
}

}  // namespace lomar
