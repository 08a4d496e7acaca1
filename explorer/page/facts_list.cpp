#include "page/facts_list.h"

#include "drawing/svg_writer.h"

namespace lomar {

void facts_list::add(std::string_view name, std::string_view text) {
    add_markup(name, escaped(text));
}

void facts_list::add_markup(std::string_view name, const std::string& content) {
    if (content.empty()) return;
    items += "<div><dt>" + escaped(name) + "</dt><dd>" + content + "</dd></div>\n";
}

std::string joined(const std::vector<std::string>& texts, std::string_view separator) {
    std::string result;
    for (const std::string& text : texts) {
        if (!result.empty()) result += separator;
        result += escaped(text);
    }
    return result;
}

}  // namespace lomar
