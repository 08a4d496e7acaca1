#include "group/basis_change.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <stdexcept>
#include <system_error>
#include <vector>

namespace lomar {

basis_change inverse(const basis_change& change) {
    const fraction_matrix back = inverse(change.matrix);
    return {back, fraction_vector{} - back * change.origin};
}

basis_change operator*(const basis_change& first, const basis_change& second) {
    return {first.matrix * second.matrix, first.matrix * second.origin + first.origin};
}

symop transformed(const symop& op, const basis_change& change) {
    const fraction_matrix back = inverse(change.matrix);
    symop result;
    result.rot = to_integers(back * to_fractions(op.rot) * change.matrix);
    result.trans = back * (op.rot * change.origin + op.trans - change.origin);
    result.time = op.time;
    return result;
}

fraction_vector transformed(const fraction_vector& point, const basis_change& change) {
    return inverse(change.matrix) * (point - change.origin);
}

std::string basis_text(const basis_change& change) {
    std::string result;
    for (std::size_t column = 0; column < 3; ++column) {
        if (column > 0) result += ',';
        bool first = true;
        for (std::size_t row = 0; row < 3; ++row) {
            const fraction& part = change.matrix[row][column];
            if (part.is_zero()) continue;
            if (part.num() > 0 && !first) result += '+';
            if (part == fraction(-1)) {
                result += '-';
            } else if (part != fraction(1)) {
                result += part.text();
            }
            result += "abc"[row];
            first = false;
        }
        if (first) result += '0';
    }
    return result;
}

namespace {

[[noreturn]] void refuse(std::string_view text, const char* what) {
    throw std::invalid_argument("'" + std::string(text) + "' is not " + what);
}

constexpr std::size_t most_digits = 18;
constexpr std::size_t most_decimals = 15;

// Reads from a text without blanks.
struct number_scan {
    std::string_view rest;

    bool at_digit() const {
        return !rest.empty() &&
               (rest[0] == '.' || std::isdigit(static_cast<unsigned char>(rest[0])));
    }
    char take() {
        const char c = rest[0];
        rest.remove_prefix(1);
        return c;
    }
    bool take_if(char c) {
        if (rest.empty() || rest[0] != c) return false;
        rest.remove_prefix(1);
        return true;
    }

    // An unsigned decimal, rounded to most_decimals; false when there is none or when it is too
    // long.
    bool decimal(fraction& value) {
        std::int64_t num = 0;
        std::int64_t den = 1;
        std::size_t digits = 0;
        std::size_t decimals = 0;
        bool after_point = false;
        for (; at_digit(); take()) {
            if (rest[0] == '.') {
                if (after_point) return false;
                after_point = true;
                continue;
            }
            if (after_point && ++decimals > most_decimals) {
                if (decimals == most_decimals + 1 && rest[0] >= '5') ++num;
                continue;
            }
            if (++digits > most_digits) return false;
            num = num * 10 + (rest[0] - '0');
            if (after_point) den *= 10;
        }
        if (digits == 0) return false;
        value = fraction(num, den);
        return true;
    }

    // An unsigned quotient of decimals, or one decimal.
    bool quotient(fraction& value) {
        if (!decimal(value)) return false;
        if (!take_if('/')) return true;
        fraction den;
        if (!decimal(den) || den.is_zero()) return false;
        value /= den;
        return true;
    }
};

std::string without_blanks(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (!std::isspace(static_cast<unsigned char>(c))) {
            result += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
    }
    return result;
}

// One axis: a sum of terms such as `-1/2a`, `2*b` or `c/2`.
bool read_axis(std::string_view text, fraction_vector& axis) {
    number_scan scan{text};
    if (scan.rest.empty()) return false;
    for (bool first = true; !scan.rest.empty(); first = false) {
        fraction factor(1);
        const bool minus = scan.take_if('-');
        if (!minus && !scan.take_if('+') && !first) return false;
        if (scan.at_digit() && !scan.quotient(factor)) return false;
        scan.take_if('*');
        if (scan.rest.empty() || scan.rest[0] < 'a' || scan.rest[0] > 'c') return false;
        const auto letter = static_cast<std::size_t>(scan.take() - 'a');
        if (scan.take_if('/')) {
            fraction den;
            if (!scan.decimal(den) || den.is_zero()) return false;
            factor /= den;
        }
        axis[letter] += minus ? -factor : factor;
    }
    return true;
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

bool read_signed(std::string_view text, fraction& value) {
    number_scan scan{text};
    const bool minus = scan.take_if('-');
    if (!minus) scan.take_if('+');
    if (!scan.quotient(value) || !scan.rest.empty()) return false;
    if (minus) value = -value;
    return true;
}

// Without the `(3)` of `0.25(3)`.
std::string_view without_uncertainty(std::string_view number) {
    const std::size_t bracket = number.find('(');
    if (bracket == std::string_view::npos || !number.ends_with(')')) return number;
    const std::string_view digits = number.substr(bracket + 1, number.size() - bracket - 2);
    const bool is_whole =
        !digits.empty() && digits.find_first_not_of("0123456789") == std::string_view::npos;
    return is_whole ? number.substr(0, bracket) : number;
}

// `-1.5e-3`, with twelve decimals.
bool read_with_exponent(std::string_view number, fraction& value) {
    const std::size_t letter = number.find_first_of("eE");
    if (letter == std::string_view::npos || !read_signed(number.substr(0, letter), value)) {
        return false;
    }
    std::string_view digits = number.substr(letter + 1);
    if (digits.starts_with('+')) digits.remove_prefix(1);
    int exponent = 0;
    const char* const last = digits.data() + digits.size();
    const auto [end, fault] = std::from_chars(digits.data(), last, exponent);
    const double real = value.to_double() * std::pow(10.0, exponent);
    constexpr double largest = 1e6;
    if (fault != std::errc() || end != last || !(std::abs(real) < largest)) return false;
    constexpr std::int64_t parts = 1'000'000'000'000;
    value = fraction(std::llround(real * static_cast<double>(parts)), parts);
    return true;
}

}  // namespace

fraction_matrix parse_basis(std::string_view text) {
    const std::string plain = without_blanks(text);
    const std::vector<std::string_view> parts = split(plain, ',');
    if (parts.size() != 3) refuse(text, "a basis such as a-c,b,c");
    fraction_matrix result;
    for (std::size_t column = 0; column < 3; ++column) {
        fraction_vector axis;
        if (!read_axis(parts[column], axis)) refuse(text, "a basis such as a-c,b,c");
        for (std::size_t row = 0; row < 3; ++row) result[row][column] = axis[row];
    }
    if (determinant(result).is_zero()) refuse(text, "a basis: its axes lie in one plane");
    return result;
}

fraction_vector parse_point(std::string_view text) {
    std::string spaced(text);
    for (char& c : spaced) {
        if (c == ',') c = ' ';
    }
    fraction_vector result;
    std::size_t count = 0;
    for (const std::string_view part : split(spaced, ' ')) {
        if (part.empty()) continue;
        if (count == 3 || !read_signed(part, result[count])) refuse(text, "three numbers");
        ++count;
    }
    if (count != 3) refuse(text, "three numbers");
    return result;
}

fraction parse_number(std::string_view text) {
    fraction result;
    if (!read_signed(without_blanks(text), result)) refuse(text, "a number");
    return result;
}

fraction parse_coordinate(std::string_view text) {
    const std::string plain = without_blanks(text);
    const std::string_view number = without_uncertainty(plain);
    fraction result;
    if (!read_signed(number, result) && !read_with_exponent(number, result)) {
        refuse(text, "a number");
    }
    return result;
}

}  // namespace lomar
