#pragma once

#include <compare>
#include <string>
#include <vector>

#include "analysis/hkl_class.h"
#include "group/space_group.h"

namespace lomar {

/// The phase of each parameter's reflection under an operator that fixes the class, in [0, 1): the
/// reflection h is present only if the sum of phase times parameter is whole. The phases of a
/// class form a group under addition.
fraction_vector phases_of(const fraction_vector& trans, const hkl_class& which);

/// All multiples of phases, 0 0 0 first.
std::vector<fraction_vector> multiples_of(const fraction_vector& phases);

/// The operators of a group sorted by what may cause conditions.
class condition_causes {
public:
    explicit condition_causes(const space_group& group);

    /// What makes reflections of a class absent unless they agree with these phases: the centring,
    /// if it does by itself, else the glide planes and screw axes that do.
    std::vector<std::string> of(const hkl_class& which, const fraction_vector& phases) const;

private:
    // The operators with one rotation part, which are copies by the centring of the first.
    struct rotation_copies {
        int_matrix rot;
        int kind;
        int_vector axis;
        std::vector<symop> operators;
    };

    // What an operator is called, and how well the name says what it does: 0 is best.
    struct cause_name {
        int rank;
        std::string text;
        friend std::strong_ordering operator<=>(const cause_name& a, const cause_name& b) = default;
    };

    bool from_centring(const hkl_class& which, const fraction_vector& phases) const;
    bool with_centring(const symop& op, const hkl_class& which,
                       const fraction_vector& phases) const;
    std::string cause(const rotation_copies& copies, const hkl_class& which,
                      const fraction_vector& phases) const;
    cause_name glide_name(const symop& op) const;
    cause_name screw_name(const symop& op) const;

    const space_group& group_;
    std::vector<rotation_copies> rotations_;  // planes first, then axes of falling order
};

}  // namespace lomar
