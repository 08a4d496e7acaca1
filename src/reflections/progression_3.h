#pragma once

#include "foundation/ctr_3.h"
#include "foundation/triple_3.h"

/// The integers first + n step, for all n; none with a step of 0.
struct progression_3 {
    int first = 0;  ///< from 0 up to below the step
    int step = 0;

    bool is_empty() const { return step == 0; }
    /// The least member that isn't below l.
    int from(int l) const {
        const int rest = (l - first) % step;
        return rest > 0 ? l + step - rest : l - rest;
    }
    bool contains(int l) const { return (l - first) % step == 0; }
};

/// The l for which (h, k, l) gets a phase of whole turns from each of the translations. Each of
/// these asks for t l = c, modulo a turn, so that the differences of its solutions are the
/// multiples of one number, and so are those of the l that all of them have in common. `period` is
/// a multiple of that.
progression_3 whole_phases_3(const list_0_3<triple_3>& shifts, int h, int k, int period);
