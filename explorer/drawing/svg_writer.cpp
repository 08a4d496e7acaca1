#include "drawing/svg_writer.h"

#include <cmath>

namespace lomar {

namespace {

// The length of the UTF-8 sequence of a character that XML allows, 0 for anything else.
std::size_t length_of_character(std::string_view text) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u;
    };
    const unsigned first = byte(0);
    if (first < 0x80) return first >= 0x20 ? first != 0x7f : first == '\n' || first == '\t';
    const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4) return 0;
    unsigned code = first & (0x7fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xc0) != 0x80) return 0;
        code = code << 6 | (byte(i) & 0x3f);
    }
    constexpr unsigned least[] = {0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xd800 && code <= 0xdfff;
    const bool allowed = code >= least[length - 2] && code <= 0x10ffff && !surrogate &&
                         code != 0xfffe && code != 0xffff;
    return allowed ? length : 0;
}

}  // namespace

std::string svg_number(double value) {
    if (!std::isfinite(value) || std::fabs(value) > 1e9) return "0";
    // Ties, and what differs from one by rounding alone, go up on every machine.
    const auto tenths = static_cast<long long>(std::floor(value * 10 + 0.5 + 1e-6));
    const long long size = tenths < 0 ? -tenths : tenths;
    std::string result = (tenths < 0 ? "-" : "") + std::to_string(size / 10);
    if (size % 10 != 0) result += "." + std::to_string(size % 10);
    return result;
}

std::string escaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t length = length_of_character(text);
        const char first = text.front();
        if (length == 0) {
            result += '?';
        } else if (first == '&') {
            result += "&amp;";
        } else if (first == '<') {
            result += "&lt;";
        } else if (first == '>') {
            result += "&gt;";
        } else if (first == '"') {
            result += "&quot;";
        } else {
            result += text.substr(0, length);
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return result;
}

void svg_writer::end_of_tag() {
    if (in_tag) out += '>';
    in_tag = false;
}

svg_writer& svg_writer::open(std::string_view tag) {
    end_of_tag();
    out.append("<").append(tag);
    tags.emplace_back(tag);
    in_tag = true;
    return *this;
}

svg_writer& svg_writer::attribute(std::string_view name, std::string_view value) {
    out.append(" ").append(name).append("=\"").append(escaped(value)).append("\"");
    return *this;
}

svg_writer& svg_writer::attribute(std::string_view name, double value) {
    return attribute(name, svg_number(value));
}

svg_writer& svg_writer::text(std::string_view content) {
    end_of_tag();
    out += escaped(content);
    return *this;
}

svg_writer& svg_writer::markup(std::string_view content) {
    end_of_tag();
    out += content;
    return *this;
}

svg_writer& svg_writer::close() {
    if (in_tag) {
        out += "/>";
        in_tag = false;
    } else {
        out.append("</").append(tags.back()).append(">");
    }
    tags.pop_back();
    return *this;
}

}  // namespace lomar
