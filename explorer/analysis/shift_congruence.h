#pragma once

#include <array>
#include <optional>
#include <span>
#include <vector>

#include "group/fraction.h"

namespace lomar {

/// The congruences (W_i - 1) p = b_i modulo whole vectors, for some rotations W_i: which change of
/// origin p changes the translations of operators by b_i. Solved by the Smith normal form of the
/// matrices W_i - 1 one below the other (Grosse-Kunstleve, Acta Cryst. A55 (1999) 383-395, 6).
class shift_congruence {
public:
    explicit shift_congruence(const std::vector<int_matrix>& rotations);

    /// One solution, if there is any; b has a vector for each rotation.
    std::optional<fraction_vector> solve(const std::vector<fraction_vector>& b) const;
    /// What may be added to a solution: whole multiples of the periods, any multiple of the free
    /// directions.
    const std::vector<fraction_vector>& periods() const { return periods_; }
    const std::vector<fraction_vector>& free_directions() const { return free_; }

private:
    using whole_row = std::array<std::int64_t, 3>;
    void diagonalise(std::vector<whole_row>& rows);
    bool clear_column(std::vector<whole_row>& rows, std::size_t k);
    bool clear_row(std::vector<whole_row>& rows, std::size_t k);

    std::vector<std::vector<std::int64_t>> left_;         ///< U of U A Q = D
    std::array<std::array<std::int64_t, 3>, 3> right_{};  ///< Q
    std::array<std::int64_t, 3> diagonal_{};
    std::vector<fraction_vector> periods_;
    std::vector<fraction_vector> free_;
};

/// Of the points p + any sum of whole multiples of the periods and any multiples of the free
/// directions, the one in [0, 1) that is smallest: its first coordinate counts before its second.
/// The sums must hold the three unit vectors.
fraction_vector smallest_point(fraction_vector p, std::vector<fraction_vector> periods,
                               std::vector<fraction_vector> free_directions);

}  // namespace lomar
