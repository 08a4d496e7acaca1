#include "group/coordinate_text.h"

#include <stdexcept>
#include <string>

#include "group/basis_change.h"
#include "group/message.h"
#include "group/text_fields.h"

namespace lomar {

namespace {

[[noreturn]] void refuse(std::string_view term) {
    throw std::invalid_argument("no coordinate can be read from '" + one_line(term) + "'");
}

// The factor of a letter: the number before it, divided by the one after it.
fraction factor_of(std::string_view before, std::string_view after, std::string_view term) {
    if (before.ends_with('*')) before.remove_suffix(1);
    fraction factor = before.empty() ? fraction(1) : parse_number(before);
    if (after.empty()) return factor;
    if (after[0] != '/') refuse(term);
    const fraction divisor = parse_number(after.substr(1));
    if (divisor.is_zero()) refuse(term);
    return factor / divisor;
}

// One term without its sign.
void add_term(std::string_view term, int sign, std::array<fraction, 3>& row, fraction& shift) {
    const std::size_t letter = term.find_first_of("xyz");
    if (letter == std::string_view::npos) {
        shift += fraction(sign) * parse_number(term);
        return;
    }
    const fraction factor = factor_of(term.substr(0, letter), term.substr(letter + 1), term);
    row[static_cast<std::size_t>(term[letter] - 'x')] += fraction(sign) * factor;
}

void read_expression(std::string_view text, std::array<fraction, 3>& row, fraction& shift) {
    const std::string_view whole = text;
    while (!text.empty()) {
        int sign = 1;
        if (text[0] == '+' || text[0] == '-') {
            sign = text[0] == '-' ? -1 : 1;
            text.remove_prefix(1);
        }
        const std::string_view term = text.substr(0, text.find_first_of("+-"));
        if (term.empty()) refuse(whole);
        add_term(term, sign, row, shift);
        text.remove_prefix(term.size());
    }
}

}  // namespace

coordinate_text parse_coordinates(std::string_view text) {
    std::string plain(text);
    std::erase(plain, ' ');
    std::string_view rest = plain;
    coordinate_text result;
    result.matrix = {};
    for (std::size_t row = 0; row < 3; ++row) {
        const std::string_view field = take_field(rest, ',');
        if (field.empty()) throw std::invalid_argument("three coordinates are wanted");
        read_expression(field, result.matrix[row], result.shift[row]);
    }
    if (!rest.empty()) throw std::invalid_argument("three coordinates are wanted");
    return result;
}

}  // namespace lomar
