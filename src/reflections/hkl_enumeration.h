#pragma once

#include <algorithm>
#include <bit>

#include "reflections/hkl_generator_3.h"

// The loops of hkl_generator_3, for the files that define its lists. What is to be done with a
// reflection comes from the caller.

/// Goes through the reflections within the limits, but for those with h below 0, whose mates have
/// it above: all l of an h and a k before the next k, upward. Calls take(h, k, l) for those that
/// aren't marked by then and whose residues are allowed.
template <typename Take>
void hkl_generator_3::enumerate(const residue_sets& allowed, const triple_3& limits, Take take) {
    // Limits beyond the grid, which only an incomplete class list leads to, are cut to it.
    int within[3];
    for (int i = 0; i < 3; ++i) {
        within[i] =
            std::max(-1, static_cast<int>(std::min<std::int64_t>(limits[i], half_width_[i])));
    }
    for (int h = 0; h <= within[0]; ++h) {
        for (int k = -within[1]; k <= within[1]; ++k) {
            const int set = allowed[static_cast<unsigned>(residue_of(h) * period + residue_of(k))];
            if (set != 0) scan_line(h, k, within[2], static_cast<unsigned>(set), take);
        }
    }
}

// Walks the cells of (h, k, -l_limit) to (h, k, l_limit) a word at a time and takes up each that is
// neither marked nor forbidden.
template <typename Take>
void hkl_generator_3::scan_line(int h, int k, int l_limit, unsigned allowed, Take take) {
    if (l_limit < 0) return;
    general_line_.ops = nullptr;
    zero_line_.ops = nullptr;
    presence_.begin_line(h, k);
    std::int64_t cell = cell_of(h, k, -l_limit);
    int l = -l_limit;
    while (l <= l_limit) {
        const std::uint64_t& word = seen_[static_cast<int>(cell >> 6)];
        const int offset = static_cast<int>(cell & 63);
        const int width = std::min(64 - offset, l_limit - l + 1);
        std::uint64_t open = patterns_[allowed][static_cast<unsigned>(residue_of(l))];
        if (width < 64) open &= (std::uint64_t{1} << width) - 1;
        open &= ~word >> offset;
        while (open != 0) {
            const int at = l + std::countr_zero(open);
            open &= open - 1;
            take(h, k, at);
            open &= ~word >> offset;
        }
        l += width;
        cell += width;
    }
}
