#include <algorithm>
#include <cmath>
#include <map>

#include "drawing/element_set.h"
#include "drawing/picture.h"

namespace lomar {

namespace {

// The positions that lie over one place of the page, whatever the general point is.
struct pile {
    symop first;  // in the axes of the view
    std::vector<std::size_t> operators;
    std::string plain_heights, other_heights;  // of the two hands
    bool has_plain = false, has_other = false;
    bool has_unprimed = false;
};

// `+`, `1/2-`; where the height is not that of the general point up to a sign, its coordinate.
std::string height_text(const symop& in_view, const symop& op, int axis) {
    std::string result;
    const auto& row = in_view.rot[2];
    if (row[0] == 0 && row[1] == 0 && std::abs(row[2]) == 1) {
        if (!in_view.trans[2].is_zero()) result = in_view.trans[2].text();
        result += row[2] > 0 ? "+" : "\xe2\x88\x92";
    } else {
        std::string coordinates = xyz_text(op);
        for (int i = 0; i < axis; ++i) coordinates.erase(0, coordinates.find(',') + 1);
        result = coordinates.substr(0, coordinates.find(','));
    }
    if (op.time < 0) result += '\'';
    return result;
}

class positions_painter {
public:
    positions_painter(picture& to, std::span<const symop> operators, int axis)
        : page(to), given(operators), view(axis) {
        for (std::size_t op = 0; op < given.size(); ++op) add(op);
        choose_point();
    }

    void paint() {
        page.write_outline();
        for (const pile& each : piles) {
            for (const page_vector& at : places_of(each)) page.labels.block(at, 7);
        }
        for (const pile& each : piles) {
            for (const page_vector& at : places_of(each)) paint(each, at);
        }
        page.write_letters();
        page.summary =
            std::to_string(given.size()) + " general positions, with those near the cell.";
    }

private:
    void add(std::size_t op) {
        const symop in_view = to_view(given[op], view);
        const auto same_place = [&](const pile& each) {
            return each.first.rot[0] == in_view.rot[0] && each.first.rot[1] == in_view.rot[1] &&
                   each.first.trans[0] == in_view.trans[0] &&
                   each.first.trans[1] == in_view.trans[1];
        };
        auto found = std::find_if(piles.begin(), piles.end(), same_place);
        if (found == piles.end()) {
            piles.push_back({in_view, {}, {}, {}});
            found = piles.end() - 1;
        }
        found->operators.push_back(op);
        const bool plain = determinant(given[op].rot) > 0;
        std::string& heights = plain ? found->plain_heights : found->other_heights;
        if (!heights.empty()) heights += ',';
        heights += height_text(in_view, given[op], view);
        (plain ? found->has_plain : found->has_other) = true;
        if (given[op].time > 0) found->has_unprimed = true;
    }

    // Where a pile is, in fractions from 0 to 1.
    std::array<double, 2> fractions_of(const pile& each) const {
        std::array<double, 2> result{};
        for (std::size_t i = 0; i < 2; ++i) {
            double sum = each.first.trans[i].to_double();
            for (std::size_t j = 0; j < 3; ++j) sum += each.first.rot[i][j] * point[j];
            result[i] = sum - std::floor(sum);
        }
        return result;
    }

    // The least distance of two piles, their copies in the next cells with them.
    double clearance() const {
        std::vector<std::array<double, 2>> all;
        for (const pile& each : piles) all.push_back(fractions_of(each));
        double least = 1e9;
        for (std::size_t i = 0; i < all.size(); ++i) {
            for (std::size_t k = 0; k < i; ++k) {
                for (int shift = 0; shift < 9; ++shift) {
                    const page_vector apart = page.cell().at(all[i][0] - all[k][0] + shift / 3 - 1,
                                                             all[i][1] - all[k][1] + shift % 3 - 1);
                    least = std::min(least, length(apart));
                }
            }
        }
        return least;
    }

    // A point near the origin whose images keep apart as well as may be.
    void choose_point() {
        constexpr double enough = 34;
        constexpr std::array<double, 3> choices[] = {
            {.10, .14, .06}, {.08, .16, .05}, {.12, .20, .07}, {.16, .09, .04}, {.07, .19, .13},
            {.05, .12, .20}, {.14, .22, .03}, {.09, .31, .06}, {.21, .08, .15}, {.06, .17, .27},
            {.04, .11, .17}, {.28, .11, .05}, {.03, .08, .19}};
        double best = -1;
        std::array<double, 3> chosen{};
        for (const auto& choice : choices) {
            point = choice;
            const double found = clearance();
            if (found > best + 1e-6) {
                best = found;
                chosen = choice;
            }
            if (best > enough) break;
        }
        point = chosen;
    }

    // In the cell and a little beyond.
    std::vector<page_vector> places_of(const pile& each) const {
        constexpr double beyond = 0.14;
        const auto base = fractions_of(each);
        std::vector<page_vector> result;
        for (int shift = 0; shift < 9; ++shift) {
            const double down = base[0] + shift / 3 - 1;
            const double right = base[1] + shift % 3 - 1;
            const auto near = [](double x) { return x > -beyond && x < 1 + beyond; };
            if (near(down) && near(right)) result.push_back(page.cell().at(down, right));
        }
        return result;
    }

    void paint(const pile& each, page_vector at) {
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
    std::span<const symop> given;
    int view;
    std::vector<pile> piles;
    std::array<double, 3> point{};
};

}  // namespace

picture positions_picture(std::span<const symop> operators, const diagram_options& options,
                          const std::string& prefix) {
    const double size = operators.size() > 48 ? 640 : operators.size() > 16 ? 420 : 280;
    picture page(operators, options, prefix, size);
    positions_painter(page, operators, options.axis).paint();
    return page;
}

}  // namespace lomar
