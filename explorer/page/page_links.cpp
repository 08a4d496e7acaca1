#include "page/page_links.h"

#include "drawing/svg_writer.h"
#include "page/symbol_markup.h"

namespace lomar {

std::string anchor(const std::string& target, const std::string& markup) {
    return "<a href=\"" + escaped(target) + "\">" + markup + "</a>";
}

std::string page_links::link(const setting& row) const {
    const std::string name = symbol_markup(row.name());
    return to_setting ? anchor(to_setting(row), name) : name;
}

std::string page_links::link(const magnetic_facts& row) const {
    const std::string name = symbol_markup(row.bns_symbol);
    return to_magnetic ? anchor(to_magnetic(row), name) : name;
}

std::string page_links::family_list(int number, const magnetic_facts* left_out) const {
    std::string result;
    for (const magnetic_facts& row : magnetic_groups()) {
        if (row.family_number != number || &row == left_out) continue;
        result += "<li>" + link(row) + " (" + std::string(row.bns_number) + ")</li>\n";
    }
    return "<ul class=\"names\">\n" + result + "</ul>\n";
}

}  // namespace lomar
