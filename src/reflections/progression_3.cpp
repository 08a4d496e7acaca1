#include "reflections/progression_3.h"

#include "reflections/laue_group_3.h"

namespace {

// The first l from `l` on, below `end`, with whole phases; or `end`.
int next_whole(const list_0_3<triple_3>& shifts, int h, int k, int l, int end) {
    for (; l < end; ++l) {
        bool whole = true;
        for (const triple_3& shift : shifts) {
            if (phase_of_shift_3(shift, h, k, l) != 0) whole = false;
        }
        if (whole) return l;
    }
    return end;
}

}  // namespace

progression_3 whole_phases_3(const list_0_3<triple_3>& shifts, int h, int k, int period) {
    if (shifts.n == 0) return {0, 1};
    const int first = next_whole(shifts, h, k, 0, period);
    if (first == period) return {};
    return {first, next_whole(shifts, h, k, first + 1, first + period) - first};
}
