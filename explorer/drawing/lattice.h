#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "group/symop.h"

namespace lomar {

/// A vector in whole parts of lattice::unit() to a cell edge, so that sums stay exact and quick.
using scaled_vector = std::array<std::int64_t, 3>;

/// The translations among the operators of a cell, with all integer ones: those without time
/// reversal make the lattice, those with it are its antitranslations.
class lattice {
public:
    /// Throws std::domain_error for a rotation with entries beyond 1000, std::overflow_error for
    /// translations whose common denominator is beyond 10^9.
    explicit lattice(std::span<const symop> operators);

    /// Parts to a cell edge: 144 times the common denominator of the translations and of the
    /// components of the rotation axes, so that the places of all elements are whole.
    std::int64_t unit() const { return unit_; }
    scaled_vector scaled(const fraction_vector& v) const;
    fraction exact(std::int64_t parts) const { return {parts, unit_}; }
    /// The number less its floor, in parts.
    std::int64_t modulo_one(std::int64_t parts) const;

    bool contains(const scaled_vector& v) const { return is_among(translations_, v); }
    /// The lattice vectors in [0, 1), the null vector with them.
    const std::vector<scaled_vector>& translations() const { return translations_; }
    /// Whether a lattice vector has these first two components, modulo 1.
    bool has_over(const std::array<std::int64_t, 2>& place) const;
    /// Whether time reversal by itself is an operator.
    bool is_grey() const { return grey; }
    /// The length of the shortest lattice vector along a direction of smallest integers, as parts
    /// of that direction.
    std::int64_t period(const int_vector& direction) const;
    /// The least component along the third axis of the antitranslations that run along it.
    std::optional<fraction> upward_antitranslation() const;
    /// Whether an antitranslation runs along the direction.
    bool is_doubled_along(const int_vector& direction) const;
    /// The lattice vectors with components from -3 to 3 in the plane that a covector gives.
    std::vector<scaled_vector> vectors_in_plane(const int_vector& covector) const;

private:
    bool is_among(const std::vector<scaled_vector>& list, const scaled_vector& v) const;

    std::int64_t unit_ = 144;
    bool grey = false;
    std::vector<scaled_vector> translations_;
    std::vector<scaled_vector> antitranslations;
};

}  // namespace lomar
