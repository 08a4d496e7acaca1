#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>

#include "foundation/ctr_3.h"
#include "reflections/residue_filter_3.h"

/// A bit for each triple of indices h, k, l up to a size of its own along each axis, negative ones
/// included. Cells are numbered in the order of the triples, and linearly in them: an index that
/// grows by 1 adds a fixed number, and the cell of -h, -k, -l is the mirror image in the origin.
class index_grid_3 {
public:
    /// Makes the grid, with no cell marked. Fails with " Index limits too large" when it can't be
    /// held, and then there is none.
    void set_up(const std::int64_t half_width[3]);

    bool is_empty() const { return bits_.n == 0; }
    std::int64_t half_width(int axis) const { return half_width_[axis]; }

    /// The cell of 0, 0, 0.
    std::int64_t origin() const { return origin_; }
    /// How far the cell moves when the indices change by these.
    std::int64_t step(std::int64_t h, std::int64_t k, std::int64_t l) const {
        return h * stride_h_ + k * stride_k_ + l;
    }
    /// The cell of a triple, which must be within the grid.
    std::int64_t cell(std::int64_t h, std::int64_t k, std::int64_t l) const {
        return step(h, k, l) + origin_;
    }
    /// What a loop that marks cells needs of the grid, in a variable of its own.
    struct marks {
        std::uint64_t* bits;
        std::int64_t twice_origin;

        /// The mirror image of a cell in the origin.
        std::int64_t mate(std::int64_t cell) const { return twice_origin - cell; }
        /// Marks a cell; true if it wasn't marked.
        bool mark(std::int64_t cell) const {
            std::uint64_t& word = bits[cell >> 6];
            const std::uint64_t bit = std::uint64_t{1} << (cell & 63);
            const bool fresh = (word & bit) == 0;
            word |= bit;
            return fresh;
        }
    };
    marks marking() { return {bits_.block(), 2 * origin_}; }

    bool contains(std::int64_t index, int axis) const {
        return -half_width_[axis] <= index && index <= half_width_[axis];
    }

    bool mark(std::int64_t cell) { return marking().mark(cell); }
    bool is_marked(std::int64_t cell) const {
        return (bits_.block()[cell >> 6] >> (cell & 63) & 1) != 0;
    }

    /// Calls take(l) for l from -l_limit to l_limit upward, but for those whose residues aren't
    /// allowed and those whose cells are marked, by earlier calls of take, too. Looks at 64 cells
    /// at a time.
    template <typename Take>
    void scan_line(int h, int k, int l_limit, const residue_filter_3::words& allowed,
                   Take take) const {
        std::int64_t place = cell(h, k, -l_limit);
        for (int l = -l_limit; l <= l_limit;) {
            const std::uint64_t& word = bits_.block()[place >> 6];
            const int offset = static_cast<int>(place & 63);
            const int width = std::min(64 - offset, l_limit - l + 1);
            std::uint64_t open = allowed[residue_filter_3::residue_of(l)] & (~word >> offset);
            if (width < 64) open &= (std::uint64_t{1} << width) - 1;
            while (open != 0) {
                const int at = l + std::countr_zero(open);
                open &= open - 1;
                take(at);
                open &= ~word >> offset;
            }
            l += width;
            place += width;
        }
    }

private:
    list_0_3<std::uint64_t> bits_;
    std::int64_t half_width_[3] = {0, 0, 0};
    std::int64_t stride_h_ = 0;
    std::int64_t stride_k_ = 0;
    std::int64_t origin_ = 0;
};
