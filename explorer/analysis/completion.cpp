#include "analysis/completion.h"

#include <algorithm>
#include <array>
#include <set>

#include "analysis/group_closure.h"
#include "analysis/whole_vectors.h"
#include "group/basis_change.h"

namespace lomar {

namespace {

constexpr std::size_t most_lattice_points = 10'000;
constexpr int most_rounds = 50;

std::string place_text(const given_operator& op) {
    const std::string text = "'" + given_text(op) + "'";
    return op.line > 0 ? text + " (line " + std::to_string(op.line) + ")" : text;
}

// Does something with an operator; an overflow then tells its place.
template <typename Action>
void at_place(const given_operator& op, const Action& action) {
    try {
        action();
    } catch (const std::overflow_error&) {
        throw not_a_group("a number is too large at " + place_text(op));
    }
}

bool has_finite_order(const fraction_matrix& m) {
    try {
        const fraction_matrix unit = to_fractions(unit_matrix);
        const fraction_matrix square = m * m;
        const fraction_matrix fourth = square * square;
        return fourth == unit || fourth * square == unit;
    } catch (const std::overflow_error&) {
        return false;
    }
}

void check_order(const given_operator& op) {
    if (has_finite_order(op.rot)) return;
    const std::string reason = determinant(op.rot).is_zero()
                                   ? ": its determinant is 0"
                                   : ": no power of its rotation is the unit";
    throw not_a_group("no crystal has the operator " + place_text(op) + reason);
}

// Every rotation once, in the order of the input, checked.
std::vector<const given_operator*> distinct_rotations(std::span<const given_operator> operators) {
    const auto raw_less = [](const fraction_matrix* a, const fraction_matrix* b) {
        for (std::size_t i = 0; i < 9; ++i) {
            const fraction& left = (*a)[i / 3][i % 3];
            const fraction& right = (*b)[i / 3][i % 3];
            if (left.num() != right.num()) return left.num() < right.num();
            if (left.den() != right.den()) return left.den() < right.den();
        }
        return false;
    };
    std::set<const fraction_matrix*, decltype(raw_less)> seen(raw_less);
    std::vector<const given_operator*> result;
    for (const given_operator& op : operators) {
        if (!seen.insert(&op.rot).second) continue;
        at_place(op, [&] { check_order(op); });
        result.push_back(&op);
    }
    return result;
}

// The axes in which all rotations are whole: the input's own, unless a matrix has fractions.
fraction_matrix whole_basis(const std::vector<const given_operator*>& rotations) {
    const bool whole = std::all_of(rotations.begin(), rotations.end(),
                                   [](const given_operator* op) { return is_whole(op->rot); });
    if (whole) return to_fractions(unit_matrix);
    for (std::size_t i = 0; i < rotations.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (has_finite_order(rotations[i]->rot * rotations[j]->rot)) continue;
            throw not_a_group("the operators make no finite group: the product of " +
                              place_text(*rotations[j]) + " and " + place_text(*rotations[i]) +
                              " has an infinite order");
        }
    }
    translation_lattice lattice;
    for (int round = 0; round < most_rounds; ++round) {
        bool grew = false;
        const fraction_matrix basis = lattice.short_basis();
        for (const given_operator* op : rotations) {
            for (std::size_t i = 0; i < 3; ++i) {
                if (lattice.add(op->rot * column(basis, i))) grew = true;
            }
        }
        if (!grew) return basis;
    }
    throw not_a_group("no lattice is kept by all operators");
}

// The input's operators in axes in which they are whole, and back.
struct whole_axes {
    explicit whole_axes(const fraction_matrix& to_basis)
        : trivial(to_basis == to_fractions(unit_matrix)),
          basis(to_basis),
          back(inverse(to_basis)) {}

    symop into(const given_operator& op) const {
        if (trivial) return {to_integers(op.rot), op.trans, op.time};
        return {to_integers(back * op.rot * basis), back * op.trans, op.time};
    }
    given_operator out(const symop& op) const {
        return {basis * to_fractions(op.rot) * back, basis * op.trans, op.time, 0};
    }

