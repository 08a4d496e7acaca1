#include "group/symbol_search.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <vector>

#include "group/catalogue_names.h"
#include "group/symbol_text.h"

namespace lomar {

namespace {

constexpr std::string_view lattice_letters = "pabcifr";

// Whether `typed` is one choice of each place's alternatives, written one after the other.
bool joins_to(std::string_view typed, const std::vector<std::vector<std::string>>& places,
              std::size_t place) {
    if (place == places.size()) return typed.empty();
    return std::any_of(places[place].begin(), places[place].end(), [&](const std::string& part) {
        return typed.starts_with(part) && joins_to(typed.substr(part.size()), places, place + 1);
    });
}

// Whether some parts are those of the short symbol, others those of the full one, or older.
bool is_mixed_symbol(std::string_view typed, const setting& row) {
    if (!typed.starts_with(lower_case(row.symbol.substr(0, 1)))) return false;
    const std::vector<std::string> brief = words_of(row.symbol);
    const std::vector<std::string> full = words_of(row.full_symbol);
    if (brief.size() != full.size()) return false;
    std::vector<std::vector<std::string>> places;
    for (std::size_t i = 0; i < brief.size(); ++i) {
        places.push_back({brief[i], full[i]});
        if (row.crystal_system == "cubic" && brief[i] == "-3") places.back().push_back("3");
        if (full[i].ends_with("/e")) places.back().push_back("e");
        if (full[i] == "m" && row.centrosymmetric) places.back().push_back("2/m");
        if (full[i] == "c" && row.centrosymmetric) places.back().push_back("2/c");
    }
    return joins_to(typed, places, 0);
}

bool is_default_choice(const setting& row) { return row.choice != "2" && row.choice != "R"; }

const setting* find_mixed_symbol(std::string_view base) {
    for (const setting& row : settings()) {
        if (is_default_choice(row) && is_mixed_symbol(base, row)) return &row;
    }
    return nullptr;
}

bool has_letter_mark(std::string_view base) {
    return base.ends_with('s') || base.ends_with('z') || (base.size() > 1 && base.ends_with('r'));
}

// The same setting with another origin or other axes.
const setting* with_choice(const setting& row, std::string_view choice) {
    for (const setting& other : settings()) {
        if (other.number == row.number && other.symbol == row.symbol && other.choice == choice) {
            return &other;
        }
    }
    return nullptr;
}

// The setting with this symbol, and the qualifier with or without its digit.
const setting* with_qualifier(const setting& row, const std::string& qualifier) {
    for (const setting& other : settings()) {
        if (other.number != row.number || other.symbol != row.symbol) continue;
        const std::string full = std::string(other.choice).append(other.qualifier);
        const std::string_view last = other.qualifier;
        const std::string_view axis = last.substr(0, last.find_first_of("123"));
        if (last == qualifier || full == qualifier || (axis == qualifier && !axis.empty())) {
            return &other;
        }
    }
    return nullptr;
}

bool is_conventional(const setting& row) {
    return row.qualifier.empty() || row.qualifier == "b" || row.qualifier == "b1";
}

const setting* with_mark(const setting& row, const symbol_parts& symbol) {
    const std::string& mark = symbol.mark;
    if (mark.empty()) return &row;
    if (has_letter_mark(symbol.base)) return nullptr;
    if (mark == "1" && row.choice.empty() && is_group_number(symbol.base)) return &row;
    if (mark == "1" || mark == "2") return with_choice(row, mark);
    if (mark == "h") return with_choice(row, "H");
    if (mark == "r") return with_choice(row, "R");
    if (const setting* const found = with_qualifier(row, mark)) return found;
    if (!is_conventional(row)) return nullptr;
    return find_catalogue_name(std::to_string(row.number) + ":" + mark);
}

// Symbols of protein files, `H 3 2`: R on hexagonal axes.
const setting* find_hexagonal_symbol(const std::string& base) {
    if (!base.starts_with('h')) return nullptr;
    const setting* const row = find_catalogue_name("r" + base.substr(1));
    return row != nullptr && row->choice == "H" ? row : nullptr;
}

// A Schoenflies symbol with today's letters for those of older tables.
std::string renewed_schoenflies(std::string_view base) {
    constexpr std::pair<std::string_view, std::string_view> older[] = {
        {"vh", "d2h"}, {"vd", "d2d"}, {"v", "d2"}, {"s6", "c3i"}, {"s2", "ci"}, {"c1h", "cs"}};
    for (const auto& [old_letters, letters] : older) {
        if (!base.starts_with(old_letters)) continue;
        return std::string(letters).append(base.substr(old_letters.size()));
    }
    return std::string(base);
}

const setting* find_schoenflies(std::string_view base) {
    const std::string renewed = renewed_schoenflies(base);
    if (std::string_view("cdsto").find(renewed[0]) == std::string_view::npos) return nullptr;
    const bool has_caret = base.find('^') != std::string_view::npos;
    for (const setting& row : settings()) {
        std::string wanted = lower_case(row.schoenflies);
        if (!has_caret) std::erase(wanted, '^');
        if (wanted == renewed) return find_catalogue_name(std::to_string(row.number));
    }
    return nullptr;
}

// A symbol with a blank after its lattice letter and around each axis that is marked as a screw by
// a bracket or an underscore.
std::string spaced_screws(std::string_view plain) {
    const bool blanks = plain.size() > 1 && plain[1] == '_';
    std::string result(plain.substr(0, 1));
    result += ' ';
    for (std::size_t i = 1; i < plain.size(); ++i) {
        const char next = i + 1 < plain.size() ? plain[i + 1] : ' ';
        const bool is_mark = plain[i] == '_' || plain[i] == '(';
        if (!blanks && is_mark && std::isdigit(static_cast<unsigned char>(next)) != 0) {
            result += next;
            result += ' ';
            ++i;
        } else {
            result +=
                std::string_view("_()").find(plain[i]) == std::string_view::npos ? plain[i] : ' ';
        }
    }
    return result;
}

// The setting of a symbol without its mark.
const setting* find_base(const symbol_parts& symbol) {
    const std::string& base = symbol.base;
    const bool may_be_name = base.find('h') == std::string::npos &&
                             (lattice_letters.find(base[0]) != std::string_view::npos ||
                              (base[0] >= '1' && base[0] <= '9'));
    if (!may_be_name) return nullptr;
    const setting* const row = find_catalogue_name(base);
    return row != nullptr ? row : find_mixed_symbol(base);
}

}  // namespace

bool is_group_number(std::string_view base) {
    return !base.empty() && base.find_first_not_of("0123456789") == std::string_view::npos;
}

namespace {

// `14b2` and `62 cab` are a number and axes.
void split_number(symbol_parts& symbol) {
    const std::size_t end = symbol.base.find_first_not_of("0123456789");
    if (end == 0 || end == std::string::npos || symbol.base[end] == '.') return;
    const std::string_view rest = std::string_view(symbol.base).substr(end);
    if (rest.find_first_not_of("abc-123") != std::string_view::npos) return;
    symbol.mark = rest;
    symbol.base.resize(end);
    symbol.has_colon = true;
}

}  // namespace

symbol_parts parts_of_symbol(std::string_view typed) {
    symbol_parts result;
    result.plain = plain_symbol(typed);
    const std::size_t colon = result.plain.rfind(':');
    if (colon != std::string::npos) {
        result.mark = squeezed(std::string_view(result.plain).substr(colon + 1));
        result.has_colon = true;
        result.plain.resize(colon);
        if (result.mark == "s") result.mark = "1";
        if (result.mark == "z") result.mark = "2";
    }
    result.base = squeezed(result.plain);
    if (!result.has_colon) split_number(result);
    if (result.base.size() > 1 && is_group_number(result.base)) {
        result.base.erase(0, std::min(result.base.find_first_not_of('0'), result.base.size() - 1));
    }
    if (!result.has_colon && result.base.size() > 1 && result.base.ends_with('h')) {
        result.base.pop_back();
        result.mark = "h";
    }
    return result;
}

std::vector<const setting*> settings_with_axis(const symbol_parts& symbol) {
    std::vector<const setting*> result;
    const std::vector<std::string> typed = words_of(spaced_screws(symbol.plain));
    if (typed.size() < 3 || typed[1].size() != 2 || typed[1][1] > '5') return result;
    const setting* const row = find_base(symbol);
    if (row == nullptr) return result;
    const std::vector<std::string> found = words_of(row->symbol);
    if (found[1].size() != 1 || typed[1][0] != found[1][0]) return result;
    for (const setting& other : settings()) {
        const std::vector<std::string> words = words_of(other.symbol);
        if (words[0] != typed[0] || words[1] != typed[1]) continue;
        const bool has_rest = std::all_of(typed.begin() + 2, typed.end(), [&](const auto& word) {
            return std::find(words.begin() + 2, words.end(), word) != words.end();
        });
        if (has_rest) result.push_back(&other);
    }
    if (!result.empty()) result.insert(result.begin(), row);
    return result;
}

std::vector<const setting*> groups_of_class(const symbol_parts& symbol) {
    std::vector<const setting*> result;
    std::set<int> numbers;
    const std::string base = renewed_schoenflies(symbol.base + (symbol.mark == "h" ? "h" : ""));
    if (symbol.plain.find(' ') != std::string::npos) return result;
    for (const setting& row : settings()) {
        const std::string own = lower_case(row.schoenflies.substr(0, row.schoenflies.find('^')));
        if (!base.starts_with(own)) continue;
        // `C222` and `O222` are rather slips in Hermann-Mauguin symbols.
        const std::string rest = base.substr(own.size());
        const bool is_number = rest.size() < own.size() &&
                               rest.find_first_not_of("0123456789") == std::string::npos &&
                               std::isalpha(static_cast<unsigned char>(own.back())) != 0;
        if (!rest.empty() && rest[0] != '^' && !is_number) continue;
        if (numbers.insert(row.number).second) result.push_back(&row);
    }
    std::sort(result.begin(), result.end(),
              [](const setting* a, const setting* b) { return a->number < b->number; });
    return result;
}

const setting* find_named_setting(const symbol_parts& symbol) {
    const std::string& base = symbol.base;
    if (base.empty() || (symbol.has_colon && symbol.mark.empty())) return nullptr;
    const setting* row = find_base(symbol);
    if (row != nullptr && !settings_with_axis(symbol).empty()) return nullptr;
    if (row == nullptr) row = find_hexagonal_symbol(base);
    if (row == nullptr) row = find_schoenflies(base);
    return row == nullptr ? nullptr : with_mark(*row, symbol);
}

}  // namespace lomar
