#include "formats/json.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace lomar {

namespace {

// Whether the text needs no escapes, which is the rule.
bool is_plain(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c >= ' ' && c <= '~' && c != '"' && c != '\\'; });
}

void add_text(std::string& result, const std::string& text) {
    if (is_plain(text)) {
        result.append("\"").append(text).append("\"");
    } else {
        result += json(text).dump(-1, ' ', false, json::error_handler_t::replace);
    }
}

void add_leaf(std::string& text, const json& value) {
    if (value.is_string()) {
        add_text(text, value.get_ref<const std::string&>());
    } else {
        text += value.dump();
    }
}

void add_key(std::string& text, const std::string& key) {
    add_text(text, key);
    text += ": ";
}

// One line, with blanks after colons and commas.
void add_line(std::string& text, const json& value) {
    if (!value.is_structured()) {
        add_leaf(text, value);
        return;
    }
    const bool is_object = value.is_object();
    text += is_object ? '{' : '[';
    bool first = true;
    for (auto member = value.begin(); member != value.end(); ++member) {
        if (!std::exchange(first, false)) text += ", ";
        if (is_object) add_key(text, member.key());
        add_line(text, *member);
    }
    text += is_object ? '}' : ']';
}

// Whether the value is worth several lines.
bool is_long(const json& value, int depth) {
    if (!value.is_structured() || value.empty()) return false;
    if (depth == 0) return true;
    return value.is_array() &&
           std::any_of(value.begin(), value.end(), [](const json& v) { return v.is_structured(); });
}

void add_value(std::string& text, const json& value, int depth) {
    if (depth > 1 || !is_long(value, depth)) return add_line(text, value);
    const bool is_object = value.is_object();
    const std::string indent(static_cast<std::size_t>(depth + 1) * 2, ' ');
    text += is_object ? "{\n" : "[\n";
    bool first = true;
    for (auto member = value.begin(); member != value.end(); ++member) {
        if (!std::exchange(first, false)) text += ",\n";
        text += indent;
        if (is_object) add_key(text, member.key());
        add_value(text, *member, depth + 1);
    }
    text.append("\n").append(indent, 2).append(is_object ? "}" : "]");
}

}  // namespace

json to_json(const fraction_vector& vector) {
    return {vector[0].text(), vector[1].text(), vector[2].text()};
}

json to_json(const basis_change& change) {
    json result;
    result["basis"] = basis_text(change);
    result["origin"] = to_json(change.origin);
    return result;
}

json text_or_null(std::string_view text) { return text.empty() ? json() : json(text); }

std::string json_text(const json& value) {
    std::string text;
    add_value(text, value, 0);
    return text + "\n";
}

}  // namespace lomar
