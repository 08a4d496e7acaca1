#include "group/suggestions.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "group/catalogue_names.h"
#include "group/symbol_text.h"

namespace lomar {

namespace {

constexpr int whole_slip = 1000;
constexpr std::size_t longest_compared = 40;

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Whether two keys are neighbours.
bool are_near_keys(char a, char b) {
    constexpr std::string_view rows[] = {"1234567890-", "qwertyuiop", "asdfghjkl", "zxcvbnm,./"};
    for (const std::string_view row : rows) {
        const std::size_t i = row.find(a);
        const std::size_t j = row.find(b);
        if (i != std::string_view::npos && j != std::string_view::npos) {
            return i + 1 == j || j + 1 == i;
        }
    }
    return false;
}

// A character that one text has and the other lacks; `before` and `after` are its neighbours.
int cost_of_extra(char c, char before, char after) {
    if (c == '-' || c == '\'') return 500;
    if (c == '_') return 300;
    if (c == before || c == after) return 700;
    return c == '1' || c == '/' ? 700 : whole_slip;
}

int cost_of_exchange(char a, char b) {
    if (a == b) return 0;
    if (lower(a) == lower(b)) return 250;
    if (are_near_keys(lower(a), lower(b))) return 900;
    return is_digit(a) == is_digit(b) ? whole_slip : whole_slip + 200;
}

char at(std::string_view text, std::size_t i) { return i < text.size() ? text[i] : '\0'; }

bool same_characters(std::string_view a, std::string_view b) {
    std::string first(a);
    std::string second(b);
    std::ranges::sort(first);
    std::ranges::sort(second);
    return first == second;
}

// Conventional settings, and groups that most crystals have, come first among equals.
int rank_of(const setting& row) {
    constexpr std::array common = {14, 2,   15,  19,  4,   61,  33,  62,  9,  1,   60,
                                   5,  29,  148, 225, 227, 194, 221, 229, 12, 167, 166,
                                   36, 230, 206, 139, 141, 136, 129, 186, 63, 205, 216};
    const auto found = std::ranges::find(common, row.number);
    const bool conventional =
        row.qualifier.empty() || row.qualifier == "b" || row.qualifier == "b1";
    constexpr int conventional_settings = 530;
    if (row.index >= conventional_settings) return 300;
    return static_cast<int>(found - common.begin()) + (conventional ? 0 : 100);
}

// The ways in which a setting is written, squeezed.
std::vector<std::string> spellings_of(const setting& row) {
    std::vector<std::string> result = {squeezed(lower_case(row.symbol))};
    if (row.number >= 3 && row.number <= 15) result.push_back(short_key(row));
    if (!row.full_symbol.empty() && row.full_symbol != row.symbol) {
        result.push_back(squeezed(lower_case(row.full_symbol)));
    }
    const std::size_t bar = result[0].find("-3");
    if (row.crystal_system == "cubic" && bar != std::string::npos) {
        result.push_back(result[0]);
        result.back().erase(bar, 1);
    }
    return result;
}

struct candidate {
    int distance;
    int rank;
    std::string name;
};

int distance_to(std::string_view typed, const setting& row, int limit) {
    int best = limit;
    for (const std::string& spelling : spellings_of(row)) {
        best = slips_between(typed, spelling, best);
        constexpr int other_order = 1500;
        if (best > other_order && same_characters(typed, spelling)) best = other_order;
    }
    return best;
}

std::string name_with_mark(const setting& row, const std::string& mark) {
    const std::string choice = mark == "h" ? "H" : mark == "r" ? "R" : mark;
    const std::string name(row.symbol);
    return !choice.empty() && find_setting(name + ":" + choice) != nullptr ? name + ":" + choice
                                                                           : name;
}

// The base is a name, the mark is not one of its settings': the settings, and the name that the
// colon may have been a slip in.
std::vector<std::string> names_for_mark(const symbol_parts& typed) {
    symbol_parts bare = typed;
    bare.mark.clear();
    bare.has_colon = false;
    const setting* const row = find_named_setting(bare);
    if (row == nullptr) return {};
    std::vector<std::string> result = {std::string(row->symbol)};
    for (const setting& other : settings()) {
        if (other.number == row->number && other.symbol == row->symbol && !other.choice.empty()) {
            result.push_back(other.name());
        }
    }
    bare.base += typed.mark;
    bare.plain = bare.base;
    if (const setting* const joined = find_named_setting(bare)) result.push_back(joined->name());
    return result;
}

}  // namespace

int slips_between(std::string_view typed, std::string_view name, int limit) {
    if (typed.size() > longest_compared || name.size() > longest_compared) return limit;
    // Rows of the table of distances between beginnings, the last three of them.
    std::array<std::array<int, longest_compared + 1>, 3> rows{};
    for (std::size_t i = 0; i <= typed.size(); ++i) {
        std::array<int, longest_compared + 1>& row = rows[i % 3];
        int least = limit;
        for (std::size_t j = 0; j <= name.size(); ++j) {
            int best = i == 0 && j == 0 ? 0 : limit;
            if (i > 0) {
                best = std::min(best, rows[(i - 1) % 3][j] +
                                          cost_of_extra(typed[i - 1], i > 1 ? typed[i - 2] : '\0',
                                                        at(typed, i)));
            }
            if (j > 0) {
                best = std::min(
                    best, row[j - 1] +
                              cost_of_extra(name[j - 1], j > 1 ? name[j - 2] : '\0', at(name, j)));
            }
            if (i > 0 && j > 0) {
                best = std::min(
                    best, rows[(i - 1) % 3][j - 1] + cost_of_exchange(typed[i - 1], name[j - 1]));
            }
            if (i > 1 && j > 1 && typed[i - 1] == name[j - 2] && typed[i - 2] == name[j - 1]) {
                constexpr int swapped = 800;
                best = std::min(best, rows[(i - 2) % 3][j - 2] + swapped);
            }
            row[j] = best;
            least = std::min(least, best);
        }
        if (least >= limit) return limit;
    }
    return std::min(limit, rows[typed.size() % 3][name.size()]);
}

std::vector<std::string> near_names(const symbol_parts& typed) {
    if (!typed.mark.empty()) {
        std::vector<std::string> result = names_for_mark(typed);
        if (!result.empty()) return result;
    }
    // A short text is near to everything.
    const int farthest = std::min(3500, static_cast<int>(typed.base.size()) * 600);
    std::vector<candidate> found;
    for (const setting& row : settings()) {
        if (row.choice == "2" || row.choice == "R") continue;
        const int distance = distance_to(typed.base, row, farthest);
        if (distance == farthest) continue;
        found.push_back({distance, rank_of(row), name_with_mark(row, typed.mark)});
    }
    std::ranges::sort(found, {},
                      [](const candidate& c) { return std::tie(c.distance, c.rank, c.name); });
    std::vector<std::string> result;
    for (const candidate& one : found) {
        constexpr int as_near = 800;
        if (result.size() == most_suggestions || one.distance > found[0].distance + as_near) break;
        result.push_back(one.name);
    }
    return result;
}

std::string near_text(const std::vector<std::string>& names) {
    std::string result;
    for (const std::string& name : names) result += (result.empty() ? "; near: " : ", ") + name;
    return result;
}

}  // namespace lomar
