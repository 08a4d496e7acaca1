#include "reflections/interval_union_3.h"

#include <algorithm>

void interval_union_3::add(interval_3 added) {
    if (added.first > added.last) return;
    int i = 0;
    while (i < parts_.n && parts_[i].last < added.first - 1) ++i;
    int j = i;  // the parts from i up to j melt into one
    for (; j < parts_.n && parts_[j].first <= added.last + 1; ++j) {
        added.first = std::min(added.first, parts_[j].first);
        added.last = std::max(added.last, parts_[j].last);
    }
    if (j == i) return parts_.insert_at(added, i);
    parts_[i] = added;
    while (--j > i) parts_.remove_at(j);
}
