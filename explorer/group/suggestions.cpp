#include "group/suggestions.h"

#include <algorithm>
#include <array>

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

// A character that was typed and is not in the name; `before` and `after` are its neighbours.
int cost_of_extra(char c, char before, char after) {
    if (c == '\'') return 500;
    if (c == '_') return 300;
    return c == before || c == after || c == '1' ? 700 : 900;
}

// A character of the name that was not typed.
int cost_of_missing(char c) {
    if (c == '-' || c == '\'') return 500;
    if (c == '_') return 300;
    return c == '1' || c == '/' ? 700 : 800;
}

int cost_of_exchange(char a, char b) {
    if (a == b) return 0;
    if (lower(a) == lower(b)) return 250;
    if (are_near_keys(lower(a), lower(b))) return 900;
    return is_digit(a) == is_digit(b) ? whole_slip : whole_slip + 200;
}

// Distances between the beginnings of two texts, by Damerau's recurrence. Three rows are kept.
class slip_table {
public:
    slip_table(std::string_view typed, std::string_view name, int limit)
        : typed_(typed), name_(name), limit_(limit) {}

    // The least of row i: the distances of the first i characters typed.
    int fill_row(std::size_t i) {
        int least = limit_;
        for (std::size_t j = 0; j <= name_.size(); ++j) {
            const int best = i == 0 && j == 0 ? 0 : best_of(i, j);
            row(i)[j] = best;
            least = std::min(least, best);
        }
        return least;
    }

    int distance() { return row(typed_.size())[name_.size()]; }

private:
    int best_of(std::size_t i, std::size_t j) {
        int best = limit_;
        if (i > 0) {
            const char before = i > 1 ? typed_[i - 2] : '\0';
            const char after = i < typed_.size() ? typed_[i] : '\0';
            best = std::min(best, row(i - 1)[j] + cost_of_extra(typed_[i - 1], before, after));
        }
        if (j > 0) best = std::min(best, row(i)[j - 1] + cost_of_missing(name_[j - 1]));
        if (i == 0 || j == 0) return best;
        best = std::min(best, row(i - 1)[j - 1] + cost_of_exchange(typed_[i - 1], name_[j - 1]));
        if (i > 1 && j > 1 && typed_[i - 1] == name_[j - 2] && typed_[i - 2] == name_[j - 1]) {
            constexpr int swapped = 800;
            best = std::min(best, row(i - 2)[j - 2] + swapped);
        }
        return best;
    }

    std::array<int, longest_compared + 1>& row(std::size_t i) { return rows_[i % rows_.size()]; }

    std::string_view typed_;
    std::string_view name_;
    int limit_;
    std::array<std::array<int, longest_compared + 1>, 3> rows_{};
};

bool same_characters(std::string_view a, std::string_view b) {
    std::string first(a);
    std::string second(b);
    std::sort(first.begin(), first.end());
    std::sort(second.begin(), second.end());
    return first == second;
}

