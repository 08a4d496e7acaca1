#pragma once

#include <random>
#include <utility>
#include <vector>

#include "analysis/completion.h"
#include "group/space_group.h"

namespace lomar {

/// How a group of the table is disguised.
enum class disguise {
    same_cell,   ///< another basis of the lattice that the whole coordinates make
    primitive,   ///< a primitive cell in any basis
    super_cell,  ///< a cell of several primitive ones; rotations may get fractions
    generators   ///< one of the first two, a few operators that make all others
};

/// The hand of the new axes.
enum class hand { right, left };

/// Makes groups in random axes and with random origins, from a seed.
class random_groups {
public:
    explicit random_groups(unsigned seed) : engine_(seed) {}

    /// A change of axes and origin that the disguise allows: matrix entries up to some tens, shifts
    /// in parts of 1 to 24.
    basis_change change(const std::vector<fraction_vector>& centring, disguise kind,
                        hand axes = hand::right) {
        basis_change result;
        if (kind == disguise::primitive || (kind == disguise::generators && below(2) == 0)) {
            translation_lattice lattice;
            for (const fraction_vector& v : centring) lattice.add(v);
            result.matrix = lattice.short_basis();
        }
        if (kind == disguise::super_cell) result.matrix[index(3)][index(3)] += fraction(1);
        if (determinant(result.matrix).is_zero()) result.matrix = to_fractions(unit_matrix);
        for (int step = below(8); step > 0; --step) {
            const std::size_t i = index(3), j = (i + 1 + index(2)) % 3;
            const fraction multiple(below(5) - 2);
            for (auto& row : result.matrix) row[i] += row[j] * multiple;
        }
        if (axes == hand::left) {
            const std::size_t i = index(3);
            for (auto& row : result.matrix) row[i] *= fraction(-1);
        }
        const int den = 1 + below(24);
        for (fraction& part : result.origin) part = fraction(below(den), den);
        return result;
    }

    /// The operators in the new axes: all modulo whole translations, shuffled, whole translations
    /// added; for generators a few of them.
    std::vector<given_operator> operators(const std::vector<symop>& group,
                                          const basis_change& change, disguise kind) {
        const fraction_matrix back = inverse(change.matrix);
        std::vector<given_operator> result;
        for (const symop& op : group) {
            given_operator now(op);
            now.rot = back * now.rot * change.matrix;
            now.trans = back * (op * change.origin - change.origin);
            result.push_back(now);
        }
        if (kind == disguise::super_cell || kind == disguise::generators)
            add_unit_vectors(result, back);
        shuffle(result);
        if (kind == disguise::generators) keep_generators(result);
        for (given_operator& op : result) {
            for (fraction& part : op.trans) part += fraction(below(9) - 4);
        }
        return result;
    }

private:
    // The engine's numbers are the same everywhere, those of the standard distributions aren't.
    int below(int n) { return static_cast<int>(engine_() % static_cast<unsigned>(n)); }
    std::size_t index(int n) { return static_cast<std::size_t>(below(n)); }

    template <typename Item>
    void shuffle(std::vector<Item>& list) {
        for (std::size_t i = list.size(); i > 1; --i) {
            std::swap(list[i - 1], list[index(static_cast<int>(i))]);
        }
    }

    static void add_unit_vectors(std::vector<given_operator>& list, const fraction_matrix& back) {
        for (std::size_t i = 0; i < 3; ++i) {
            given_operator shift;
            shift.trans = column(back, i);
            list.push_back(shift);
        }
    }

    // Each operator that adds to the group of those before it.
    static void keep_generators(std::vector<given_operator>& list) {
        std::vector<given_operator> kept;
        fraction size(1);
        for (const given_operator& op : list) {
            kept.push_back(op);
            const completed_group group = complete(kept);
            const fraction now = fraction(static_cast<std::int64_t>(group.operators.size())) /
                                 determinant(group.basis);
            if (now == size) kept.pop_back();
            size = now;
        }
        if (kept.empty()) kept.push_back(list.front());
        list = kept;
    }

    std::mt19937 engine_;
};

}  // namespace lomar
