#include "drawing/symbol_book.h"

#include <cmath>
#include <numbers>
#include <numeric>
#include <string_view>

namespace lomar {

namespace {

std::string point_text(page_vector at) {
    std::string result = svg_number(at.x);
    const std::string y = svg_number(at.y);
    if (y[0] != '-') result += ' ';
    return result + y;
}

// The corners of a polygon, anticlockwise as one sees it, the first at the top; of a square at the
// upper right.
page_vector corner(int order, int which, double radius) {
    const double start = order == 4 ? 45 : 90;
    const double angle = (start + 360.0 * which / order) * std::numbers::pi / 180;
    return {radius * std::cos(angle), -radius * std::sin(angle)};
}

std::string polygon(int order, double radius) {
    if (order == 2) {
        const std::string r = svg_number(radius);
        const std::string bulge = svg_number(radius * 0.85);
        return "M0-" + r + "Q" + bulge + " 0 0 " + r + "Q-" + bulge + " 0 0-" + r + "z";
    }
    std::string path;
    for (int k = 0; k < order; ++k) {
        path += (k == 0 ? "M" : "L") + point_text(corner(order, k, radius));
    }
    return path + "z";
}

double radius_of(int order) { return order == 2 ? 8 : order == 3 ? 7.5 : 7; }

// Sides drawn beyond their corners, in the sense in which the screw turns as it rises: of all
// corners for n1 and its mirror image, else as many as the rotations without a screw that the axis
// contains.
std::string tails(int order, int screw) {
    const double radius = radius_of(order);
    const int common = std::gcd(order, screw);
    const int step = common == 1 ? 1 : order / common;
    const bool left_handed = 2 * screw > order;
    if (order == 2) return "M0-8l-4.5-3.5M0 8l4.5 3.5";
    std::string path;
    for (int k = 0; k < order; k += step) {
        const page_vector from = corner(order, left_handed ? k + 1 : k - 1, radius);
        const page_vector tip = corner(order, k, radius);
        path += "M" + point_text(tip) + "l" + point_text(5.5 * unit(tip - from));
    }
    return path;
}

// What is open has the colour of the paper: in a copy, only a selector of one class finds it.
svg_writer& open_shape(svg_writer& out, std::string_view tag) {
    out.open(tag).attribute("class", "lomar-open").attribute("fill", "#fff");
    return out.attribute("stroke", "currentColor").attribute("stroke-width", 1.3);
}

void filled(svg_writer& out, const std::string& path) {
    out.open("path").attribute("d", path).close();
}

void stroked(svg_writer& out, const std::string& path) {
    out.open("path").attribute("fill", "none").attribute("stroke", "currentColor");
    out.attribute("stroke-width", 1.4).attribute("d", path).close();
}

void open_circle(svg_writer& out, double radius) {
    open_shape(out, "circle").attribute("r", radius).close();
}

void write_rotation(svg_writer& out, int order, int screw) {
    filled(out, polygon(order, radius_of(order)));
    if (screw != 0) stroked(out, tails(order, screw));
}

void write_rotoinversion(svg_writer& out, int order) {
    open_shape(out, "path").attribute("d", polygon(order, order == 4 ? 9 : 8)).close();
    filled(out, order == 4 ? polygon(2, 6) : polygon(3, 7));
}

// A circle, with a comma for the other hand and a line between two halves.
void write_position(svg_writer& out, const std::string& name) {
    open_circle(out, 6.5);
    if (name == "double") stroked(out, "M0-6.5V6.5");
    if (name == "point") return;
    filled(out,
           name == "other"
               ? "M-1.3-1.4a1.5 1.5 0 1 1 2.7.8q-.3 2-2.2 3.2q.9-1.4.7-2.5a1.5 1.5 0 0 1-1.2-1.5z"
               : "M1.7-1.4a1.5 1.5 0 1 1 2.7.8q-.3 2-2.2 3.2q.9-1.4.7-2.5a1.5 1.5 0 0 1-1.2-1.5z");
}

void write_symbol(svg_writer& out, const std::string& name) {
    if (name == "centre") return open_circle(out, 3.2);
    if (name == "eye") return open_circle(out, 2.4);
    if (name == "arrow") return stroked(out, "M0 0H12"), filled(out, "M18 0L9-4V4z");
    if (name == "half") return stroked(out, "M0 0H15"), filled(out, "M18 .7H9V-4.5z");
    if (name == "head") return filled(out, "M0 0L-8-3.5V3.5z");
    if (name == "stem") return stroked(out, "M0 0H13");
    if (name == "prime") return stroked(out, "M0 0L2-5");
    if (name == "point" || name == "other" || name == "double") return write_position(out, name);
    if (name[0] == '-') return write_rotoinversion(out, name[1] - '0');
    write_rotation(out, name[0] - '0', name.size() > 1 ? name[1] - '0' : 0);
}

}  // namespace

void symbol_book::use(svg_writer& out, const std::string& name, page_vector at, double scale,
                      page_vector direction, bool primed) {
    used.insert(name);
    out.open("use");
    if (primed) out.attribute("class", "primed");
    out.attribute("href", "#" + prefix_ + name);
    const bool turned = direction.y != 0 || direction.x < 0;
    if (!turned && scale == 1) {
        out.attribute("x", at.x).attribute("y", at.y).close();
        return;
    }
    std::string transform = "translate(" + point_text(at) + ")";
    const double angle = std::atan2(direction.y, direction.x) * 180 / std::numbers::pi;
    if (turned) transform += "rotate(" + svg_number(angle) + ")";
    if (scale != 1) transform += "scale(" + svg_number(scale) + ")";
    out.attribute("transform", transform).close();
}

void symbol_book::write_definitions(svg_writer& out) const {
    if (used.empty()) return;
    out.open("defs");
    for (const std::string& name : used) {
        out.open("g").attribute("id", prefix_ + name);
        write_symbol(out, name);
        out.close();
    }
    out.close();
}

}  // namespace lomar
