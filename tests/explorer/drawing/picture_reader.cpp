#include "picture_reader.h"

#include <algorithm>
#include <stdexcept>

#include "drawing/diagram.h"
#include "group/basis_change.h"

namespace lomar::drawing_test {

const std::string& tag::at(const std::string& attribute) const { return attributes.at(attribute); }

bool tag::has_class(std::string_view wanted) const {
    const auto found = attributes.find("class");
    return found != attributes.end() && found->second == wanted;
}

std::vector<tag> read_tags(std::string_view markup) {
    const auto fail = [] { throw std::runtime_error("not well formed"); };
    std::vector<tag> result;
    std::vector<std::string> open;
    while (true) {
        const std::size_t start = markup.find('<');
        if (start == std::string_view::npos) break;
        const std::size_t end = markup.find('>', start);
        if (end == std::string_view::npos) fail();
        std::string_view inner = markup.substr(start + 1, end - start - 1);
        markup.remove_prefix(end + 1);
        if (inner.starts_with('/')) {
            if (open.empty() || open.back() != inner.substr(1)) fail();
            open.pop_back();
            continue;
        }
        const bool empty = inner.ends_with('/');
        if (empty) inner.remove_suffix(1);
        tag each;
        const std::size_t name_end = inner.find(' ');
        each.name = inner.substr(0, name_end);
        inner.remove_prefix(std::min(inner.size(), each.name.size()));
        while (!inner.empty()) {
            const std::size_t equals = inner.find("=\"");
            const std::size_t quote = inner.find('"', equals + 2);
            if (inner[0] != ' ' || equals == std::string_view::npos ||
                quote == std::string_view::npos) {
                fail();
            }
            const std::string name(inner.substr(1, equals - 1));
            const std::string value(inner.substr(equals + 2, quote - equals - 2));
            if (!each.attributes.emplace(name, value).second) fail();
            inner.remove_prefix(quote + 1);
        }
        if (!empty) open.push_back(each.name);
        result.push_back(each);
    }
    if (!open.empty()) fail();
    return result;
}

fraction part_of(const std::vector<tag>& tags) {
    for (const tag& each : tags) {
        const auto found = each.attributes.find("data-part");
        if (found != each.attributes.end()) return parse_number(split(found->second, ',')[0]);
    }
    return 1;
}

namespace {

// A size in pixels that the style gives after some words.
double size_after(std::string_view words) {
    const std::string style(diagram_style());
    const std::size_t at = style.find(words);
    if (at == std::string::npos) throw std::runtime_error("no such size in the style");
    return std::stod(style.substr(at + words.size()));
}

}  // namespace

double small_text_of(const std::vector<tag>& tags) {
    const bool is_dense = std::any_of(tags.begin(), tags.end(),
                                      [](const tag& each) { return each.has_class("dense"); });
    const double size = size_after(is_dense ? ".dense{font-size:" : "height:auto;font:");
    return size * 300 / std::stod(tags.front().at("width"));
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> result(1);
    for (const char c : text) {
        if (c == separator) {
            result.emplace_back();
        } else {
            result.back() += c;
        }
    }
    return result;
}

namespace {

// `-x+1/2`: the number, and the factor of the letter.
std::pair<fraction, fraction> read_coordinate(const std::string& text, char letter) {
    const std::size_t where = text.find(letter);
    if (where == std::string::npos) return {parse_number(text), 0};
    const std::string factor = text.substr(0, where);
    const std::string rest = text.substr(where + 1);
    return {rest.empty() ? fraction(0) : parse_number(rest[0] == '+' ? rest.substr(1) : rest),
            factor.empty()  ? fraction(1)
            : factor == "-" ? fraction(-1)
                            : parse_number(factor)};
}

}  // namespace

place read_place(std::string_view text, std::string_view letters) {
    const auto texts = split(text, ',');
    if (texts.size() != 2) throw std::runtime_error("no place: " + std::string(text));
    const bool has_first = text.find(letters[0]) != std::string_view::npos;
    const char letter = letters[has_first ? 0 : 1];
    place result;
    for (std::size_t i = 0; i < 2; ++i) {
        std::tie(result.point[i], result.direction[i]) = read_coordinate(texts[i], letter);
    }
    return result;
}

std::string place::key(const fraction& part) const {
    const auto reduced = [&](const fraction& x) { return (x / part).modulo_one().text(); };
    if (!is_line()) return reduced(point[0]) + "," + reduced(point[1]);
    // p x + q y = offset with p, q in lowest terms; the offset counts modulo the part.
    fraction p = direction[1];
    fraction q = -direction[0];
    const fraction scale = p.is_zero() ? q : p;
    const std::int64_t den = (q / scale).den() * (p / scale).den();
    p = p / scale * fraction(den);
    q = q / scale * fraction(den);
    return p.text() + "x+" + q.text() + "y=" + reduced(p * point[0] + q * point[1]);
}

bool place::meets_cell(const fraction& part) const {
    if (!is_line()) {
        return point[0] >= 0 && point[0] <= part && point[1] >= 0 && point[1] <= part;
    }
    const fraction p = direction[1];
    const fraction q = -direction[0];
    const fraction offset = p * point[0] + q * point[1];
    const auto [least, most] = std::minmax({fraction(0), p, q, p + q});
    return part * least <= offset && offset <= part * most;
}

place plane_operator::operator()(const place& old) const {
    place result;
    for (std::size_t i = 0; i < 2; ++i) {
        result.point[i] = trans[i];
        for (std::size_t j = 0; j < 2; ++j) {
            result.point[i] += fraction(rot[i][j]) * old.point[j];
            result.direction[i] += fraction(rot[i][j]) * old.direction[j];
        }
    }
    return result;
}

}  // namespace lomar::drawing_test
