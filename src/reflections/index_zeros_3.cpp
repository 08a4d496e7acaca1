#include "reflections/index_zeros_3.h"

#include <algorithm>

namespace {

triple_3 with_positive_start(const triple_3& row) {
    const triple_3 negative = {{-row[0], -row[1], -row[2]}};
    return element_less(row, negative) ? negative : row;
}

}  // namespace

void index_zeros_3::set_up(const laue_group_3& group) {
    rows_.clear();
    masks_.clear();
    for (const laue_element_3& element : group.elements) {
        unsigned long long mask = 0;
        for (const triple_3& row : element.row) {
            const triple_3 key = with_positive_start(row);
            int place = rows_.find(key);
            if (place == not_found) {
                place = rows_.n;
                rows_.add(key);
            }
            mask |= 1ULL << place;
        }
        masks_.add(mask);
    }
    zeros_.set_max_n(rows_.n, false);
}

index_zeros_3::kind index_zeros_3::begin_line(int h, int k) {
    zeros_.n = 0;
    unsigned long long fixed = 0;
    for (int i = 0; i < rows_.n; ++i) {
        const int a = rows_[i][0] * h + rows_[i][1] * k;
        const int b = rows_[i][2];
        if (b != 0) {
            zeros_.add(b > 0 ? -a : a);
        } else if (a == 0) {
            fixed |= 1ULL << i;
        }
    }
    if (fixed == 0) return single;
    for (const unsigned long long mask : masks_) {
        if ((mask & fixed) == 0) return some_members;
    }
    return all_members;
}

int index_zeros_3::next(int l, int last, int step) const {
    int first = last + 1;
    for (const int zero : zeros_) {
        if (zero >= l && zero < first && (zero - l) % step == 0) first = zero;
    }
    return first;
}
