#include "formats/setting_list.h"

#include <algorithm>
#include <stdexcept>

#include "formats/csv.h"
#include "formats/json.h"
#include "formats/text_layout.h"
#include "group/catalogue_names.h"
#include "group/symbol_search.h"
#include "group/symbol_text.h"
#include "group/text_fields.h"

namespace lomar {

namespace {

bool is_number(std::string_view text) {
    return !text.empty() && text.size() < 4 &&
           text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool fits_range(const setting& row, std::string_view word) {
    const std::string_view first = take_field(word, '-');
    return is_number(first) && is_number(word) && row.number >= whole_number(first) &&
           row.number <= whole_number(word);
}

bool fits_flag(const setting& row, std::string_view word) {
    return (word == "centrosymmetric" && row.centrosymmetric) ||
           (word == "sohncke" && row.sohncke) || (word == "symmorphic" && row.symmorphic) ||
           (word == "polar" && !row.polar_directions.empty()) ||
           (word == "enantiomorphic" && row.enantiomorph != 0);
}

// `c2h` fits `C2h^5`.
bool fits_schoenflies(const setting& row, const std::string& word) {
    std::string symbol = lower_case(row.schoenflies);
    if (symbol == word || symbol.substr(0, symbol.find('^')) == word) return true;
    std::erase(symbol, '^');
    return symbol == word;
}

// The qualifier with or without its digit, and the choice.
bool fits_setting(const setting& row, const std::string& word) {
    const std::string qualifier(row.qualifier);
    const std::string axes = qualifier.substr(0, qualifier.find_first_of("123"));
    return (!qualifier.empty() && (qualifier == word || (axes == word && axes.size() > 1))) ||
           (!row.choice.empty() && ":" + lower_case(row.choice) == word);
}

bool fits_facts(const setting& row, const std::string& word) {
    constexpr std::size_t shortest_beginning = 3;
    if (is_number(word) && row.number == whole_number(word)) return true;
    if (word.size() >= shortest_beginning && row.crystal_system.starts_with(word)) return true;
    if (word.size() == 1 && lower_case(row.symbol).starts_with(word)) return true;
    return row.point_group == word || fits_range(row, word) || fits_flag(row, word) ||
           fits_schoenflies(row, word) || fits_setting(row, word);
}

bool contains(std::string_view symbol, const std::string& word) {
    return squeezed(lower_case(symbol)).find(word) != std::string::npos;
}

// The group that a word names, in the settings that it leaves open.
class named_settings {
public:
    explicit named_settings(const std::string& word)
        : word_(word), typed_(parts_of_symbol(word)), row_(find_named_setting(typed_)) {}

    bool fits(const setting& row) const {
        if (lower_case(row.hall) == word_) return true;
        if (row_ == nullptr || typed_.has_colon || !typed_.mark.empty()) return &row == row_;
        return row.number == row_->number && row.symbol == row_->symbol;
    }

private:
    std::string word_;
    symbol_parts typed_;
    const setting* row_;
};

template <class Test>
std::vector<const setting*> all_that_fit(Test fits) {
    std::vector<const setting*> result;
    for (const setting& row : settings()) {
        if (fits(row)) result.push_back(&row);
    }
    return result;
}

std::vector<const setting*> settings_for_word(const std::string& typed) {
    const std::string word = plain_symbol(typed.substr(0, longest_symbol));
    auto result = all_that_fit([&](const setting& row) { return fits_facts(row, word); });
    const std::string part = squeezed(word);
    if (result.empty() && !part.empty()) {
        const named_settings named(word);
        result = all_that_fit([&](const setting& row) {
            return named.fits(row) || contains(row.symbol, part) ||
                   short_key(row).find(part) != std::string::npos;
        });
        if (result.empty()) {
            result =
                all_that_fit([&](const setting& row) { return contains(row.full_symbol, part); });
        }
    }
    if (result.empty()) {
        throw std::runtime_error(in_quotes(typed) +
                                 " fits no setting; words are numbers, crystal systems, lattices, "
                                 "point groups, axes, parts of symbols");
    }
    return result;
}

const std::vector<std::string> head = {"number",      "name",        "setting",       "hall",
                                       "schoenflies", "point_group", "crystal_system"};

std::vector<std::string> fields_of(const setting& row) {
    return {std::to_string(row.number),
            row.name(),
            row.variant(),
            std::string(row.hall),
            std::string(row.schoenflies),
            std::string(row.point_group),
            std::string(row.crystal_system)};
}

}  // namespace

std::vector<const setting*> settings_for(const std::vector<std::string>& words) {
    std::vector<const setting*> result = all_that_fit([](const setting&) { return true; });
    for (const std::string& word : words) {
        const std::vector<const setting*> fitting = settings_for_word(word);
        std::erase_if(result, [&](const setting* row) {
            return std::find(fitting.begin(), fitting.end(), row) == fitting.end();
        });
    }
    return result;
}

std::string setting_table(const std::vector<const setting*>& rows) {
    std::vector<std::vector<std::string>> table;
    for (const setting* const row : rows) {
        std::vector<std::string> fields = fields_of(*row);
        fields[0].insert(0, 3 - fields[0].size(), ' ');
        table.push_back(std::move(fields));
    }
    const std::string count = std::to_string(rows.size());
    return table_text(table) + count + (rows.size() == 1 ? " setting\n" : " settings\n");
}

std::string setting_json(const std::vector<const setting*>& rows) {
    json result = json::array();
    for (const setting* const row : rows) {
        json one;
        one["name"] = row->name();
        one["number"] = row->number;
        one["hermann_mauguin"] = row->symbol;
        one["hermann_mauguin_full"] = text_or_null(row->full_symbol);
        one["setting"] = text_or_null(row->variant());
        one["hall"] = row->hall;
        one["schoenflies"] = row->schoenflies;
        one["crystal_system"] = row->crystal_system;
        one["point_group"] = row->point_group;
        one["laue_class"] = row->laue_class;
        one["lattice"] = std::string(1, row->symbol[0]);
        result.push_back(std::move(one));
    }
    return json_text(result);
}

std::string setting_csv(const std::vector<const setting*>& rows) {
    std::string result = csv_row(head);
    for (const setting* const row : rows) result += csv_row(fields_of(*row));
    return result;
}

}  // namespace lomar
