#include "formats/stated_names.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <set>

#include "group/names.h"

namespace lomar {

namespace {

std::optional<named_group> resolved(const std::string& symbol) {
    try {
        return resolve_symbol(symbol);
    } catch (const unknown_symbol&) {
        return std::nullopt;
    }
}

std::string described(const setting& row) {
    return row.name() + " (" + std::to_string(row.number) + ")";
}

// The symbol without blanks and without the axes that have no symmetry, so that neither the choice
// of a monoclinic axis nor full and short forms differ.
std::string short_form(std::string_view symbol) {
    std::string result;
    std::string part;
    for (std::size_t at = 0; at <= symbol.size(); ++at) {
        if (at < symbol.size() && symbol[at] != ' ') {
            part += symbol[at];
            continue;
        }
        if (part != "1") result += part;
        part.clear();
    }
    return result;
}

bool has_choice(const std::string& symbol) { return symbol.find(':') != std::string::npos; }

bool leaves_axis_open(const named_group& named) {
    return std::any_of(named.assumed.begin(), named.assumed.end(),
                       [](const std::string& text) { return text.starts_with("unique axis"); });
}

// Whether a symbol can mean a setting, by what it says and what it leaves open.
bool fits(const std::string& symbol, const named_group& named, const setting& found) {
    const setting& row = *named.group.row;
    if (has_choice(symbol)) return row.name() == found.name();
    if (leaves_axis_open(named)) return short_form(row.symbol) == short_form(found.symbol);
    return row.symbol == found.symbol;
}

// Whether a stated name is that of another group, of any axes; if so, says it.
bool means_another(const std::string& stated, const named_group& named, const identification& found,
                   std::vector<std::string>& result) {
    const setting& row = *named.group.row;
    if (row.number == found.row->number) return false;
    result.push_back(stated + " means " + described(row) + ", but the operators are those of " +
                     described(*found.row));
    return true;
}

void check_symbol(const operator_block& block, const identification& found,
                  std::vector<std::string>& result) {
    if (block.symbol.empty()) return;
    const auto named = resolved(block.symbol);
    const std::string stated = "the symbol " + shown(block.symbol);
    if (!named) {
        result.push_back(stated + " names no space group; the operators are those of " +
                         described(*found.row));
        return;
    }
    if (means_another(stated, *named, found, result)) return;
    const setting& row = *named->group.row;
    if (!named->group.tabulated) return;
    if (found.match == match_kind::transformed) {
        result.push_back(stated + " means " + row.name() +
                         ", but the operators are in axes that no table has");
        return;
    }
    const bool equal = std::find(found.also.begin(), found.also.end(), &row) != found.also.end();
    if (!equal && !fits(block.symbol, *named, *found.row)) {
        result.push_back(stated + " means " + row.name() +
                         ", but the operators are in the axes of " + found.row->name());
    }
}

void check_hall(const operator_block& block, const completed_group& group,
                const identification& found, std::vector<std::string>& result) {
    const bool own = found.match == match_kind::exact && block.hall == found.row->hall;
    if (block.hall.empty() || own) return;
    const auto named = resolved("hall:" + block.hall);
    const std::string stated = "the Hall symbol " + shown(block.hall);
    if (!named) {
        result.push_back(stated + " can't be read");
        return;
    }
    if (means_another(stated, *named, found, result)) return;
    const std::vector<symop> given = operators_of_cell(group);
    const std::set<symop> wanted(named->group.operators.begin(), named->group.operators.end());
    if (std::set<symop>(given.begin(), given.end()) != wanted) {
        result.push_back(stated + " means other axes or another origin than the operators have");
    }
}

std::string compact(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (std::isspace(static_cast<unsigned char>(c)) == 0) result += c;
    }
    return result;
}

void check_magnetic_name(const std::string& stated, const char* what,
                         const magnetic_identification& found, std::vector<std::string>& result) {
    if (stated.empty()) return;
    const std::string name = compact(stated);
    const magnetic_facts* facts = nullptr;
    try {
        facts = &find_magnetic(name);
    } catch (const unknown_symbol&) {
        facts = nullptr;
    }
    if (facts == found.row) return;
    result.push_back(std::string("the ") + what + " " + shown(stated) +
                     (facts == nullptr ? " names no magnetic group" : "") +
                     (facts == nullptr ? "; " : ", but ") + "the operators are those of " +
                     std::string(found.row->bns_symbol) + " (" +
                     std::string(found.row->bns_number) + ")");
}

}  // namespace

std::vector<std::string> contradictions_of(const operator_block& block,
                                           const completed_group& group,
                                           const identification& found) {
    std::vector<std::string> result;
    if (block.number != 0 && block.number != found.row->number) {
        result.push_back("the input has the number " + std::to_string(block.number) +
                         ", but the operators are those of " + described(*found.row));
    }
    check_symbol(block, found, result);
    check_hall(block, group, found, result);
    return result;
}

std::vector<std::string> contradictions_of(const operator_block& block,
                                           const magnetic_identification& found) {
    std::vector<std::string> result;
    check_magnetic_name(block.bns_number, "BNS number", found, result);
    check_magnetic_name(block.bns_symbol, "BNS symbol", found, result);
    return result;
}

}  // namespace lomar
