#include "drawing/diagram.h"

#include <algorithm>

#include "analysis/symmetry_element.h"
#include "drawing/picture.h"

namespace lomar {

namespace {

std::string title_of(const diagram_options& options) {
    constexpr const char* subjects[] = {"Symmetry elements", "General positions",
                                        "Symmetry elements and general positions"};
    std::string result = subjects[static_cast<int>(options.what)];
    if (!options.name.empty()) result += " of " + options.name;
    return result + ", projected along " + "abc"[options.axis];
}

std::string description_of(const picture& page) {
    return std::string("The cell with ") + page.letter(0) + " down the page, " + page.letter(1) +
           " to the right and " + page.letter(2) + " towards the reader. " + page.summary;
}

void write_head(svg_writer& out, const diagram_options& options, double width, double height) {
    out.open("svg");
    if (options.standalone) out.attribute("xmlns", "http://www.w3.org/2000/svg");
    out.attribute("class", "lomar-diagram");
    out.attribute("viewBox", "0 0 " + svg_number(width) + " " + svg_number(height));
    out.attribute("width", width).attribute("height", height);
    out.attribute("role", "img");
    const std::string title = options.prefix + "title";
    const std::string desc = options.prefix + "desc";
    out.attribute("aria-labelledby", title + " " + desc);
}

}  // namespace

std::string diagram_svg(std::span<const symop> operators, const diagram_options& options) {
    std::vector<picture> pages;
    if (options.what != diagram_part::positions) {
        pages.push_back(elements_picture(operators, options, options.prefix));
    }
    if (options.what != diagram_part::elements) {
        const std::string prefix = options.prefix + (pages.empty() ? "" : "p");
        pages.push_back(positions_picture(operators, options, prefix));
    }
    std::vector<picture::panel> panels;
    double width = 0;
    double height = 0;
    for (const picture& page : pages) {
        panels.push_back(page.finish());
        width = std::max(width, panels.back().width);
        height += panels.back().height;
    }
    svg_writer out;
    write_head(out, options, width, height);
    out.open("title").attribute("id", options.prefix + "title").text(title_of(options)).close();
    out.open("desc").attribute("id", options.prefix + "desc");
    out.text(description_of(pages.front())).close();
    if (options.standalone) out.open("style").markup(diagram_style()).close();
    double y = 0;
    for (const picture::panel& panel : panels) {
        const double x = (width - panel.width) / 2;
        if (panels.size() > 1) {
            out.open("g").attribute("transform",
                                    "translate(" + svg_number(x) + " " + svg_number(y) + ")");
        }
        out.markup(panel.markup);
        if (panels.size() > 1) out.close();
        y += panel.height;
    }
    out.close();
    return out.result() + "\n";
}

int customary_axis(std::span<const symop> operators) {
    int_vector unique{};
    for (const symop& op : operators) {
        const symmetry_element element = element_of({op.rot, {}});
        if (element.axis == int_vector{}) continue;
        const bool other = unique != int_vector{} && element.axis != unique;
        if (other || std::abs(element.kind) > 2) return 2;
        unique = element.axis;
    }
    return unique == int_vector{1, 0, 0} ? 0 : unique == int_vector{0, 1, 0} ? 1 : 2;
}

std::string_view diagram_style() {
    return ".lomar-diagram{color:#111;background:#fff;max-width:100%;height:auto;"
           "font:12px sans-serif}"
           ".lomar-diagram .dense{font-size:15px}"
           ".lomar-diagram text{fill:currentColor;stroke:#fff;stroke-width:3px;"
           "stroke-linejoin:round;paint-order:stroke}"
           ".lomar-diagram .axis{font:italic 1.25em serif}"
           ".lomar-diagram .small{font-size:.83em}"
           ".lomar-diagram .list{font-size:.92em;white-space:pre}"
           ".lomar-diagram use{fill:currentColor}"
           ".lomar-diagram g>path{stroke-width:1.7}"
           ".lomar-diagram .cell{stroke-width:.8}"
           ".lomar-diagram .corner{fill:none;stroke-width:1.4}"
           ".lomar-diagram .mirror{stroke-width:2.4}"
           ".lomar-diagram .along{stroke-dasharray:9 4}"
           ".lomar-diagram .up{stroke-dasharray:1.8 3.4}"
           ".lomar-diagram .both{stroke-dasharray:9 3 1.8 3 1.8 3}"
           ".lomar-diagram .diagonal{stroke-dasharray:9 3 1.8 3}"
           ".lomar-diagram .primed{color:#c1121f}"
           "@media(prefers-color-scheme:dark){"
           ".lomar-diagram{color:#e6e6e6;background:#15171a}"
           ".lomar-diagram text{stroke:#15171a}.lomar-open{fill:#15171a}"
           ".lomar-diagram .primed{color:#ff8a75}}";
}

}  // namespace lomar
