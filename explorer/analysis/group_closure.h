#pragma once

#include <map>
#include <utility>
#include <vector>

#include "analysis/translation_lattice.h"
#include "group/symop.h"

namespace lomar {

/// Grows a group operator by operator: all products, one of them for each rotation and time, and
/// the lattice of the translations by which products of one rotation differ.
class group_closure {
public:
    /// Two operators of the group whose product has an infinite order.
    struct contradiction {
        symop first;
        symop second;
    };

    group_closure();
    /// Throws contradiction when the group gets infinite other than by translations;
    /// std::overflow_error when entries leave 32 bits.
    void add(const symop& op);
    /// Adds the images of the lattice under all rotations, after which it is the group's. Lattice
    /// vectors of both times are told apart: those with reversal are operators.
    void complete_lattice();

    const std::vector<symop>& operators() const { return operators_; }
    /// Those of the added operators that make all others.
    const std::vector<symop>& generators() const { return generators_; }
    const translation_lattice& lattice() const { return lattice_; }

private:
    bool insert(const symop& op);
    void insert_product(const symop& a, const symop& b);

    std::vector<symop> operators_;
    std::vector<symop> generators_;
    std::map<std::pair<int_matrix, int>, std::size_t> place_;
    translation_lattice lattice_;
};

}  // namespace lomar
