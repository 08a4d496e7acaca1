#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace lomar {

/// A rational number in lowest terms, its denominator above 0. Every operation is exact; one whose
/// result leaves 64 bits throws std::overflow_error.
class fraction {
public:
    constexpr fraction() = default;
    constexpr fraction(std::int64_t whole) : num_(whole) {}  // NOLINT: whole numbers are fractions
    /// Throws std::domain_error for a denominator of 0.
    fraction(std::int64_t num, std::int64_t den);

    constexpr std::int64_t num() const { return num_; }
    constexpr std::int64_t den() const { return den_; }
    constexpr bool is_zero() const { return num_ == 0; }
    constexpr bool is_integer() const { return den_ == 1; }
    double to_double() const { return static_cast<double>(num_) / static_cast<double>(den_); }

    /// The greatest integer that is not above the number.
    std::int64_t floor() const;
    /// The number less its floor: from 0 to below 1.
    fraction modulo_one() const;

    /// `1/4`, `-3/2`, `0`.
    std::string text() const;

    fraction& operator+=(const fraction& other);
    fraction& operator-=(const fraction& other);
    fraction& operator*=(const fraction& other);
    /// Throws std::domain_error for a division by 0.
    fraction& operator/=(const fraction& other);

    friend fraction operator+(fraction a, const fraction& b) { return a += b; }
    friend fraction operator-(fraction a, const fraction& b) { return a -= b; }
    friend fraction operator*(fraction a, const fraction& b) { return a *= b; }
    friend fraction operator/(fraction a, const fraction& b) { return a /= b; }
    fraction operator-() const { return fraction() - *this; }

    friend constexpr bool operator==(const fraction& a, const fraction& b) = default;
    friend std::strong_ordering operator<=>(const fraction& a, const fraction& b);

private:
    std::int64_t num_ = 0;
    std::int64_t den_ = 1;
};

using fraction_vector = std::array<fraction, 3>;
using fraction_matrix = std::array<std::array<fraction, 3>, 3>;
using int_vector = std::array<int, 3>;
using int_matrix = std::array<std::array<int, 3>, 3>;

inline constexpr int_matrix unit_matrix = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

fraction_vector operator+(const fraction_vector& a, const fraction_vector& b);
fraction_vector operator-(const fraction_vector& a, const fraction_vector& b);
fraction_vector operator*(const fraction_matrix& m, const fraction_vector& v);
fraction_vector operator*(const int_matrix& m, const fraction_vector& v);
int_vector operator*(const int_matrix& m, const int_vector& v);
fraction_matrix operator*(const fraction_matrix& a, const fraction_matrix& b);
/// Throws std::overflow_error beyond 32 bits.
int_matrix operator*(const int_matrix& a, const int_matrix& b);

fraction determinant(const fraction_matrix& m);
/// Throws std::overflow_error beyond 32 bits.
int determinant(const int_matrix& m);
int trace(const int_matrix& m);
int_matrix transposed(const int_matrix& m);
int_matrix negated(const int_matrix& m);
fraction_matrix to_fractions(const int_matrix& m);
/// Throws std::domain_error when an entry is no integer, std::overflow_error beyond 32 bits.
int_matrix to_integers(const fraction_matrix& m);
/// Throws std::domain_error for a determinant of 0.
fraction_matrix inverse(const fraction_matrix& m);

/// Each component less its floor.
fraction_vector modulo_one(const fraction_vector& v);
bool is_integer(const fraction_vector& v);
/// The texts with commas between them: `0,1/2,-1/4`.
std::string text(const fraction_vector& v);

}  // namespace lomar
