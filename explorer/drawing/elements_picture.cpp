#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "drawing/element_set.h"
#include "drawing/line_in_page.h"
#include "drawing/picture.h"

namespace lomar {

namespace {

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
        page.write_part();
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
        page.summary += "Drawn or listed, those on the border with them:";
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

    // One label does for all elements of one height that meet in a point.

    using spot = std::array<long, 2>;
    static spot spot_of(page_vector at) { return {std::lround(at.x), std::lround(at.y)}; }

    void note_height(page_vector at, const fraction& height) {
        heights[spot_of(at)].insert(height.text());
    }

    bool takes_label(page_vector at, const fraction& height) {
        if (height.is_zero()) return false;
        return heights[spot_of(at)].size() > 1 || labelled.insert(spot_of(at)).second;
    }

    // Planes normal to the page.

    void paint(const steep_plane& element) {
        constexpr const char* classes[] = {"mirror", "along", "up", "both", "diagonal", "diagonal"};
        segment line = segment_of(page.cell(), element.line);
        const page_vector along = unit(line.to - line.from);
        if (element.is_mate) {
            line.from = line.from + 3 * sideways(along);
            line.to = line.to + 3 * sideways(along);
        }
        page.labels.avoid(line.from, line.to);
        open("element", element.operators,
             element.symbol.letter + std::string(element.is_primed ? "'" : ""),
             text_of(page, element.line));
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

    static constexpr double gap = 9, full_length = 17;

    // Several axes over one line have their arrows one after the other: shorter ones if there are
    // many.
    double arrow_scale() const {
        std::map<page_line, int> over_line;
        int most = 0;
        for (const flat_axis& each : set.flat_axes) most = std::max(most, ++over_line[each.line]);
        return most > 2 ? 0.75 : 1;
    }

    void note_ends(const flat_axis& element) {
        const segment line = segment_of(page.cell(), element.line);
        note_height(line.to, element.height);
        const page_vector along = unit(line.to - line.from);
        const double start = gap + (arrow_length + 4) * levels[element.line]++;
        starts.push_back(start);
        for (double part = 0; part < arrow_length + 2; part += 4) {
            page.labels.block(line.to + (start + part) * along, 4);
            page.labels.block(line.from - (start + part) * along, 4);
        }
    }

    void paint(const flat_axis& element) {
        const segment line = segment_of(page.cell(), element.line);
        const page_vector along = unit(line.to - line.from);
        const double start = starts[painted_axes++];
        const axis_symbol& symbol = element.symbol;
        const bool primed = symbol.primed_rotation;
        open_with_height(symbol.operators, symbol.kind(), text_of(page, element.line),
                         element.height);
        for (const double side : {1.0, -1.0}) {
            const page_vector way = side * along;
            const page_vector at = (side > 0 ? line.to : line.from) + start * way;
            if (symbol.order == 2 && symbol.rotoinversion == 0) {
                page.symbols.use(page.body, symbol.screw == 0 ? "arrow" : "half", at, scale, way,
                                 primed);
            } else {
                page.symbols.use(page.body, "stem", at, scale, way, primed);
                paint_rotation(symbol, at + 12 * scale * way, 0.7 * scale);
            }
        }
        const page_vector tip = line.to + (start + arrow_length / 2) * along;
        if (primed) {
            page.symbols.use(page.body, "prime", tip + 6 * sideways(along), 1, {1, 0}, true);
        }
        if (takes_label(line.to, element.height)) {
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
        if (element.symbol.has_height && !is_inclined(element)) {
            note_height(page.at(element.place), element.height);
        }
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
        if (takes_label(page.at(element.place), element.height)) {
            page.write_label(element.height.text(), at, symbol.order == 1 ? 6 : 10);
        }
        page.body.close();
    }

    void paint_rotation(const axis_symbol& symbol, page_vector at, double size) {
        const std::string name = symbol.rotoinversion != 0
                                     ? std::to_string(symbol.rotoinversion)
                                     : std::to_string(symbol.order) +
                                           (symbol.screw == 0 ? "" : std::to_string(symbol.screw));
        if (symbol.order > 1) {
            page.symbols.use(page.body, name, at, size, {1, 0}, symbol.primed_rotation);
        }
        if (symbol.has_centre) {
            page.symbols.use(page.body, symbol.order == 1 ? "centre" : "eye", at, size, {1, 0},
                             symbol.primed_centre);
        }
    }

    // Planes parallel to the page: corners with the arrows of their glides, above the cell.

    void paint_flat_planes() {
        if (set.flat_planes.empty()) return;
        const label_placer::box extent = page.labels.extent();
        const page_vector down = 20 * unit(page.cell().down());
        const page_vector right = 20 * unit(page.cell().right());
        page_vector start{extent.left, extent.top - down.y - 8};
        for (const flat_plane& element : set.flat_planes) {
            const double to_left = std::max({4.0, 4 - down.x, 4 - 20 * glide_of(element).x});
            paint_corner(element, start + page_vector{to_left, 0}, down, right);
            start.x += to_left + 34 + 5 * page.labels.character_width();
        }
    }

    page_vector glide_of(const flat_plane& element) const {
        const auto& glide = element.symbol.glide;
        return unit(page.cell().at(static_cast<double>(glide[0]), static_cast<double>(glide[1])));
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
        const page_vector way = glide_of(element);
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
        page.labels.block({corner.x + std::min({0.0, down.x, 20 * way.x}) - 4, corner.y - 4,
                           corner.x + 22, corner.y + 20});
        std::string label = element.height.is_zero() ? "" : element.height.text();
        if (element.is_primed) label += "'";
        if (!label.empty()) page.write_label(label, corner + 1.2 * right, 4, {1, 1});
        page.body.close();
    }

    // What is listed beneath.

    void paint_unshown() {
        const label_placer::box extent = page.labels.extent();
        const double room =
            std::max(46.0, (extent.right - extent.left) / page.labels.character_width());
        for (const unshown_element& element : set.unshown) {
            std::string places;
            for (const std::string& location : element.locations) {
                places += (places.empty() ? "" : ";") + location;
            }
            open("unshown", element.operators, element.kind, places);
            for (const std::string& line : lines_of(element, static_cast<std::size_t>(room))) {
                page.write_line(line);
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
    const double scale = arrow_scale();
    const double arrow_length = full_length * scale;
    std::map<std::string, int> counts;
    std::map<spot, std::set<std::string>> heights;
    std::set<spot> labelled;
    std::map<page_line, int> levels;
    std::vector<double> starts;
    std::size_t painted_axes = 0;
};

}  // namespace

picture elements_picture(std::span<const symop> operators, const diagram_options& options,
                         const std::string& prefix) {
    const element_set set = elements_of(operators, options.axis);
    const auto has_height = [](const auto& each) { return !each.height.is_zero(); };
    const auto labels = std::count_if(set.points.begin(), set.points.end(), has_height) +
                        std::count_if(set.flat_axes.begin(), set.flat_axes.end(), has_height);
    const bool is_dense = set.points.size() > 60 || labels > 24;
    picture page(operators, options, prefix, is_dense, {set.part, set.part});
    elements_painter(page, set).paint();
    return page;
}

}  // namespace lomar
