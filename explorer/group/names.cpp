#include "group/names.h"

#include "group/assumptions.h"
#include "group/symbol_search.h"
#include "group/symbol_text.h"

namespace lomar {

namespace {

void check_length(std::string_view symbol) {
    if (symbol.size() > longest_symbol) {
        throw unknown_symbol(quoted(symbol) + " names no space group: it has " +
                             std::to_string(symbol.size()) + " characters");
    }
}

[[noreturn]] void refuse(std::string_view symbol) {
    throw unknown_symbol(quoted(symbol) + " names no space group");
}

}  // namespace

named_group resolve_symbol(std::string_view symbol) {
    check_length(symbol);
    const symbol_parts parts = parts_of_symbol(symbol);
    if (parts.plain.empty()) throw unknown_symbol("the symbol is empty");
    const setting* const row = find_named_setting(parts);
    if (row == nullptr) refuse(symbol);
    named_group result;
    result.group = group_of(*row);
    add_assumptions(parts, result);
    return result;
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
