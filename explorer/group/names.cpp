#include "group/names.h"

#include <algorithm>
#include <cctype>

#include "group/assumptions.h"
#include "group/hall_symbol.h"
#include "group/magnetic_group.h"
#include "group/suggestions.h"
#include "group/symbol_search.h"
#include "group/symbol_text.h"

namespace lomar {

namespace {

void check_length(std::string_view symbol) {
    if (symbol.size() > longest_symbol) {
        throw unknown_symbol(in_quotes(symbol) + " names no space group: it has " +
                             std::to_string(symbol.size()) + " characters");
    }
}

// The symbols of colourless groups are those of space groups, which a slip may run together to.
void refuse_magnetic(std::string_view symbol) {
    const magnetic_facts* const magnetic = find_magnetic_exactly(symbol);
    const bool is_number = symbol.find('.') != std::string_view::npos;
    if (magnetic == nullptr || (magnetic->type == 1 && !is_number)) return;
    throw unknown_symbol(in_quotes(symbol) + " names no space group but a magnetic one, " +
                         std::string(magnetic->bns_number) + " " +
                         std::string(magnetic->bns_symbol));
}

[[noreturn]] void refuse(std::string_view symbol, const symbol_parts& parts) {
    const std::string start = in_quotes(symbol) + " names no space group";
    if (parts.has_colon && parts.mark.empty()) {
        throw unknown_symbol(start + ": nothing follows the colon");
    }
    if (is_group_number(parts.base) && parts.mark.empty()) {
        throw unknown_symbol(start + ": their numbers run from 1 to 230" +
                             near_text(names_with_lattice(parts)));
    }
    refuse_magnetic(symbol);
    throw unknown_symbol(start + near_text(near_names(parts)));
}

// The text of a Hall symbol, in which underscores are blanks, to compare with the table.
std::string hall_text(std::string plain) {
    std::replace(plain.begin(), plain.end(), '_', ' ');
    return plain_symbol(plain);
}

const setting* find_tabulated_hall(const std::string& text) {
    for (const setting& row : settings()) {
        if (lower_case(row.hall) == text) return &row;
    }
    return nullptr;
}

// Whether a bracket holds new coordinates or a shift, not the digit of a screw or words.
bool has_change_of_basis(const std::string& text) {
    const std::size_t bracket = text.find('(');
    if (bracket == std::string::npos) return false;
    std::string inner = text.substr(bracket + 1, text.find(')', bracket) - bracket - 1);
    inner = plain_symbol(inner);
    return inner.find(',') != std::string::npos ||
           (inner.find_first_not_of("0123456789+-*/.xyz ") == std::string::npos &&
            inner.find_first_of("xyz ") != std::string::npos);
}

// `-R3` is a slip in R -3.
bool has_minus_too_early(std::string text) {
    if (text.size() < 3 || text[0] != '-' || text[2] == ' ') return false;
    std::swap(text[0], text[1]);
    return find_named_setting(parts_of_symbol(text)) != nullptr;
}

// Whether a text can be nothing but a Hall symbol.
bool is_plainly_hall(const std::string& text) {
    if (has_change_of_basis(text) || text.find_first_of("\"*") != std::string::npos) return true;
    if (text.size() > 1 && text[0] == '-') {
        return std::isalpha(static_cast<unsigned char>(text[1])) != 0 && !has_minus_too_early(text);
    }
    return text.find('\'') != std::string::npos && words_of(text)[0].size() == 1;
}

// Whether a text is rather a Hall symbol than a slip such as `P 21 2` or `P 21n`: it has axes or
// quarters, or letters after more than one of its rotations.
bool may_be_hall(const std::string& text) {
    if (is_plainly_hall(text)) return true;
    const std::vector<std::string> words = words_of(text);
    if (words.size() < 2 || words[0].size() != 1) return false;
    const auto has_letter = [](const std::string& word) {
        return word.find_first_of("abcnd", 1) != std::string::npos;
    };
    return text.find_first_of("xyzuvw", 1) != std::string::npos ||
           std::count_if(words.begin() + 1, words.end(), has_letter) > 1;
}

named_group group_of_hall(const setting* row, std::string_view typed) {
    named_group result;
    result.group = row != nullptr ? group_of(*row) : space_group_of(decode_hall(typed));
    result.assumed.push_back("read as a Hall symbol");
    return result;
}

// A symbol that is no name.
named_group group_of_other(std::string_view symbol, const symbol_parts& parts,
                           const std::string& plain) {
    const std::string text = hall_text(plain);
    const setting* const row = find_tabulated_hall(text);
    if (row == nullptr && !may_be_hall(text)) refuse(symbol, parts);
    try {
        return group_of_hall(row, symbol);
    } catch (const unknown_symbol&) {
        if (is_plainly_hall(text)) {
            refuse_magnetic(symbol);
            throw;
        }
    }
    refuse(symbol, parts);
}

named_group group_of_name(const symbol_parts& parts, const setting& row) {
    named_group result;
    result.group = group_of(row);
    add_assumptions(parts, result);
    const setting* const hall = find_tabulated_hall(hall_text(parts.plain));
    if (hall != nullptr && hall->number != row.number) {
        result.alternatives.push_back("hall:" + std::string(hall->hall) + " (the Hall symbol, " +
                                      hall->name() + ")");
    }
    return result;
}

}  // namespace

named_group resolve_symbol(std::string_view symbol) {
    check_length(symbol);
    const std::string plain = plain_symbol(symbol);
    constexpr std::string_view prefix = "hall:";
    if (plain.starts_with(prefix)) {
        std::string_view typed = symbol.substr(symbol.find(':') + 1);
        typed.remove_prefix(std::min(typed.find_first_not_of(' '), typed.size()));
        return group_of_hall(find_tabulated_hall(hall_text(plain.substr(prefix.size()))), typed);
    }
    const symbol_parts parts = parts_of_symbol(symbol);
    if (parts.base.empty()) throw unknown_symbol("the symbol is empty");
    if (const setting* const row = find_named_setting(parts)) return group_of_name(parts, *row);
    return group_of_other(symbol, parts, plain);
}

std::vector<std::string> other_settings(const space_group& group) {
    std::vector<std::string> result;
    for (const setting& row : settings()) {
        if (row.number != group.row->number) continue;
        if (&row != group.row || !group.tabulated) result.push_back(row.name());
    }
    return result;
}

}  // namespace lomar
