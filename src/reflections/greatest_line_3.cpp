#include "reflections/greatest_line_3.h"

#include <algorithm>

void greatest_line_3::set_up(const laue_group_3& group) {
    group_ = &group;
    branches_.clear();
    failing_ = 0;
    for (int e = 0; e < group.order(); ++e) {
        const triple_3& row = group.elements[e].row[0];
        if (branches_.n == 0 || branches_[branches_.last()].row != row) branches_.add({row, e, e});
        branches_[branches_.last()].end = e + 1;
    }
    ties_.set_max_n(group.order(), false);
    shifts_.set_max_n(group.order(), false);
}

bool greatest_line_3::find(int h, int k, interval_3 within) {
    h_ = h;
    k_ = k;
    span_ = within;
    if (h == 0 && k == 0) span_.first = std::max(span_.first, 1);
    if (span_.first > span_.last) return false;
    fixing_ = 0;
    ties_.n = 0;
    shifts_.n = 0;
    for (int i = 0; i < branches_.n; ++i) {
        // A line that has no interval mostly fails as the one before did.
        if (compare_branch(branches_[failing_])) {
            failing_ = failing_ + 1 < branches_.n ? failing_ + 1 : 0;
        } else {
            return false;
        }
    }
    while (!check_end(span_.first, first_)) {
        if (++span_.first > span_.last) return false;
    }
    while (!check_end(span_.last, last_)) --span_.last;
    return true;
}

// Requires a + b l <= 0 along the line. Where both sides are equal the elements aren't done with.
greatest_line_3::outcome greatest_line_3::require_at_most(int a, int b, int begin, int end) {
    if (b != 0) return bound(a, b, begin, end) ? outcome::decided : outcome::greater;
    return a > 0 ? outcome::greater : a == 0 ? outcome::equal : outcome::decided;
}

// The same where there is an l with equality, whole or not. False if the interval becomes empty.
bool greatest_line_3::bound(int a, int b, int begin, int end) {
    int l = b > 0 ? -a : a;
    const int size = b > 0 ? b : -b;
    if (size != 1) {
        const int rest = ((l % size) + size) % size;
        l = (l - rest) / size;
        if (rest != 0) {
            begin = end;
            if (b < 0) ++l;
        }
    }
    if (b > 0) {
        if (l > span_.last) return true;
        span_.last = l;
    } else {
        if (l < span_.first) return true;
        span_.first = l;
    }
    if (begin != end) ties_.add({l, begin, end});
    return span_.first <= span_.last;
}

bool greatest_line_3::compare_branch(const branch& same_first) {
    const triple_3& row = same_first.row;
    const outcome result =
        require_at_most(row[0] * h_ + row[1] * k_ - h_, row[2], same_first.begin, same_first.end);
    if (result != outcome::equal) return result == outcome::decided;
    for (int e = same_first.begin; e < same_first.end; ++e) {
        if (!compare_element(group_->elements[e], e)) return false;
    }
    return true;
}

// For an element that leaves the first index of the line as it is.
bool greatest_line_3::compare_element(const laue_element_3& element, int e) {
    const triple_3& second = element.row[1];
    outcome result = require_at_most(second[0] * h_ + (second[1] - 1) * k_, second[2], e, e + 1);
    if (result != outcome::equal) return result == outcome::decided;
    const triple_3& third = element.row[2];
    result = require_at_most(third[0] * h_ + third[1] * k_, third[2] - 1, e, e + 1);
    if (result != outcome::equal) return result == outcome::decided;
    ++fixing_;
    if (element.in_group) shifts_.add(element.shift);
    return true;
}

// What the elements with a tie at l make of this reflection. False if one makes it greater.
bool greatest_line_3::check_end(int l, line_end& found) const {
    found = {fixing_, false};
    const triple_3 index = {{h_, k_, l}};
    for (const tie& t : ties_) {
        if (t.l != l) continue;
        for (int e = t.begin; e < t.end; ++e) {
            const laue_element_3& element = group_->elements[e];
            const triple_3 image = element.image(h_, k_, l);
            if (element_less(index, image)) return false;
            if (image != index) continue;
            ++found.fixing;
            if (element.in_group && phase_of_shift_3(element.shift, h_, k_, l) != 0) {
                found.absent = true;
            }
        }
    }
    return true;
}
