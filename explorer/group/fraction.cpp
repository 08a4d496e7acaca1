#include "group/fraction.h"

#include <limits>
#include <numeric>
#include <stdexcept>

#include "group/exact_integers.h"

namespace lomar {

using namespace exact;

fraction::fraction(std::int64_t num, std::int64_t den) : num_(num), den_(den) {
    if (den == 0) throw std::domain_error("a denominator is 0");
    if (den_ < 0) {
        num_ = negative(num_);
        den_ = negative(den_);
    }
    if (num_ == std::numeric_limits<std::int64_t>::min()) overflow();
    const std::int64_t common = std::gcd(num_, den_);
    num_ /= common;
    den_ /= common;
}

std::int64_t fraction::floor() const {
    const std::int64_t quotient = num_ / den_;
    return num_ % den_ < 0 ? quotient - 1 : quotient;
}

fraction fraction::modulo_one() const { return *this - fraction(floor()); }

std::string fraction::text() const {
    std::string result = std::to_string(num_);
    if (den_ != 1) result += "/" + std::to_string(den_);
    return result;
}

fraction& fraction::operator+=(const fraction& other) {
    if (den_ == other.den_) {
        num_ = sum(num_, other.num_);
        if (den_ != 1) *this = fraction(num_, den_);
        return *this;
    }
    const std::int64_t common = std::gcd(den_, other.den_);
    const std::int64_t left = product(num_, other.den_ / common);
    const std::int64_t right = product(other.num_, den_ / common);
    return *this = fraction(sum(left, right), product(den_, other.den_ / common));
}

fraction& fraction::operator-=(const fraction& other) {
    fraction negated = other;
    negated.num_ = negative(other.num_);
    return *this += negated;
}

fraction& fraction::operator*=(const fraction& other) {
    const std::int64_t left = std::gcd(num_, other.den_);
    const std::int64_t right = std::gcd(other.num_, den_);
    const std::int64_t num = product(num_ / left, other.num_ / right);
    den_ = product(den_ / right, other.den_ / left);
    num_ = num;
    if (num_ == 0) den_ = 1;
    return *this;
}

fraction& fraction::operator/=(const fraction& other) {
    return *this *= fraction(other.den_, other.num_);
}

std::strong_ordering operator<=>(const fraction& a, const fraction& b) {
    return (a - b).num() <=> std::int64_t{0};
}

fraction_vector operator+(const fraction_vector& a, const fraction_vector& b) {
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

fraction_vector operator-(const fraction_vector& a, const fraction_vector& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

fraction_vector operator*(const fraction_matrix& m, const fraction_vector& v) {
    fraction_vector result;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            if (!m[i][j].is_zero()) result[i] += m[i][j] * v[j];
        }
    }
    return result;
}

fraction_vector operator*(const int_matrix& m, const fraction_vector& v) {
    fraction_vector result;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            if (m[i][j] != 0) result[i] += fraction(m[i][j]) * v[j];
        }
    }
    return result;
}

int_vector operator*(const int_matrix& m, const int_vector& v) {
    int_vector result{};
    for (std::size_t i = 0; i < 3; ++i) {
        std::int64_t total = 0;
        for (std::size_t j = 0; j < 3; ++j) {
            total = sum(total, std::int64_t{m[i][j]} * v[j]);
        }
        result[i] = narrowed(total);
    }
    return result;
}

fraction_matrix operator*(const fraction_matrix& a, const fraction_matrix& b) {
    fraction_matrix result;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            for (std::size_t k = 0; k < 3; ++k) {
                if (!a[i][k].is_zero()) result[i][j] += a[i][k] * b[k][j];
            }
        }
    }
    return result;
}

int_matrix operator*(const int_matrix& a, const int_matrix& b) {
    int_matrix result{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            std::int64_t total = 0;
            for (std::size_t k = 0; k < 3; ++k) {
                total = sum(total, std::int64_t{a[i][k]} * b[k][j]);
            }
            result[i][j] = narrowed(total);
        }
    }
    return result;
}

fraction determinant(const fraction_matrix& m) {
    return m[0][0] * (m[1][1] * m[2][2] - m[1][2] * m[2][1]) -
           m[0][1] * (m[1][0] * m[2][2] - m[1][2] * m[2][0]) +
           m[0][2] * (m[1][0] * m[2][1] - m[1][1] * m[2][0]);
}

int determinant(const int_matrix& m) {
    std::int64_t total = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t j = (i + 1) % 3, k = (i + 2) % 3;
        const std::int64_t minor =
            sum(product(m[1][j], m[2][k]), negative(product(m[1][k], m[2][j])));
        total = sum(total, product(m[0][i], minor));
    }
    return narrowed(total);
}

int trace(const int_matrix& m) { return narrowed(std::int64_t{m[0][0]} + m[1][1] + m[2][2]); }

int_matrix transposed(const int_matrix& m) {
    int_matrix result{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) result[i][j] = m[j][i];
    }
    return result;
}

int_matrix negated(const int_matrix& m) {
    int_matrix result{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) result[i][j] = narrowed(-std::int64_t{m[i][j]});
    }
    return result;
}

fraction_matrix to_fractions(const int_matrix& m) {
    fraction_matrix result;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) result[i][j] = fraction(m[i][j]);
    }
    return result;
}

int_matrix to_integers(const fraction_matrix& m) {
    int_matrix result{};
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            if (!m[i][j].is_integer()) throw std::domain_error("a matrix entry is no integer");
            result[i][j] = narrowed(m[i][j].num());
        }
    }
    return result;
}

fraction_matrix inverse(const fraction_matrix& m) {
    const fraction det = determinant(m);
    if (det.is_zero()) throw std::domain_error("a matrix has no inverse");
    fraction_matrix result;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            const std::size_t r1 = (j + 1) % 3, r2 = (j + 2) % 3;
            const std::size_t c1 = (i + 1) % 3, c2 = (i + 2) % 3;
            result[i][j] = (m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1]) / det;
        }
    }
    return result;
}

fraction_vector modulo_one(const fraction_vector& v) {
    return {v[0].modulo_one(), v[1].modulo_one(), v[2].modulo_one()};
}

bool is_integer(const fraction_vector& v) {
    return v[0].is_integer() && v[1].is_integer() && v[2].is_integer();
}

std::string text(const fraction_vector& v) {
    return v[0].text() + "," + v[1].text() + "," + v[2].text();
}

}  // namespace lomar
