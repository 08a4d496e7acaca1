#include "group/magnetic_group.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>

#include "group/embedded_data.h"
#include "group/library_adapter.h"
#include "group/suggestions.h"
#include "group/symbol_text.h"
#include "group/text_fields.h"

namespace lomar {

namespace {

// The names with the prime as people write it, and without the comments.
const std::string& names_text() {
    static const std::string text = [] {
        std::string result(magnetic_names_data);
        result.erase(0, result.find("\n\n") + 2);
        std::replace(result.begin(), result.end(), '^', '\'');
        return result;
    }();
    return text;
}

magnetic_facts facts_of(std::string_view line, std::string_view uni_line) {
    magnetic_facts facts;
    for (std::string_view* field :
         {&facts.bns_number, &facts.og_number, &facts.bns_symbol, &facts.og_symbol}) {
        *field = take_field(line, ' ');
    }
    for (int* field : {&facts.type, &facts.family_number, &facts.parent_number}) {
        *field = whole_number(take_field(line, ' '));
    }
    facts.lattice = line[0];
    take_field(uni_line, '\t');
    facts.uni_symbol = take_field(uni_line, '\t');
    facts.og_to_bns = uni_line;
    return facts;
}

std::vector<magnetic_facts> read_facts() {
    std::vector<magnetic_facts> result;
    result.reserve(1651);
    std::string_view names = names_text();
    std::string_view uni = magnetic_uni_data;
    take_field(uni, '\n');
    while (!names.empty()) {
        result.push_back(facts_of(take_field(names, '\n'), take_field(uni, '\n')));
        result.back().uni_number = static_cast<int>(result.size());
    }
    return result;
}

// The operators of a group, as the data file has them.
std::vector<symop> listed_operators(std::string_view bns_number) {
    const std::string head = std::string("\n").append(bns_number).append(" ");
    const std::size_t found = magnetic_groups_data.find(head);
    if (found == std::string_view::npos) {
        throw std::out_of_range("no magnetic group has the number " + std::string(bns_number));
    }
    std::string_view text = magnetic_groups_data.substr(found + 1);
    take_field(text, '\n');
    const int count = whole_number(take_field(text, '\n'));
    return operators_of_lines(text, count);
}

std::string plain_name(std::string_view name) {
    std::string result;
    for (const char c : in_ascii(name)) {
        if (c != ' ' && c != '$' && c != '{' && c != '}') result += c == '^' ? '\'' : c;
    }
    return result;
}

struct notation_field {
    const char* name;
    std::string_view magnetic_facts::*field;
};

constexpr notation_field notations[] = {
    {"BNS number", &magnetic_facts::bns_number}, {"OG number", &magnetic_facts::og_number},
    {"BNS symbol", &magnetic_facts::bns_symbol}, {"OG symbol", &magnetic_facts::og_symbol},
    {"UNI symbol", &magnetic_facts::uni_symbol},
};

// The first groups of a space group's number.
std::vector<std::string> numbers_after(const std::string& number) {
    std::vector<std::string> result;
    for (const magnetic_facts& row : magnetic_groups()) {
        const bool belongs = row.bns_number.substr(0, row.bns_number.find('.')) == number;
        if (belongs && result.size() < most_suggestions) result.emplace_back(row.bns_number);
    }
    return result;
}

std::vector<std::string> near_magnetic(std::string_view name) {
    if (name.size() > longest_symbol) return {};
    const std::string plain = plain_name(name);
    if (auto numbers = numbers_after(plain); !numbers.empty()) return numbers;
    const int farthest = std::min(3000, static_cast<int>(plain.size()) * 500);
    std::vector<std::pair<int, std::string>> found;
    for (const magnetic_facts& row : magnetic_groups()) {
        for (const notation_field& by : notations) {
            const std::string_view known = row.*by.field;
            const int distance = slips_between(plain, known, farthest);
            if (distance < farthest) found.emplace_back(distance, known);
        }
    }
    return nearest(std::move(found));
}

}  // namespace

std::span<const magnetic_facts> magnetic_groups() {
    static const std::vector<magnetic_facts> rows = read_facts();
    return rows;
}

magnetic_group group_of(const magnetic_facts& row) {
    magnetic_group result;
    result.row = &row;
    result.centring = centring_of_letter(row.lattice);
    const std::vector<symop> listed = listed_operators(row.bns_number);
    for (const fraction_vector& vector : result.centring) {
        for (symop op : listed) {
            op.trans = modulo_one(op.trans + vector);
            result.operators.push_back(op);
        }
    }
    return result;
}

const magnetic_facts* find_magnetic_exactly(std::string_view name, std::string* notation) {
    if (name.size() > longest_symbol) return nullptr;
    const std::string plain = plain_name(name);
    for (const notation_field& by : notations) {
        for (const magnetic_facts& row : magnetic_groups()) {
            if (row.*by.field != plain) continue;
            if (notation != nullptr) *notation = by.name;
            return &row;
        }
    }
    return nullptr;
}

const magnetic_facts& find_magnetic(std::string_view name, std::string* notation) {
    if (const magnetic_facts* const row = find_magnetic_exactly(name, notation)) return *row;
    throw unknown_symbol(in_quotes(name) + " names no magnetic group" +
                         near_text(near_magnetic(name)));
}

bool looks_magnetic(std::string_view name) {
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto next = static_cast<unsigned char>(i + 1 < name.size() ? name[i + 1] : ' ');
        if (name[i] == '\'' || (name[i] == '.' && std::isdigit(next) != 0)) return true;
        if (name[i] == '_' && std::isalpha(next) != 0) return true;
    }
    return false;
}

}  // namespace lomar
