#include "drawing/label_placer.h"

#include <algorithm>

namespace lomar {

namespace {

double overlap(const label_placer::box& a, const label_placer::box& b) {
    const double width = std::min(a.right, b.right) - std::max(a.left, b.left);
    const double height = std::min(a.bottom, b.bottom) - std::max(a.top, b.top);
    return width > 0 && height > 0 ? width * height : 0;
}

}  // namespace

void label_placer::block(page_vector centre, double radius) {
    block({centre.x - radius, centre.y - radius, centre.x + radius, centre.y + radius});
}

page_vector label_placer::place(page_vector point, double clear, std::size_t characters,
                                page_vector towards) {
    constexpr double ascent = 9;
    const double width = character_width * static_cast<double>(characters);
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
            double covered = 0.01 * far;
            for (const box& other : taken_) covered += overlap(here, other);
            if (least >= 0 && covered > least - 1e-6) continue;
            least = covered;
            best = here;
        }
        if (least < 0.1) break;
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
