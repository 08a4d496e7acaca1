#include "page/symbol_markup.h"

#include <algorithm>

#include "drawing/svg_writer.h"

namespace lomar {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// Whether two digits are an axis and its screw: 21, 42, 65.
bool is_screw(char axis, char screw) {
    return (axis == '2' || axis == '3' || axis == '4' || axis == '6') && screw > '0' &&
           screw < axis;
}

// A character that is there to be copied, and takes no place on the page.
std::string unseen(char c) { return std::string("<span class=\"unseen\">") + c + "</span>"; }

}  // namespace

std::string symbol_markup(std::string_view symbol) {
    if (symbol.starts_with("hall:")) return "<code>" + escaped(symbol) + "</code>";
    // What follows a colon is a choice of axes or origin.
    const std::size_t end = std::min(symbol.find(':'), symbol.size());
    const auto at = [&](std::size_t i) { return i < end ? symbol[i] : '\0'; };
    std::string result = "<span class=\"symbol\">";
    for (std::size_t i = 0; i < end; ++i) {
        const char c = symbol[i];
        const char next = at(i + 1);
        if (c == '-' && is_digit(next)) {
            result += unseen('-') + "<span class=\"bar\">" + next + "</span>";
            ++i;
        } else if (c == '_' && (is_digit(next) || is_letter(next))) {
            result += unseen('_') + "<sub>" + next + "</sub>";
            ++i;
        } else if (is_digit(c) && is_screw(c, next) && !is_digit(at(i + 2))) {
            result += std::string(1, c) + "<sub>" + next + "</sub>";
            ++i;
        } else if (is_letter(c)) {
            result += std::string("<i>") + c + "</i>";
        } else {
            result += escaped(symbol.substr(i, 1));
        }
    }
    return result + escaped(symbol.substr(end)) + "</span>";
}

std::string schoenflies_markup(std::string_view symbol) {
    const std::size_t raised = symbol.find('^');
    std::string result = "<span class=\"symbol\"><i>" + escaped(symbol.substr(0, 1)) + "</i><sub>" +
                         escaped(symbol.substr(0, raised).substr(1)) + "</sub>";
    if (raised != std::string_view::npos) {
        result += unseen('^') + "<sup>" + escaped(symbol.substr(raised + 1)) + "</sup>";
    }
    return result + "</span>";
}

}  // namespace lomar
