#include "formats/cif_number.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace lomar {

namespace {

constexpr int most_digits = 15;
constexpr int most_exact_decimals = 6;

std::int64_t power_of_ten(int n) {
    std::int64_t result = 1;
    for (; n > 0; --n) result *= 10;
    return result;
}

bool is_digit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

std::int64_t rounded(const fraction& value) { return (value + fraction(1, 2)).floor(); }

// A third or a sixth that was rounded, or cut, to these decimals.
fraction snapped(const cif_number& number) {
    if (number.decimals < 3 || number.uncertainty > 0) return number.value;
    const std::int64_t scale = power_of_ten(number.decimals);
    const fraction sixth(rounded(number.value * fraction(6)), 6);
    const fraction distance = (number.value - sixth) * fraction(scale);
    return distance < fraction(1) && distance > fraction(-1) ? sixth : number.value;
}

std::string with_point(std::int64_t scaled, int decimals) {
    const bool negative = scaled < 0;
    std::string digits = std::to_string(negative ? -scaled : scaled);
    const auto n = static_cast<std::size_t>(decimals);
    if (digits.size() <= n) digits.insert(0, n + 1 - digits.size(), '0');
    if (n > 0) digits.insert(digits.size() - n, 1, '.');
    return (negative ? "-" : "") + digits;
}

// The decimals that leave one or two digits of the uncertainty.
int decimals_for(double uncertainty, int decimals) {
    while (decimals > 0 && uncertainty * static_cast<double>(power_of_ten(decimals)) >= 99.5) {
        --decimals;
    }
    return decimals;
}

std::string uncertainty_text(double uncertainty, int decimals) {
    const double scaled = uncertainty * static_cast<double>(power_of_ten(decimals));
    return "(" + std::to_string(std::max<std::int64_t>(1, std::llround(scaled))) + ")";
}

}  // namespace

std::optional<cif_number> read_cif_number(std::string_view text) {
    std::size_t at = 0;
    const bool negative = !text.empty() && text[0] == '-';
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) ++at;
    std::int64_t digits = 0;
    int n_digits = 0;
    bool after_point = false;
    cif_number result;
    for (; at < text.size() && (is_digit(text[at]) || text[at] == '.'); ++at) {
        if (text[at] == '.') {
            if (after_point) return std::nullopt;
            after_point = true;
            continue;
        }
        if (++n_digits > most_digits) return std::nullopt;
        digits = 10 * digits + (text[at] - '0');
        if (after_point) ++result.decimals;
    }
    if (n_digits == 0) return std::nullopt;
    result.value = fraction(negative ? -digits : digits, power_of_ten(result.decimals));
    if (at < text.size()) {
        const std::string_view rest = text.substr(at);
        if (rest.size() < 3 || rest.size() > 10 || rest.front() != '(' || rest.back() != ')' ||
            !std::all_of(rest.begin() + 1, rest.end() - 1, is_digit)) {
            return std::nullopt;
        }
        const double last_digits = std::stod(std::string(rest.substr(1, rest.size() - 2)));
        result.uncertainty = last_digits / static_cast<double>(power_of_ten(result.decimals));
    }
    result.value = snapped(result);
    return result;
}

std::string cif_number_text(const fraction& value, int decimals, double uncertainty) {
    if (uncertainty > 0) {
        const int n = decimals_for(uncertainty, decimals);
        return with_point(rounded(value * fraction(power_of_ten(n))), n) +
               uncertainty_text(uncertainty, n);
    }
    int n = decimals;
    while (n < most_exact_decimals && !(value * fraction(power_of_ten(n))).is_integer()) ++n;
    return with_point(rounded(value * fraction(power_of_ten(n))), n);
}

std::string cif_number_text(double value, int decimals, double uncertainty) {
    const int n = uncertainty > 0 ? decimals_for(uncertainty, decimals) : decimals;
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", n, value);
    std::string result = text;
    if (result.find_first_not_of("-0.") == std::string::npos && result[0] == '-')
        result.erase(0, 1);
    return uncertainty > 0 ? result + uncertainty_text(uncertainty, n) : result;
}

}  // namespace lomar
