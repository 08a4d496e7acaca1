#pragma once

#include <array>
#include <cstdint>

#include "reflections/lattice_type_3.h"

/// Which reflections are looked at, by the residues of their indices modulo 6: the conditions of
/// the lattices repeat with 2 or 3 on each index.
class residue_filter_3 {
public:
    static constexpr int period = 6;
    /// For each residue of the l to start at, which of 64 successive values of l are allowed.
    using words = std::array<std::uint64_t, period>;

    /// Allows all.
    residue_filter_3() { sets_.fill((1 << period) - 1); }
    /// Allows what a lattice lets exist.
    explicit residue_filter_3(const lattice_type_3& lattice);

    /// What is allowed on a line of l, or null if nothing is.
    const words* line(int h, int k) const {
        const unsigned set = sets_[residue_of(h) * period + residue_of(k)];
        return set == 0 ? nullptr : &words_of_sets_[set];
    }

    static std::size_t residue_of(int index) {
        return static_cast<std::size_t>((index % period + period) % period);
    }

private:
    static const std::array<words, 1 << period> words_of_sets_;

    std::array<std::uint8_t, period * period> sets_;  ///< by residues of h and k, those of l
};
