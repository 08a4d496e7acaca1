#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "analysis/translation_lattice.h"
#include "group/symop.h"

namespace lomar {

/// An operator as it was given: its matrix may hold fractions, as in a cell whose axes the
/// lattice's symmetry doesn't keep whole.
struct given_operator {
    fraction_matrix rot = to_fractions(unit_matrix);
    fraction_vector trans;
    int time = 1;
    int line = 0;             ///< where it was read, from 1; 0 if nowhere
    bool time_given = false;  ///< whether time reversal was written, be it 1

    given_operator() = default;
    given_operator(const fraction_matrix& w, const fraction_vector& shift, int reversal, int place)
        : rot(w), trans(shift), time(reversal), line(place) {}
    explicit given_operator(const symop& op)
        : rot(to_fractions(op.rot)), trans(op.trans), time(op.time) {}
};

/// As xyz_text, with time reversal as a fourth field where there is one.
std::string given_text(const given_operator& op);

/// What operators can't be in one space group, and why; one line.
class not_a_group : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A group that is complete: all products of what was given, and all its lattice translations.
struct completed_group {
    fraction_matrix basis;         ///< of the lattice of unprimed translations, as columns, short
    translation_lattice lattice;   ///< the same lattice in the input's axes
    std::vector<symop> operators;  ///< in `basis`: one for each rotation and time, identity first
    bool grew = false;             ///< whether the list lacked operators, whole translations aside
};

/// All products of the operators, together with the whole translations. Throws not_a_group when
/// they are infinitely many other than by translations: it names the operator, or the two whose
/// product shows it; likewise the operator at which numbers leave their range. Throws
/// std::overflow_error when they do so with all operators together.
completed_group complete(std::span<const given_operator> operators);
completed_group complete(std::span<const symop> operators);

/// The operators of one cell in the input's axes, the identity first, translations in [0, 1), in
/// the order of space_group: each centring vector's stretch after the other. Throws not_a_group
/// when a rotation is not whole in these axes, and when the cell holds more than 10000 operators.
std::vector<symop> operators_of_cell(const completed_group& group);

}  // namespace lomar
