#include <algorithm>
#include <cmath>
#include <map>

#include "drawing/element_set.h"
#include "drawing/picture.h"

namespace lomar {

namespace {

// One coordinate of a line: a letter with a factor, and a number.
std::string coordinate_text(const fraction& factor, char letter, const fraction& constant) {
    std::string result;
    if (!factor.is_zero()) {
        if (factor == fraction(-1)) {
            result = "-";
        } else if (factor != fraction(1)) {
            result = factor.text();
        }
        result += letter;
    }
    if (constant.is_zero() && !result.empty()) return result;
    if (!result.empty() && constant.num() > 0) result += '+';
    return result + constant.text();
}

std::string line_text(const picture& page, const page_line& line) {
    // The parameter is that of the coordinate that comes first in the cell.
    const bool down_first = page.in_cell_order("0", "1") == "0,1";
    const std::size_t first = down_first ? 0 : 1;
    const fraction of_first(line.line[first]);
    const fraction of_other(line.line[1 - first]);
    std::string texts[2];
    const char letter = page.coordinate(first);
    if (of_other.is_zero()) {
        texts[first] = (line.offset / of_first).text();
        texts[1 - first] = page.coordinate(1 - first);
    } else {
        texts[first] = letter;
        texts[1 - first] = coordinate_text(-of_first / of_other, letter, line.offset / of_other);
    }
    return page.in_cell_order(texts[0], texts[1]);
}

// The two points where a line crosses the border of the cell, in the page.
struct segment {
    page_vector from, to;
};

segment segment_of(const picture& page, const page_line& line) {
    const double p = line.line[0];
    const double q = line.line[1];
    const double offset = line.offset.to_double();
    // It runs along (q, -p) from the foot of the origin.
    const double foot = offset / (p * p + q * q);
    double least = -1e9;
    double most = 1e9;
    const double start[] = {foot * p, foot * q};
    const double step[] = {q, -p};
    for (std::size_t i = 0; i < 2; ++i) {
        if (step[i] == 0) continue;
        const double a = -start[i] / step[i];
        const double b = (1 - start[i]) / step[i];
        least = std::max(least, std::min(a, b));
        most = std::min(most, std::max(a, b));
    }
    const auto at = [&](double t) {
        return page.cell().at(start[0] + t * step[0], start[1] + t * step[1]);
    };
    segment result{at(least), at(most)};
    // From the left, or from above, so that labels go to the right or below.
    const page_vector along = result.to - result.from;
    if (along.x < -1e-6 || (along.x < 1e-6 && along.y < 0)) std::swap(result.from, result.to);
    return result;
}

page_vector sideways(page_vector v) { return {v.y, -v.x}; }

class elements_painter {
public:
    elements_painter(picture& to, const element_set& elements) : page(to), set(elements) {}

    void paint() {
        for (const point_element& element : set.points) block(element);
        page.write_outline();
        for (const steep_plane& element : set.steep_planes) paint(element);
        for (const flat_axis& element : set.flat_axes) note_ends(element);
        for (const flat_axis& element : set.flat_axes) paint(element);
        for (const point_element& element : set.points) paint(element);
        page.write_letters();
        paint_flat_planes();
        paint_unshown();
        summarise();
    }

private:
    void open(const char* group_class, const std::vector<std::size_t>& operators,
              const std::string& kind, const std::string& place) {
        page.body.open("g").attribute("class", group_class);
        page.body.attribute("data-operators", page.operators_text(operators));
        page.body.attribute("data-kind", kind).attribute("data-at", place);
        ++counts[kind];
    }

    void summarise() {
        page.summary = "Drawn or listed, those on the border of the cell with them:";
        const char* before = " ";
        for (const auto& [kind, count] : counts) {
            page.summary += before + std::to_string(count) + " of " + kind;
            before = ", ";
        }
        page.summary += counts.empty() ? " nothing but translations." : ".";
    }

    void open_with_height(const std::vector<std::size_t>& operators, const std::string& kind,
                          const std::string& place, const fraction& height) {
        open("element", operators, kind, place);
        page.body.attribute("data-height", height.text());
    }

    // Planes normal to the page.

    void paint(const steep_plane& element) {
        constexpr const char* classes[] = {"mirror", "along", "up", "both", "diagonal", "diagonal"};
        segment line = segment_of(page, element.line);
        const page_vector along = unit(line.to - line.from);
        if (element.is_mate) {
            line.from = line.from + 3 * sideways(along);
            line.to = line.to + 3 * sideways(along);
        }
        open("element", element.operators,
             element.symbol.letter + std::string(element.is_primed ? "'" : ""),
             line_text(page, element.line));
        std::string line_class = classes[static_cast<int>(element.symbol.style)];
        if (element.is_primed) line_class += " primed";
        page.body.open("path").attribute("class", line_class).attribute("stroke", "currentColor");
        page.body.attribute("d", "M" + svg_number(line.from.x) + " " + svg_number(line.from.y) +
                                     "L" + svg_number(line.to.x) + " " + svg_number(line.to.y));
        page.body.close();
        if (element.symbol.style == line_style::diamond) paint_glide_arrows(element, line);
        if (element.is_primed) {
            page.symbols.use(page.body, "prime", line.to + 4 * along + 3 * sideways(along), 1,
                             {1, 0}, true);
        }
        page.body.close();
    }

