#include "drawing/picture.h"

#include <algorithm>

namespace lomar {

namespace {

bool any_time(std::span<const symop> operators) {
    return std::any_of(operators.begin(), operators.end(),
                       [](const symop& op) { return op.time < 0; });
}

std::string path_to(page_vector at) { return svg_number(at.x) + " " + svg_number(at.y); }

}  // namespace

picture::picture(std::span<const symop> operators, const diagram_options& options,
                 const std::string& prefix, bool dense, const drawn_part& part)
    : labels(dense ? 15 : 12),
      symbols(prefix),
      operators_(operators),
      axis(options.axis),
      with_time(options.with_time || any_time(operators)),
      is_dense(dense),
      cell_(operators, options.axis, options.cell.value_or(plain_cell), dense ? 390 : 290, part) {
    for (const page_vector& corner :
         {page_vector{}, cell_.down(), cell_.right(), cell_.down() + cell_.right()}) {
        labels.block(corner, 3);
    }
}

std::string picture::operators_text(const std::vector<std::size_t>& which) const {
    std::string result;
    for (const std::size_t op : which) {
        if (!result.empty()) result += ';';
        result += with_time ? xyzt_text(operators_[op]) : xyz_text(operators_[op]);
    }
    return result;
}

char picture::letter(std::size_t of_view) const {
    return "abcabc"[static_cast<std::size_t>(axis) + 1 + of_view];
}

char picture::coordinate(std::size_t of_view) const {
    return "xyzxyz"[static_cast<std::size_t>(axis) + 1 + of_view];
}

std::string picture::in_cell_order(const std::string& down, const std::string& right) const {
    return axis == 1 ? right + "," + down : down + "," + right;
}

std::string picture::direction_text(const int_vector& of_view) const {
    std::string result;
    for (int i = 0; i < 3; ++i) {
        if (i > 0) result += ' ';
        result += std::to_string(of_view[static_cast<std::size_t>(i + 2 - axis) % 3]);
    }
    return result;
}

void picture::write_outline() {
    const page_vector far = cell_.down() + cell_.right();
    body.open("path").attribute("class", "cell").attribute("fill", "none");
    body.attribute("stroke", "currentColor");
    body.attribute("d", "M0 0L" + path_to(cell_.down()) + "L" + path_to(far) + "L" +
                            path_to(cell_.right()) + "z");
    body.close();
    labels.avoid({}, cell_.down());
    labels.avoid({}, cell_.right());
    labels.avoid(far, cell_.down());
    labels.avoid(far, cell_.right());
}

void picture::write_letters() {
    const page_vector ends[] = {cell_.down(), cell_.right()};
    for (std::size_t i = 0; i < 2; ++i) {
        const page_vector outward = unit(ends[i]) - unit(ends[1 - i]);
        const fraction& part = cell_.part()[i];
        const std::string fraction_of = part == 1 ? "" : "/" + std::to_string(part.den());
        const page_vector at = labels.place(ends[i], 11, 2 + fraction_of.size(), outward);
        body.open("text").attribute("class", "axis").attribute("x", at.x).attribute("y", at.y);
        body.text(std::string(1, letter(i)));
        if (cell_.is_inclined(i)) {
            body.open("tspan").attribute("class", "small").attribute("dy", 3.0).text("p").close();
        }
        body.text(fraction_of);
        body.close();
    }
    write_label("0", {}, 9, -1 * (unit(ends[0]) + unit(ends[1])));
}

void picture::write_label(const std::string& content, page_vector point, double clear,
                          page_vector towards) {
    write_text(content, labels.place(point, clear, characters_in(content), towards), "");
}

void picture::write_text(const std::string& content, page_vector at,
                         const std::string& text_class) {
    body.open("text");
    if (!text_class.empty()) body.attribute("class", text_class);
    body.attribute("x", at.x).attribute("y", at.y).text(content).close();
}

void picture::write_line(const std::string& content) {
    const label_placer::box extent = labels.extent();
    const double height = labels.font_size() * 1.2;
    const page_vector at{extent.left, extent.bottom + height};
    write_text(content, at, "list");
    const double width = labels.character_width() * 0.9 * static_cast<double>(content.size());
    labels.block({at.x, at.y - height / 2, at.x + width, at.y + 3});
}

void picture::write_part() {
    const drawn_part& part = cell_.part();
    if (part == drawn_part{1, 1}) return;
    const char* much = part[0] == part[1] ? "A quarter" : part[1].den() == 2 ? "Half" : "A third";
    const std::string line = std::string(much) + " of the cell, which translations repeat";
    write_line(line);
    summary = line + ". ";
}

picture::panel picture::finish() const {
    constexpr double border = 8;
    const label_placer::box extent = labels.extent();
    panel result;
    result.width = extent.right - extent.left + 2 * border;
    result.height = extent.bottom - extent.top + 2 * border;
    svg_writer out;
    symbols.write_definitions(out);
    out.open("g");
    if (is_dense) out.attribute("class", "dense");
    if (cell_.part() != drawn_part{1, 1}) {
        out.attribute("data-part", in_cell_order(cell_.part()[0].text(), cell_.part()[1].text()));
    }
    out.attribute("transform", "translate(" + svg_number(border - extent.left) + " " +
                                   svg_number(border - extent.top) + ")");
    out.markup(body.result()).close();
    result.markup = out.result();
    return result;
}

}  // namespace lomar
