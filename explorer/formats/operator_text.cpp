#include "formats/operator_text.h"

#include <array>
#include <cctype>
#include <vector>

namespace lomar {

unreadable_input::unreadable_input(int line, const std::string& reason)
    : std::runtime_error(line > 0 ? "line " + std::to_string(line) + ": " + reason : reason) {}

std::string shown(std::string_view text) {
    constexpr std::size_t most = 60;
    std::string result(text.substr(0, most));
    for (char& c : result) {
        if (std::iscntrl(static_cast<unsigned char>(c)) != 0) c = ' ';
    }
    return "'" + result + (text.size() > most ? "...'" : "'");
}

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_blank(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

/// What is wrong with a text; the caller knows which text it was.
struct bad_text {
    const char* reason;
};

constexpr std::size_t most_whole_digits = 15;
constexpr std::size_t most_decimals = 15;
constexpr std::int64_t largest_read = 100'000'000'000'000;

// The fraction that a decimal with so many digits after its point means.
fraction meaning_of(std::int64_t num, std::int64_t den, std::size_t digits) {
    const fraction exact(num, den);
    if (digits < 2 || exact.den() <= 24) return exact;
    constexpr std::int64_t largest = 24;
    for (std::int64_t d = 3; d <= largest; ++d) {
        if (digits == 2 && d != 3 && d != 6) continue;
        if (digits == 3 && d != 3 && d != 6 && d != 7 && d != 9 && d != 12 && d != 24) continue;
        // The nearest d-ths from below and above, and how far they are in units of 1 / (d den).
        const std::int64_t below = num % den * d / den;
        for (const std::int64_t part : {below, below + 1}) {
            const std::int64_t above_by = part * den - num % den * d;
            const bool rounded = 2 * above_by >= -d && 2 * above_by <= d;
            const bool cut = above_by >= 0 && above_by < d;
            if (rounded || cut) return fraction(num / den) + fraction(part, d);
        }
    }
    return exact;
}

class operator_scan {
public:
    explicit operator_scan(std::string_view text) : rest_(text) {}

    bool at_end() {
        skip_blanks();
        return rest_.empty();
    }
    bool take(char c) {
        if (at_end() || rest_[0] != c) return false;
        rest_.remove_prefix(1);
        return true;
    }
    bool at_number() { return !at_end() && (is_digit(rest_[0]) || rest_[0] == '.'); }

    // 0, 1 or 2 for x, y or z; 3 for anything else.
    std::size_t take_letter() {
        if (at_end()) return 3;
        const std::string_view letters = "xyz";
        const auto lower = static_cast<char>(std::tolower(static_cast<unsigned char>(rest_[0])));
        const std::size_t place = letters.find(lower);
        if (place == std::string_view::npos) return 3;
        rest_.remove_prefix(1);
        return place;
    }

    fraction take_number() {
        std::int64_t num = 0, den = 1;
        std::size_t whole = 0, digits = 0, decimals = 0;
        bool after_point = false;
        for (; !rest_.empty() && (is_digit(rest_[0]) || rest_[0] == '.'); rest_.remove_prefix(1)) {
            if (rest_[0] == '.') {
                if (after_point) throw bad_text{"a number has two points"};
                after_point = true;
                continue;
            }
            ++digits;
            // Further decimals change nothing of what is meant.
            if (after_point && (decimals == most_decimals || num >= largest_read)) continue;
            if (after_point) ++decimals;
            if (!after_point && (num != 0 || rest_[0] != '0') && ++whole > most_whole_digits) {
                throw bad_text{"a number is too large"};
            }
            num = num * 10 + (rest_[0] - '0');
            if (after_point) den *= 10;
        }
        if (digits == 0) throw bad_text{"a number has no digits"};
        return meaning_of(num, den, decimals);
    }

    fraction take_quotient() {
        fraction value = take_number();
        if (!take('/')) return value;
        if (!at_number()) throw bad_text{"a number is missing after '/'"};
        const fraction den = take_number();
        if (den.is_zero()) throw bad_text{"a denominator is 0"};
        return value /= den;
    }

private:
    void skip_blanks() {
        while (!rest_.empty() && is_blank(rest_[0])) rest_.remove_prefix(1);
    }

    std::string_view rest_;
};

// A term after its sign: a number, a letter, or both.
void read_term(operator_scan& scan, const fraction& sign, fraction_vector& row, fraction& shift) {
    fraction factor = sign;
    const bool number_first = scan.at_number();
    if (number_first) factor *= scan.take_quotient();
    const bool star = number_first && scan.take('*');
    const std::size_t letter = scan.take_letter();
    if (letter == 3) {
        if (!number_first || star) throw bad_text{"a number or one of x, y, z is missing"};
        shift += factor;
        return;
    }
    if (scan.take('/') || scan.take('*')) {
        throw bad_text{"a factor is written before its letter"};
    }
    row[letter] += factor;
}

void read_field(std::string_view text, fraction_vector& row, fraction& shift) {
    operator_scan scan(text);
    if (scan.at_end()) throw bad_text{"a coordinate is empty"};
    for (bool first = true; !scan.at_end(); first = false) {
        const bool minus = scan.take('-');
        const bool plus = !minus && scan.take('+');
        if (!first && !minus && !plus) throw bad_text{"a sign is missing between two terms"};
        read_term(scan, fraction(minus ? -1 : 1), row, shift);
    }
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
    return text;
}

// Without a number, such as `(2)`, `2)`, `2.` or `2`, before blanks.
std::string_view without_label(std::string_view text) {
    std::size_t at = 0;
    const bool bracket = text.starts_with('(');
    if (bracket) ++at;
    const std::size_t first = at;
    while (at < text.size() && is_digit(text[at])) ++at;
    if (at == first || at == text.size()) return text;
    if (text[at] == ')') return trimmed(text.substr(at + 1));
    if (bracket) return text;
    if ((text[at] == '.' || text[at] == ':') && at + 1 < text.size()) ++at;
    return is_blank(text[at]) ? trimmed(text.substr(at)) : text;
}

std::string_view unwrapped(std::string_view text) {
    text = trimmed(text);
    while (text.ends_with(',') || text.ends_with(';')) {
        text.remove_suffix(1);
        text = trimmed(text);
    }
    const bool quoted = text.size() >= 2 && text.front() == text.back() &&
                        (text.front() == '\'' || text.front() == '"');
    if (quoted) text = text.substr(1, text.size() - 2);
    return without_label(trimmed(text));
}

std::vector<std::string_view> fields_of(std::string_view text) {
    const bool commas = text.find(',') != std::string_view::npos;
    std::vector<std::string_view> fields;
    std::size_t start = 0;
    for (std::size_t at = 0; at <= text.size(); ++at) {
        const bool ends = at == text.size() || (commas ? text[at] == ',' : is_blank(text[at]));
        if (!ends) continue;
        if (commas || at > start) fields.push_back(text.substr(start, at - start));
        start = at + 1;
        if (fields.size() > 5) break;
    }
    return fields;
}

int read_time(std::string_view text) {
    text = trimmed(text);
    if (text == "1" || text == "+1") return 1;
    if (text == "-1") return -1;
    throw bad_text{"time reversal, the fourth field, is 1 or -1"};
}

given_operator read_operator(std::string_view text, int line) {
    const std::vector<std::string_view> fields = fields_of(text);
    if (fields.size() != 3 && fields.size() != 4) throw bad_text{"it needs three coordinates"};
    given_operator op;
    op.line = line;
    op.rot = {};
    for (std::size_t i = 0; i < 3; ++i) read_field(fields[i], op.rot[i], op.trans[i]);
    op.time_given = fields.size() == 4;
    if (op.time_given) op.time = read_time(fields[3]);
    return op;
}

// Typographic minus signs, which copied tables have, as plain ones.
std::string with_plain_signs(std::string_view text) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view next = text.substr(at, 3);
        if (next == "\xe2\x88\x92" || next == "\xe2\x80\x93") {
            result += '-';
            at += 3;
        } else {
            result += text[at++];
        }
    }
    return result;
}

}  // namespace

given_operator parse_operator(std::string_view text, int line) {
    const char* reason = nullptr;
    try {
        if (text.size() > 1000) throw bad_text{"it is too long"};
        const std::string plain = with_plain_signs(text);
        return read_operator(unwrapped(plain), line);
    } catch (const bad_text& bad) {
        reason = bad.reason;
    } catch (const std::overflow_error&) {
        reason = "a number is too large";
    }
    throw unreadable_input(line, shown(trimmed(text)) + " is no operator: " + reason);
}

}  // namespace lomar
