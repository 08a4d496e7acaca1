#pragma once

#include <span>
#include <vector>

#include "analysis/point_group.h"
#include "analysis/whole_vectors.h"
#include "group/symop.h"

namespace lomar {

/// A choice of conventional axes for a group: columns in its primitive basis.
struct candidate_basis {
    int_matrix columns{};
    std::int64_t cost = 0;  ///< sum of the absolute entries in the input's axes, in a common unit
};

/// All right-handed choices of axes in which a standard setting may describe a group: along its
/// symmetry directions, as Grosse-Kunstleve, Acta Cryst. A55 (1999) 383-395, table 3, has it. Axes
/// that the directions fix are the shortest lattice vectors along them; in the plane of a three-,
/// four- or six-fold axis a pair that the axis turns into each other is a basis of the lattice.
/// These are finitely many. What a monoclinic or triclinic group leaves open are all bases of a
/// plane or of the lattice. Throws std::overflow_error when numbers leave their range.
class conventional_bases {
public:
    /// The lattice's basis is in the input's axes, the operators in that basis.
    conventional_bases(const fraction_matrix& lattice_basis, std::span<const symop> operators,
                       axes_family family);

    /// Whether first() are all; else it has one basis at least of each class modulo 2.
    bool finite() const { return family_ > axes_family::monoclinic; }
    /// By rising cost.
    std::vector<candidate_basis> first() const;
    /// For infinitely many: all whose cost is at most that, by rising cost. Where some hundreds of
    /// lattice vectors are in reach, those made of the shortest.
    std::vector<candidate_basis> up_to(std::int64_t cost) const;

    std::int64_t cost_of(const int_matrix& columns) const;

private:
    /// A lattice vector among those that are open, up to its sign.
    struct open_vector {
        long_vector steps{};  ///< in terms of frame_
        long_vector vector{};
        std::int64_t length = 0;
    };
    using candidates = std::vector<candidate_basis>;

    void add(candidates& list, const long_vector& a, const long_vector& b,
             const long_vector& c) const;
    candidates along_three_axes() const;
    candidates around_axis() const;
    candidates of_open(std::vector<open_vector> vectors, std::int64_t most) const;
    void add_pairs(candidates& list, const std::vector<open_vector>& vectors,
                   std::int64_t most) const;
    void add_triples(candidates& list, const std::vector<open_vector>& vectors,
                     std::int64_t most) const;
    /// Those with at most so many steps and of at most that length, shortest first; a reach of -1
    /// admits all.
    std::vector<open_vector> open_in_box(const long_vector& bounds, std::int64_t reach) const;
    long_vector bounds_of(std::int64_t length) const;
    std::int64_t length_of(const long_vector& v) const;
    void choose_frame();

    axes_family family_;
    std::vector<int_matrix> rotations_;      ///< proper parts
    std::array<long_vector, 3> in_input_{};  ///< the lattice basis in a common unit, by rows
    int handedness_ = 1;                     ///< sign of its determinant
    std::array<long_vector, 3> frame_{};     ///< short vectors that span what is open; for
                                             ///< monoclinic groups the third is the unique axis
};

}  // namespace lomar