    // They point where the glide goes as it rises.
    void paint_glide_arrows(const steep_plane& element, const segment& line) {
        const auto& glide = element.symbol.glide;
        const page_vector way =
            unit(page.cell().at(static_cast<double>(glide[0]), static_cast<double>(glide[1])));
        for (const double part : {0.31, 0.69}) {
            const page_vector at = line.from + part * (line.to - line.from) + 4 * way;
            page.symbols.use(page.body, "head", at, 1, way, element.is_primed);
        }
    }

    // Axes in the page.

    static constexpr double gap = 9, arrow_length = 17;

    // Several axes over one line have their arrows one after the other.
    void note_ends(const flat_axis& element) {
        const segment line = segment_of(page, element.line);
        const page_vector along = unit(line.to - line.from);
        const double start = gap + (arrow_length + 5) * levels[element.line]++;
        starts.push_back(start);
        for (double part = 0; part < arrow_length + 2; part += 4) {
            page.labels.block(line.to + (start + part) * along, 4);
            page.labels.block(line.from - (start + part) * along, 4);
        }
    }

    void paint(const flat_axis& element) {
        const segment line = segment_of(page, element.line);
        const page_vector along = unit(line.to - line.from);
        const double start = starts[painted_axes++];
        const axis_symbol& symbol = element.symbol;
        const bool primed = symbol.primed_rotation;
        open_with_height(symbol.operators, symbol.kind(), line_text(page, element.line),
                         element.height);
        for (const double side : {1.0, -1.0}) {
            const page_vector way = side * along;
            const page_vector at = (side > 0 ? line.to : line.from) + start * way;
            if (symbol.order == 2 && symbol.rotoinversion == 0) {
                page.symbols.use(page.body, symbol.screw == 0 ? "arrow" : "half", at, 1, way,
                                 primed);
            } else {
                page.symbols.use(page.body, "stem", at, 1, way, primed);
                paint_rotation(symbol, at + 12 * way, 0.7);
            }
        }
        const page_vector tip = line.to + (start + arrow_length / 2) * along;
        if (primed) {
            page.symbols.use(page.body, "prime", tip + 6 * sideways(along), 1, {1, 0}, true);
        }
        if (!element.height.is_zero()) {
            const page_vector aside =
                std::fabs(along.x) > 0.5 ? page_vector{0, -1} : page_vector{1, 0};
            page.write_label(element.height.text(), tip, 8, aside);
        }
        page.body.close();
    }

    // Axes normal to the page, inversion centres, inclined axes.

    static bool is_inclined(const point_element& element) {
        return element.direction != int_vector{};
    }

    page_vector rise_of(const point_element& element) const {
        const int_vector& d = element.direction;
        const double sign = d[2] > 0 ? 1 : -1;
        return unit(page.cell().at(sign * d[0], sign * d[1]));
    }

    static constexpr double stem_start = 4, inclined_distance = 16;

    page_vector place_of(const point_element& element) const {
        page_vector at = page.at(element.place);
        if (is_inclined(element)) at = at + inclined_distance * rise_of(element);
        if (element.is_mate) at = at + page_vector{5, 5};
        return at;
    }

    void block(const point_element& element) {
        const bool small = is_inclined(element) || element.symbol.order == 1;
        page.labels.block(place_of(element), small ? 4 : 7);
        if (element.symbol.is_primed()) {
            page.labels.block(place_of(element) + page_vector{8, -8}, 3);
        }
    }

    void paint(const point_element& element) {
        const axis_symbol& symbol = element.symbol;
        const std::string place =
            page.in_cell_order(element.place[0].text(), element.place[1].text());
        const page_vector at = place_of(element);
        if (is_inclined(element)) {
            open("element", symbol.operators, symbol.kind(), place);
            page.body.attribute("data-direction", page.direction_text(element.direction));
            const page_vector rise = rise_of(element);
            page.symbols.use(page.body, "stem", page.at(element.place) + stem_start * rise, 1, rise,
                             symbol.primed_rotation);
            paint_rotation(symbol, at, 0.6);
        } else {
            if (symbol.has_height) {
                open_with_height(symbol.operators, symbol.kind(), place, element.height);
            } else {
                open("element", symbol.operators, symbol.kind(), place);
            }
            paint_rotation(symbol, at, element.is_mate ? 0.8 : 1);
        }
        if (symbol.is_primed()) {
            page.symbols.use(page.body, "prime", at + page_vector{7, -6}, 1, {1, 0}, true);
        }
        if (!element.height.is_zero()) {
            page.write_label(element.height.text(), at, symbol.order == 1 ? 6 : 10);
        }
        page.body.close();
    }

