#include "page/diagrams.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "drawing/svg_writer.h"

namespace lomar {

namespace {

// The pair that printed tables have comes first.
std::vector<std::string> keys_of(const drawn_group& group) {
    const int axis = customary_axis(group.operators);
    const auto letter = [&](int step) { return "abc"[(axis + step) % 3]; };
    return {std::string("elements-") + letter(0), std::string("positions-") + letter(0),
            std::string("elements-") + letter(1), std::string("elements-") + letter(2)};
}

std::string section_of(const drawn_group& group, bool filled) {
    std::string result = "<section id=\"diagrams\"><h2>Diagrams</h2>\n<div class=\"figures\">\n";
    for (const std::string& key : keys_of(group)) {
        result += filled ? "<figure>" + figure_content(group, key)
                         : "<figure data-figure=\"" + key + "\">";
        result += "</figure>\n";
    }
    return result + "</div></section>\n";
}

}  // namespace

std::string diagram_section(const drawn_group& group) { return section_of(group, true); }

std::string empty_diagram_section(const drawn_group& group) { return section_of(group, false); }

diagram_options figure_options(std::string_view key) {
    const bool positions = key.starts_with("positions-");
    const std::string_view axis = key.substr(std::min(key.find('-'), key.size() - 1) + 1);
    if ((!positions && !key.starts_with("elements-")) || axis.size() != 1 || axis[0] < 'a' ||
        axis[0] > 'c') {
        throw std::invalid_argument("no figure has this key");
    }
    diagram_options options;
    options.what = positions ? diagram_part::positions : diagram_part::elements;
    options.axis = axis[0] - 'a';
    return options;
}

std::string figure_content(const drawn_group& group, std::string_view key) {
    diagram_options options = figure_options(key);
    options.name = group.name;
    options.standalone = false;
    options.with_time = group.magnetic;
    const bool positions = options.what == diagram_part::positions;
    options.prefix = std::string(positions ? "p" : "d") + "abc"[options.axis];
    return diagram_svg(group.operators, options) + "<figcaption>" +
           (positions ? "General positions" : "Symmetry elements") + " along <i>" +
           "abc"[options.axis] + "</i></figcaption>";
}

}  // namespace lomar
