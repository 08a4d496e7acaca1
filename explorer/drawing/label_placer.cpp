#include "drawing/label_placer.h"

#include <algorithm>
#include <cmath>

namespace lomar {

namespace {

double overlap(const label_placer::box& a, const label_placer::box& b) {
    const double width = std::min(a.right, b.right) - std::max(a.left, b.left);
    const double height = std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
    return width > 0 && height > 0 ? width * height : 0;
}

// How much of a line is in a box.
double length_inside(const label_placer::box& label, page_vector from, page_vector to) {
    const page_vector way = to - from;
    const double start[] = {label.left - from.x, label.top - from.y};
    const double end[] = {label.right - from.x, label.bottom - from.y};
    const double step[] = {way.x, way.y};
    double least = 0;
    double most = 1;
    for (std::size_t i = 0; i < 2; ++i) {
        if (std::fabs(step[i]) < 1e-6) {
            if (start[i] > 0 || end[i] < 0) return 0;
            continue;
        }
        const double a = start[i] / step[i];
        const double b = end[i] / step[i];
        least = std::max(least, std::min(a, b));
        most = std::min(most, std::max(a, b));
    }
    return most > least ? (most - least) * length(way) : 0;
}

}  // namespace

std::size_t characters_in(const std::string& text) {
    // Each byte that continues a character counts for nothing.
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xc0) != 0x80;
    }));
}

double label_placer::covered(const box& label) const {
    double sum = 0;
    for (const box& other : taken_) sum += overlap(label, other);
    for (const line& other : lines_) sum += length_inside(label, other.from, other.to);
    return sum;
}

void label_placer::block(page_vector centre, double radius) {
    block({centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius});
}

page_vector label_placer::place(page_vector point, double clear, std::size_t characters,
                                page_vector towards) {
    const double ascent = 0.75 * font_size_;
    const double width = character_width() * static_cast<double>(characters);
    std::vector<page_vector> ways = {{1, -1}, {1, 1},  {-1, -1}, {-1, 1},
                                     {1, 0},  {0, -1}, {0, 1},   {-1, 0}};
    std::stable_sort(ways.begin(), ways.end(), [&](page_vector a, page_vector b) {
        return towards.x * a.x + towards.y * a.y > towards.x * b.x + towards.y * b.y + 1e-6;
    });
    box best;
    double least = -1;
    for (int far = 0; far < 7; ++far) {
        for (const page_vector& way : ways) {
            const double reach = clear * (way.x != 0 && way.y != 0 ? 0.8 : 1.1) + 5 * far;
            const double x = point.x + way.x * reach - (1 - way.x) * width / 2;
            const double y = point.y + way.y * reach - (1 - way.y) * ascent / 2;
            const box here{x, y, x + width, y + ascent};
            const double found = far + covered(here);
            if (least >= 0 && found > least - 1e-6) continue;
            least = found;
            best = here;
        }
        if (least < far + 1) break;
    }
    taken_.push_back(best);
    return {best.left, best.bottom};
}

label_placer::box label_placer::extent() const {
    if (taken_.empty()) return {};
    box all = taken_.front();
    for (const box& each : taken_) {
        all.left = std::min(all.left, each.left);
        all.top = std::min(all.top, each.top);
        all.right = std::max(all.right, each.right);
        all.bottom = std::max(all.bottom, each.bottom);
    }
    return all;
}

}  // namespace lomar
