#include "page/diagrams.h"

#include "drawing/diagram.h"
#include "drawing/svg_writer.h"

namespace lomar {

namespace {

std::string figure(std::span<const symop> operators, const diagram_options& options,
                   std::string_view caption) {
    return "<figure>" + diagram_svg(operators, options) + "<figcaption>" + escaped(caption) +
           " <i>" + "abc"[options.axis] + "</i></figcaption></figure>\n";
}

}  // namespace

std::string diagram_section(std::span<const symop> operators, const std::string& name,
                            bool magnetic) {
    diagram_options options;
    options.name = name;
    options.standalone = false;
    options.with_time = magnetic;
    const int customary = customary_axis(operators);
    std::string result = "<section id=\"diagrams\"><h2>Diagrams</h2>\n<div class=\"figures\">\n";
    // First the pair that printed tables have.
    const auto add = [&](int axis, diagram_part what, const std::string& caption) {
        options.axis = axis;
        options.what = what;
        options.prefix = what == diagram_part::positions ? "dp" : std::string("d") + "abc"[axis];
        result += figure(operators, options, caption);
    };
    add(customary, diagram_part::elements, "Symmetry elements along");
    add(customary, diagram_part::positions, "General positions along");
    add((customary + 1) % 3, diagram_part::elements, "Symmetry elements along");
    add((customary + 2) % 3, diagram_part::elements, "Symmetry elements along");
    return result + "</div></section>\n";
}

}  // namespace lomar