// Conventional settings, and groups that most crystals have, come first among equals.
int rank_of(const setting& row) {
    constexpr std::array common = {14, 2,   15,  19,  4,   61,  33,  62,  9,  1,   60,
                                   5,  29,  148, 225, 227, 194, 221, 229, 12, 167, 166,
                                   36, 230, 206, 139, 141, 136, 129, 186, 63, 205, 216};
    const auto found = std::find(common.begin(), common.end(), row.number);
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

struct spelled_setting {
    const setting* row;
    int rank;
    std::vector<std::string> spellings;
    std::size_t n_words;        // of the symbol
    std::size_t n_short_words;  // without the 1 of directions that have nothing

    // Whether one may have typed so many words. Two tell nothing: `P 212121`.
    bool may_have_words(std::size_t n) const { return n < 3 || n == n_words || n == n_short_words; }
};

// One setting of each choice of origin or axes, by rank.
const std::vector<spelled_setting>& spelled_settings() {
    static const std::vector<spelled_setting> all = [] {
        std::vector<spelled_setting> result;
        for (const setting& row : settings()) {
            if (row.choice == "2" || row.choice == "R") continue;
            const std::vector<std::string> words = words_of(row.symbol);
            const auto n_ones = std::count(words.begin(), words.end(), "1");
            result.push_back({&row, rank_of(row), spellings_of(row), words.size(),
                              words.size() - static_cast<std::size_t>(n_ones)});
        }
        std::stable_sort(result.begin(), result.end(),
                         [](const auto& a, const auto& b) { return a.rank < b.rank; });
        return result;
    }();
    return all;
}

int distance_to(std::string_view typed, const spelled_setting& known, int limit) {
    int best = limit;
    for (const std::string& spelling : known.spellings) {
        best = slips_between(typed, spelling, best);
        constexpr int other_order = 900;
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

std::vector<std::string> settings_of(int number) {
    std::vector<std::string> result;
    for (const setting& row : settings()) {
        if (row.number == number && result.size() < most_suggestions) result.push_back(row.name());
    }
    return result;
}

// The base is a name, the mark is not one of its settings': the settings, and the name that the
// colon may have been a slip in.
std::vector<std::string> names_for_mark(const symbol_parts& typed) {
    symbol_parts bare = typed;
    bare.mark.clear();
    bare.has_colon = false;
    const setting* const row = find_named_setting(bare);
    if (row == nullptr) return {};
    if (is_group_number(typed.base)) return settings_of(row->number);
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
    slip_table table(typed, name, limit);
    for (std::size_t i = 0; i <= typed.size(); ++i) {
        if (table.fill_row(i) >= limit) return limit;
    }
    return table.distance();
}

std::vector<std::string> nearest(std::vector<std::pair<int, std::string>> found) {
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> result;
    for (const auto& [distance, name] : found) {
        constexpr int as_near = 800;
        if (result.size() == most_suggestions || distance > found[0].first + as_near) break;
        if (std::find(result.begin(), result.end(), name) == result.end()) result.push_back(name);
    }
    return result;
}

namespace {

// Whether a symbol begins with the number of a group without axes to name: `1Cc1` is a slip.
bool is_split_name(const symbol_parts& typed) {
    constexpr int first_with_axes = 3;
    return is_group_number(typed.base) && typed.base.size() == 1 &&
           typed.base[0] < '0' + first_with_axes && typed.base != squeezed(typed.plain);
}

}  // namespace

std::vector<std::string> names_with_lattice(const symbol_parts& typed) {
    constexpr std::string_view letters = "pcifrab";
    if (typed.plain.empty() || letters.find(typed.plain[0]) != std::string_view::npos) return {};
    std::vector<std::string> result;
    for (const char letter : letters) {
        const symbol_parts whole = parts_of_symbol(letter + typed.plain);
        const setting* const row = find_named_setting(whole);
        if (row != nullptr) result.push_back(name_with_mark(*row, typed.mark));
    }
    return result;
}

std::vector<std::string> near_names(const symbol_parts& typed) {
    std::vector<std::string> of_class;
    for (const setting* const row : groups_of_class(typed)) {
        if (of_class.size() < most_suggestions) of_class.emplace_back(row->symbol);
    }
    if (!of_class.empty()) return of_class;
    if (std::vector<std::string> names = names_with_lattice(typed); !names.empty()) return names;
    const bool is_letter_mark = typed.mark == "h" && !typed.has_colon;
    const bool is_name = is_split_name(typed);
    if (!typed.mark.empty() && !is_letter_mark && !is_name) {
        std::vector<std::string> result = names_for_mark(typed);
        if (!result.empty()) return result;
    }
    std::vector<std::string> with_axis;
    for (const setting* const row : settings_with_axis(typed)) with_axis.emplace_back(row->symbol);
    if (!with_axis.empty()) return with_axis;
    const std::string base = typed.base + (is_name ? typed.mark : is_letter_mark ? "h" : "");
    // A short text is near to everything.
    const int farthest = std::clamp(static_cast<int>(base.size()) * 600, 850, 3500);
    const std::size_t n_words = words_of(typed.plain).size();
    std::vector<std::pair<int, std::string>> found;
    for (const spelled_setting& known : spelled_settings()) {
        const int distance = distance_to(base, known, farthest);
        constexpr int unusual = 150;
        constexpr int other_words = 250;
        if (distance == farthest) continue;
        found.emplace_back(distance + (known.rank < 100 ? 0 : unusual) +
                               (known.may_have_words(n_words) ? 0 : other_words),
                           name_with_mark(*known.row, typed.mark));
    }
    return nearest(std::move(found));
}

std::string near_text(const std::vector<std::string>& names) {
    std::string result;
    for (const std::string& name : names) result += (result.empty() ? "; near: " : ", ") + name;
    return result;
}

}  // namespace lomar