    bool trivial;
    fraction_matrix basis;
    fraction_matrix back;
};

const given_operator* find_given(std::span<const given_operator> operators, const whole_axes& axes,
                                 const symop& op) {
    const given_operator wanted = axes.out(op);
    for (const given_operator& given : operators) {
        if (given.rot == wanted.rot && given.time == wanted.time) return &given;
    }
    return nullptr;
}

[[noreturn]] void refuse(std::span<const given_operator> operators, const whole_axes& axes,
                         const group_closure::contradiction& pair) {
    std::string message = "the operators make no finite group: the product of ";
    const given_operator* first = find_given(operators, axes, pair.first);
    const given_operator* second = find_given(operators, axes, pair.second);
    message += place_text(first != nullptr ? *first : axes.out(pair.first)) + " and ";
    message += place_text(second != nullptr ? *second : axes.out(pair.second));
    throw not_a_group(message + " has an infinite order");
}

// How many of the operators differ by more than whole translations.
std::size_t count_distinct(std::span<const given_operator> operators) {
    std::vector<std::array<std::int64_t, 25>> keys;
    keys.reserve(operators.size());
    for (const given_operator& op : operators) {
        std::array<std::int64_t, 25> key{};
        const fraction_vector trans = modulo_one(op.trans);
        for (std::size_t i = 0; i < 12; ++i) {
            const fraction& entry = i < 9 ? op.rot[i / 3][i % 3] : trans[i - 9];
            key[2 * i] = entry.num();
            key[2 * i + 1] = entry.den();
        }
        key[24] = op.time;
        keys.push_back(key);
    }
    std::sort(keys.begin(), keys.end());
    return static_cast<std::size_t>(std::unique(keys.begin(), keys.end()) - keys.begin());
}

symop in_basis(const symop& op, const fraction_matrix& basis, const fraction_matrix& back,
               bool trivial) {
    if (trivial) return op;
    return {to_integers(back * to_fractions(op.rot) * basis), modulo_one(back * op.trans), op.time};
}

completed_group finish(const group_closure& closure, const whole_axes& axes) {
    completed_group group;
    const fraction_matrix short_basis = closure.lattice().short_basis();
    const fraction_matrix back = inverse(short_basis);
    const bool trivial = short_basis == to_fractions(unit_matrix);
    for (const symop& op : closure.operators()) {
        group.operators.push_back(in_basis(op, short_basis, back, trivial));
    }
    group.basis = axes.basis * short_basis;
    for (std::size_t i = 0; i < 3; ++i) group.lattice.add(column(group.basis, i));
    return group;
}

}  // namespace

std::string given_text(const given_operator& op) {
    std::string result;
    for (std::size_t i = 0; i < 3; ++i) {
        std::string row;
        for (std::size_t j = 0; j < 3; ++j) {
            const fraction& factor = op.rot[i][j];
            if (factor.is_zero()) continue;
            if (factor.num() > 0 && !row.empty()) row += '+';
            if (factor == fraction(-1)) {
                row += '-';
            } else if (factor != fraction(1)) {
                row += factor.text();
            }
            row += "xyz"[j];
        }
        if (!op.trans[i].is_zero() || row.empty()) {
            if (op.trans[i].num() > 0 && !row.empty()) row += '+';
            row += op.trans[i].text();
        }
        result += (i > 0 ? "," : "") + row;
    }
    return op.time < 0 ? result + ",-1" : result;
}

completed_group complete(std::span<const given_operator> operators) {
    const whole_axes axes(whole_basis(distinct_rotations(operators)));
    group_closure closure;
    try {
        for (const given_operator& op : operators) {
            at_place(op, [&] { closure.add(axes.into(op)); });
        }
    } catch (const group_closure::contradiction& pair) {
        refuse(operators, axes, pair);
    }
    closure.complete_lattice();
    completed_group group = finish(closure, axes);
    const fraction all =
        fraction(static_cast<std::int64_t>(group.operators.size())) / determinant(group.basis);
    group.grew = fraction(static_cast<std::int64_t>(count_distinct(operators))) < all;
    return group;
}

completed_group complete(std::span<const symop> operators) {
    std::vector<given_operator> given;
    given.reserve(operators.size());
    for (const symop& op : operators) given.emplace_back(op);
    return complete(given);
}

std::vector<symop> operators_of_cell(const completed_group& group) {
    const std::vector<fraction_vector> centring = group.lattice.in_cell(most_lattice_points);
    if (centring.size() * group.operators.size() > most_lattice_points) {
        throw not_a_group("the cell holds more than 10000 operators");
    }
    const fraction_matrix back = inverse(group.basis);
    std::vector<symop> result;
    for (const fraction_vector& shift : centring) {
        for (const symop& op : group.operators) {
            const fraction_matrix rot = group.basis * to_fractions(op.rot) * back;
            if (!is_whole(rot)) {
                throw not_a_group("in these axes a rotation is not whole: '" +
                                  given_text({rot, {}, op.time, 0}) + "'");
            }
            result.push_back({to_integers(rot),
                              modulo_one(group.lattice.reduced(group.basis * op.trans) + shift),
                              op.time});
        }
    }
    return result;
}

}  // namespace lomar
