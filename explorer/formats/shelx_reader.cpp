#include <charconv>
#include <cstdlib>
#include <optional>

#include "formats/readers.h"
#include "formats/text_lines.h"

namespace lomar {

namespace {

// Centring vectors of the lattice numbers 1 to 7: P, I, R (obverse, hexagonal axes), F, A, B, C.
std::vector<fraction_vector> centring_of(int lattice) {
    const fraction half(1, 2), third(1, 3), two_thirds(2, 3), null;
    switch (lattice) {
        case 2:
            return {{}, {half, half, half}};
        case 3:
            return {{}, {two_thirds, third, third}, {third, two_thirds, two_thirds}};
        case 4:
            return {{}, {null, half, half}, {half, null, half}, {half, half, null}};
        case 5:
            return {{}, {null, half, half}};
        case 6:
            return {{}, {half, null, half}};
        case 7:
            return {{}, {half, half, null}};
        default:
            return {{}};
    }
}

struct shelx_cards_read {
    std::optional<int> lattice;
    int lattice_line = 0;
    std::vector<given_operator> operators = {given_operator()};
};

int read_lattice(std::string_view text, int line) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front())) != 0) {
        text.remove_prefix(1);
    }
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const auto place = static_cast<std::size_t>(end - text.data());
    if (error != std::errc() || value == 0 || std::abs(value) > 7 ||
        !is_blank_text(text.substr(place))) {
        throw unreadable_input(line, "LATT takes a number from 1 to 7, or its negative");
    }
    return value;
}

// A card that ends in `=` goes on in the next line, after a blank.
std::string whole_card(text_lines& lines) {
    constexpr std::size_t longest = 2000;
    const auto without_comment = [&] { return lines.line().substr(0, lines.line().find('!')); };
    std::string card(without_comment());
    for (;;) {
        const std::size_t last = card.find_last_not_of(" \t");
        if (last == std::string::npos || card[last] != '=' || card.size() > longest) return card;
        card.resize(last);
        if (!lines.next()) return card;
        card += without_comment();
    }
}

// One card; false at the end of the instructions.
bool read_card(std::string_view line, int number, shelx_cards_read& cards) {
    const std::string word = capitals(line.substr(0, 4));
    std::string_view rest = line.substr(std::min<std::size_t>(4, line.size()));
    if (word == "SYMM") {
        if (cards.operators.size() > 100'000) {
            throw unreadable_input(number, "more than 100000 operators");
        }
        cards.operators.push_back(parse_operator(rest, number));
    } else if (word == "LATT") {
        if (cards.lattice) throw unreadable_input(number, "a second LATT card");
        cards.lattice = read_lattice(rest, number);
        cards.lattice_line = number;
    }
    return word != "HKLF" && word != "END" && word != "END ";
}

}  // namespace

std::vector<operator_block> read_shelx(std::string_view text) {
    shelx_cards_read cards;
    text_lines lines(text);
    bool go_on = true;
    while (go_on && lines.next()) {
        const int number = lines.number();
        go_on = read_card(whole_card(lines), number, cards);
    }
    if (!cards.lattice && cards.operators.size() == 1) {
        throw unreadable_input("there is no LATT and no SYMM card");
    }
    // Without a card the lattice is 1: primitive, with the inversion.
    const int lattice = cards.lattice.value_or(1);
    std::vector<operator_block> blocks(1);
    for (const fraction_vector& shift : centring_of(std::abs(lattice))) {
        for (const int sign : {1, -1}) {
            if (sign < 0 && lattice < 0) continue;
            for (given_operator op : cards.operators) {
                for (std::size_t i = 0; i < 3; ++i) {
                    for (fraction& entry : op.rot[i]) entry *= fraction(sign);
                    op.trans[i] = op.trans[i] * fraction(sign) + shift[i];
                }
                add_operator(blocks[0], op);
            }
        }
    }
    return blocks;
}

}  // namespace lomar
