#include "foundation/sorted.h"

void locate(const B_cmp_w_3& cmp, int& low, int& high) {
    while (high - low > 1) {
        const int mid = static_cast<int>((static_cast<long long>(low) + high) >> 1);
        (cmp.less_than_key(mid) ? low : high) = mid;
    }
    if (cmp.less_than_key(high)) {
        low = high;
    } else if (!cmp.less_than_key(low)) {
        high = low;
    }
}

int nearest(const B_cmp_w_3& cmp, double& distance, int& low, int& high) {
    locate(cmp, low, high);
    const double at_low = std::abs(cmp.distance(low));
    const double at_high = std::abs(cmp.distance(high));
    distance = at_low < at_high ? at_low : at_high;
    return at_low < at_high ? low : high;
}

bool find_range(const double_list_3& list, double from, double to, int& first, int& last) {
    if (list.n == 0) return false;
    int low = list.first();
    int high = list.last();
    if (!(to > list[low])) return false;
    locate(cmp_w_4(list, from), low, high);
    first = list[low] >= from ? low : high;
    low = first;
    high = list.last();
    locate(cmp_w_4(list, to), low, high);
    last = list[high] >= to ? low : high;
    return true;
}
