#include <algorithm>
#include <cmath>

#include "drawing/picture.h"
#include "drawing/position_piles.h"

namespace lomar {

namespace {

using general_point = std::array<double, 3>;

// Points near the origin, as printed tables have them, and then points anywhere.
std::vector<general_point> choices_of_point() {
    std::vector<general_point> result = {
        {.10, .14, .06}, {.08, .16, .05}, {.12, .20, .07}, {.16, .09, .04}, {.07, .19, .13},
        {.05, .12, .20}, {.14, .22, .03}, {.09, .31, .06}, {.21, .08, .15}, {.06, .17, .27},
        {.04, .11, .17}, {.28, .11, .05}, {.03, .08, .19}};
    constexpr int steps = 14;
    for (int i = 0; i < steps * steps * steps; ++i) {
        const auto part = [](int step) { return 0.015 + 0.035 * step; };
        result.push_back({part(i / (steps * steps)), part(i / steps % steps), part(i % steps)});
    }
    return result;
}

class positions_painter {
public:
    positions_painter(picture& to, const position_piles& positions)
        : page(to), set(positions), room(room_of_one()) {
        choose_point();
    }

    void paint() {
        page.write_outline();
        for (const position_pile& each : set.piles) {
            for (const page_vector& at : places_of(each)) page.labels.block(at, 7);
        }
        for (const position_pile& each : set.piles) {
            for (const page_vector& at : places_of(each)) paint(each, at);
        }
        page.write_letters();
        page.write_part();
        if (set.mates_at) {
            page.write_line(set.mates_at->is_zero()
                                ? "Each also with time reversal, at the same height"
                                : "Each also with time reversal, at a height + " +
                                      set.mates_at->text());
        }
    }

private:
    // Where a pile is, in fractions from 0 to 1.
    std::array<double, 2> fractions_of(const position_pile& each) const {
        std::array<double, 2> result{};
        for (std::size_t i = 0; i < 2; ++i) {
            double sum = each.first.trans[i].to_double();
            for (std::size_t j = 0; j < 3; ++j) sum += each.first.rot[i][j] * point[j];
            result[i] = sum - std::floor(sum);
        }
        return result;
    }

    // What a circle with its labels takes, in the page.
    page_vector room_of_one() const {
        std::size_t longest = 0;
        for (const position_pile& each : set.piles) {
            longest = std::max(
                longest, characters_in(each.plain_heights) + characters_in(each.other_heights));
        }
        const double width = page.labels.character_width() * static_cast<double>(longest);
        return {width + 26, page.labels.font_size() + 14};
    }

    // The least distance of two piles, their copies in the next cells with them, in parts of the
    // room that each takes. What is below `enough` is not looked for.
    double clearance(double enough) const {
        std::vector<std::array<double, 2>> all;
        for (const position_pile& each : set.piles) all.push_back(fractions_of(each));
        double least = 1e9;
        for (std::size_t i = 0; i < all.size(); ++i) {
            if (all[i][0] > set.part[0].to_double() || all[i][1] > set.part[1].to_double())
                continue;
            for (std::size_t k = 0; k < all.size(); ++k) {
                if (k == i) continue;
                const double down = all[i][0] - all[k][0];
                const double right = all[i][1] - all[k][1];
                const page_vector apart =
                    page.cell().at(down - std::round(down), right - std::round(right));
                least = std::min(
                    least, std::max(std::fabs(apart.x) / room.x, std::fabs(apart.y) / room.y));
            }
            if (least < enough) break;
        }
        return least;
    }

    // A point whose images keep apart as well as may be.
    void choose_point() {
        double best = -1;
        general_point chosen{};
        for (const general_point& choice : choices_of_point()) {
            point = choice;
            const double found = clearance(best + 1e-6);
            if (found > best + 1e-6) {
                best = found;
                chosen = choice;
            }
            if (best > 1) break;
        }
        point = chosen;
    }

    // In the drawn part and a little beyond.
    std::vector<page_vector> places_of(const position_pile& each) const {
        const double beyond = set.is_dense ? 0.02 : 0.14;
        const auto base = fractions_of(each);
        std::vector<page_vector> result;
        for (int shift = 0; shift < 9; ++shift) {
            const std::array<double, 2> at = {base[0] + shift / 3 - 1, base[1] + shift % 3 - 1};
            const auto near = [&](std::size_t i) {
                return at[i] > -beyond && at[i] < set.part[i].to_double() + beyond;
            };
            if (near(0) && near(1)) result.push_back(page.cell().at(at[0], at[1]));
        }
        return result;
    }

    void paint(const position_pile& each, page_vector at) {
        page.body.open("g").attribute("class", "position");
        page.body.attribute("data-operators", page.operators_text(each.operators));
        const bool both = each.has_plain && each.has_other;
        page.symbols.use(page.body,
                         both             ? "double"
                         : each.has_other ? "other"
                                          : "point",
                         at, 1, {1, 0}, !each.has_unprimed);
        if (each.has_plain) {
            page.write_label(each.plain_heights, at, 9, both ? page_vector{-1, 0} : page_vector{});
        }
        if (each.has_other) {
            page.write_label(each.other_heights, at, 9, both ? page_vector{1, 0} : page_vector{});
        }
        page.body.close();
    }

    picture& page;
    const position_piles& set;
    page_vector room;
    general_point point{};
};

}  // namespace

picture positions_picture(std::span<const symop> operators, const diagram_options& options,
                          const std::string& prefix) {
    const position_piles set = piles_of(operators, options.axis);
    picture page(operators, options, prefix, set.is_dense, set.part);
    positions_painter(page, set).paint();
    page.summary +=
        std::to_string(operators.size()) + " general positions, with those near the cell.";
    return page;
}

}  // namespace lomar
