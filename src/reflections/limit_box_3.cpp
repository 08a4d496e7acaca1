#include "reflections/limit_box_3.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

// The greatest size that the number with these coefficients has in the box.
std::int64_t reach_of(const triple_3& row, const triple_3& limits) {
    std::int64_t reach = 0;
    for (int i = 0; i < 3; ++i) reach += std::abs(std::int64_t{row[i]}) * limits[i];
    return reach;
}

std::int64_t size_at(const triple_3& row, const triple_3& limits) {
    std::int64_t sum = 0;
    for (int i = 0; i < 3; ++i) sum += std::int64_t{row[i]} * limits[i];
    return std::abs(sum);
}

bool is_unit(const laue_element_3& element) {
    return element.image(1, 0, 0) == triple_3{{1, 0, 0}} &&
           element.image(0, 1, 0) == triple_3{{0, 1, 0}} &&
           element.image(0, 0, 1) == triple_3{{0, 0, 1}};
}

}  // namespace

bool limit_box_3::set_up(const laue_group_3& group, const triple_3& limits) {
    group_ = &group;
    limits_ = limits;
    std::int64_t reach[3] = {0, 0, 0};
    std::int64_t size[3] = {0, 0, 0};
    half_.clear();
    for (int e = 0; e < group.order(); ++e) {
        const laue_element_3& element = group.elements[e];
        for (int i = 0; i < 3; ++i) {
            reach[i] = std::max(reach[i], reach_of(element.row[i], limits));
            size[i] = std::max(size[i], size_at(element.row[i], limits));
        }
        if (group.negative_of(e) < e) half_.add(e);
        if (is_unit(element)) std::swap(half_[0], half_[half_.last()]);
    }
    for (int i = 0; i < 3; ++i) {
        if (reach[i] != size[i] || reach[i] > largest_index) return false;
        reach_[i] = static_cast<int>(reach[i]);
    }
    images_.clear();
    for (const int e : half_) {
        const triple_3* const row = group.elements[e].row;
        box_image& image = images_.add();
        image.h = static_cast<int>(reach_of(row[0], limits));
        for (int c = -1; c <= 1; ++c) {
            triple_3 sum = row[1];
            for (int i = 0; i < 3; ++i) sum[i] += c * row[0][i];
            image.k[c + 1] = static_cast<int>(reach_of(sum, limits));
        }
    }
    return true;
}

void limit_box_3::lines_of(int h, interval_union_3& lines) const {
    lines.clear();
    for (const box_image& image : images_) {
        if (h > image.h) continue;
        interval_3 k = {-image.k[1], image.k[1]};
        for (const int c : {-1, 1}) {
            k.first = std::max(k.first, -image.k[c + 1] - c * h);
            k.last = std::min(k.last, image.k[c + 1] - c * h);
        }
        lines.add(k);
    }
}

interval_3 limit_box_3::within(const laue_element_3& element, int h, int k, interval_3 line) const {
    for (int i = 0; i < 3; ++i) {
        const triple_3& row = element.row[i];
        const int a = row[0] * h + row[1] * k;
        const int limit = limits_[i];
        if (row[2] == 0) {
            if (std::abs(a) > limit) return {1, 0};
            continue;
        }
        const int middle = row[2] < 0 ? a : -a;  // where the index is 0
        line.first = std::max(line.first, middle - limit);
        line.last = std::min(line.last, middle + limit);
    }
    return line;
}

// Most lines lie in the box themselves.
void limit_box_3::cover(int h, int k, interval_3 line, interval_union_3& covered) const {
    covered.clear();
    for (const int e : half_) {
        const interval_3 part = within(group_->elements[e], h, k, line);
        covered.add(part);
        if (part.first == line.first && part.last == line.last) return;
    }
}

triple_3 limit_box_3::first_member(int h, int k, int l) const {
    triple_3 first = {{largest_index + 1, 0, 0}};
    for (const laue_element_3& element : group_->elements) {
        const triple_3 member = element.image(h, k, l);
        const bool inside = member[0] >= 0 && member[0] <= limits_[0] &&
                            std::abs(member[1]) <= limits_[1] && std::abs(member[2]) <= limits_[2];
        if (inside && element_less(member, first)) first = member;
    }
    return first;
}
