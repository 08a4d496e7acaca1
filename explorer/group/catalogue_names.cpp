#include "group/catalogue_names.h"

#include <algorithm>
#include <charconv>

#include "group/embedded_data.h"
#include "group/symbol_text.h"

namespace lomar {

namespace {

// Goes through the names of the catalogue's text (docs/catalogue.md).
class name_scan {
public:
    bool next() {
        for (;;) {
            const std::string_view token = next_token();
            if (token.empty()) return false;
            if (!in_body_) {
                read_head(token);
            } else if (token == "}") {
                in_body_ = false;
            } else if (token != "-") {
                is_main = token[0] != '=';
                key = token.substr(is_main ? 0 : 1);
                return true;
            }
        }
    }

    std::string_view key;
    bool is_main = false;  // begins a slot
    int number = 0;

private:
    // The number, then the tail and the brace are passed.
    void read_head(std::string_view token) {
        std::from_chars(token.data(), token.data() + token.size(), number);
        next_token();
        next_token();
        in_body_ = true;
    }

    std::string_view next_token() {
        constexpr std::string_view white = " \t\r\n";
        rest_.remove_prefix(std::min(rest_.find_first_not_of(white), rest_.size()));
        while (rest_.starts_with('\'')) {
            rest_.remove_prefix(std::min(rest_.find('\n'), rest_.size()));
            rest_.remove_prefix(std::min(rest_.find_first_not_of(white), rest_.size()));
        }
        std::size_t length = 0;
        while (length < rest_.size() && static_cast<unsigned char>(rest_[length]) > ' ') ++length;
        const std::string_view token = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return token;
    }

    std::string_view rest_ = catalogue_data;
    bool in_body_ = false;
};

// The row of a slot, whose names are `keys`: the one whose own name it has.
const setting* row_of_slot(int number, const std::vector<std::string_view>& keys,
                           std::string_view typed) {
    const setting* result = nullptr;
    for (const setting& row : settings()) {
        if (row.number != number) continue;
        const std::string own = own_key(row);
        if (own == typed) return &row;
        if (result == nullptr && std::ranges::find(keys, own) != keys.end()) result = &row;
    }
    return result;
}

}  // namespace

std::string own_key(const setting& row) {
    std::string key = squeezed(row.symbol);
    std::ranges::transform(key, key.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    if (row.choice == "2") key += ":2";
    if (row.choice == "R") key += "r";
    return key;
}

const setting* find_catalogue_name(std::string_view key) {
    name_scan scan;
    std::vector<std::string_view> slot;
    bool found = false;
    int number = 0;
    while (scan.next()) {
        if (scan.is_main) {
            if (found) break;
            slot.clear();
        }
        slot.push_back(scan.key);
        if (scan.key == key) {
            found = true;
            number = scan.number;
        }
    }
    return found ? row_of_slot(number, slot, key) : nullptr;
}

std::vector<catalogue_name> catalogue_names() {
    std::vector<catalogue_name> result;
    std::vector<std::string_view> slot;
    int number = 0;
    const auto close_slot = [&] {
        for (const std::string_view key : slot)
            result.push_back({key, row_of_slot(number, slot, key)});
        slot.clear();
    };
    for (name_scan scan; scan.next();) {
        if (scan.is_main) close_slot();
        number = scan.number;
        slot.push_back(scan.key);
    }
    close_slot();
    return result;
}

}  // namespace lomar