    void paint_rotation(const axis_symbol& symbol, page_vector at, double scale) {
        const std::string name = symbol.rotoinversion != 0
                                     ? std::to_string(symbol.rotoinversion)
                                     : std::to_string(symbol.order) +
                                           (symbol.screw == 0 ? "" : std::to_string(symbol.screw));
        if (symbol.order > 1) {
            page.symbols.use(page.body, name, at, scale, {1, 0}, symbol.primed_rotation);
        }
        if (symbol.has_centre) {
            page.symbols.use(page.body, symbol.order == 1 ? "centre" : "eye", at, scale, {1, 0},
                             symbol.primed_centre);
        }
    }

    // Planes parallel to the page: corners with the arrows of their glides, above the cell.

    void paint_flat_planes() {
        if (set.flat_planes.empty()) return;
        const label_placer::box extent = page.labels.extent();
        const page_vector down = 20 * unit(page.cell().down());
        const page_vector right = 20 * unit(page.cell().right());
        page_vector corner{extent.left + std::max(0.0, -down.x), extent.top - down.y - 8};
        for (const flat_plane& element : set.flat_planes) {
            paint_corner(element, corner, down, right);
            corner = corner + page_vector{64 + std::fabs(down.x), 0};
        }
    }

    void paint_corner(const flat_plane& element, page_vector corner, page_vector down,
                      page_vector right) {
        open_with_height(element.operators,
                         element.symbol.letter + std::string(element.is_primed ? "'" : ""),
                         page.in_cell_order(std::string(1, page.coordinate(0)),
                                            std::string(1, page.coordinate(1))),
                         element.height);
        const auto point = [](page_vector at) { return svg_number(at.x) + " " + svg_number(at.y); };
        page.body.open("path").attribute("class", element.is_primed ? "corner primed" : "corner");
        page.body.attribute("stroke", "currentColor");
        page.body.attribute(
            "d", "M" + point(corner + down) + "L" + point(corner) + "L" + point(corner + right));
        page.body.close();
        const auto& glide = element.symbol.glide;
        const page_vector way =
            unit(page.cell().at(static_cast<double>(glide[0]), static_cast<double>(glide[1])));
        const auto head = [&](page_vector at, page_vector towards) {
            page.symbols.use(page.body, "head", at, 1, towards, element.is_primed);
        };
        if (element.symbol.style == line_style::both) {
            head(corner + down, unit(down));
            head(corner + right, unit(right));
        } else if (glide != scaled_vector{}) {
            const bool on_arm = glide[0] == 0 || glide[1] == 0;
            if (!on_arm) page.symbols.use(page.body, "stem", corner, 1, way, element.is_primed);
            head(corner + (on_arm ? 20.0 : 19.0) * way, way);
        }
        page.labels.block(
            {corner.x + std::min(0.0, down.x) - 4, corner.y - 4, corner.x + 22, corner.y + 20});
        std::string label = element.height.is_zero() ? "" : element.height.text();
        if (element.is_primed) label += "'";
        if (!label.empty()) page.write_label(label, corner + 1.2 * right, 4, {1, 1});
        page.body.close();
    }

    // What is listed beneath.

    void paint_unshown() {
        const label_placer::box extent = page.labels.extent();
        const double room = std::max(46.0, (extent.right - extent.left) / 6.2);
        page_vector at{extent.left, extent.bottom + 12};
        for (const unshown_element& element : set.unshown) {
            std::string places;
            for (const std::string& location : element.locations) {
                places += (places.empty() ? "" : ";") + location;
            }
            open("unshown", element.operators, element.kind, places);
            for (const std::string& line : lines_of(element, static_cast<std::size_t>(room))) {
                at.y += 14;
                page.write_text(line, at, "list");
                page.labels.block(
                    {at.x, at.y - 9, at.x + 5.6 * static_cast<double>(line.size()), at.y + 3});
            }
            page.body.close();
        }
    }

    std::vector<std::string> lines_of(const unshown_element& element, std::size_t room) const {
        std::string start = element.kind;
        if (element.kind == "1'") {
            start += set.is_grey ? " (all operators also with time reversal):" : ":";
        } else {
            start += " normal to [";
            for (std::size_t i = 0; i < 3; ++i) {
                start += (i == 0 ? "" : " ") + std::to_string(element.normal[i]);
            }
            start += "]:";
        }
        std::vector<std::string> lines = {start};
        for (std::size_t i = 0; i < element.locations.size(); ++i) {
            const std::string next =
                element.locations[i] + (i + 1 < element.locations.size() ? ";" : "");
            if (lines.back().size() + next.size() >= room) lines.push_back("   ");
            lines.back() += " " + next;
        }
        return lines;
    }

    picture& page;
    const element_set& set;
    std::map<std::string, int> counts;
    std::map<page_line, int> levels;
    std::vector<double> starts;
    std::size_t painted_axes = 0;
};

}  // namespace

picture elements_picture(std::span<const symop> operators, const diagram_options& options,
                         const std::string& prefix) {
    const element_set set = elements_of(operators, options.axis);
    const double size = set.points.size() > 150 ? 640 : set.points.size() > 60 ? 420 : 280;
    picture page(operators, options, prefix, size);
    elements_painter(page, set).paint();
    return page;
}

}  // namespace lomar
