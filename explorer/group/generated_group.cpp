#include "group/generated_group.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <tuple>

#include "group/library_adapter.h"

namespace lomar {

namespace {

constexpr std::size_t most_rotations = 48;
// A change of basis may make cells of many lattice points, but none that nobody could read.
constexpr std::size_t most_centrings = 256;

using vector_set = std::set<fraction_vector>;

// Operators, one for each rotation, on a lattice.
class coset_list {
public:
    explicit coset_list(const std::vector<fraction_vector>& centring)
        : centring_(centring.begin(), centring.end()) {}

    void close(const std::vector<symop>& generators) {
        for (const symop& generator : generators) check_lattice(generator.rot);
        add(symop());
        for (std::size_t i = 0; i < ops_.size(); ++i) {
            for (const symop& generator : generators) add(modulo_lattice(generator * ops_[i]));
        }
    }

    std::vector<symop> ops() const { return ops_; }

private:
    void add(const symop& op) {
        const auto known = std::find_if(ops_.begin(), ops_.end(),
                                        [&](const symop& other) { return other.rot == op.rot; });
        if (known == ops_.end()) {
            if (ops_.size() == most_rotations) {
                throw std::domain_error("its rotations make no point group");
            }
            ops_.push_back(op);
            return;
        }
        const fraction_vector between = modulo_one(op.trans - known->trans);
        if (!centring_.contains(between)) {
            throw std::domain_error("its operators make the translation " + text(between) +
                                    ", which its lattice lacks");
        }
    }

    void check_lattice(const int_matrix& rot) const {
        for (const fraction_vector& vector : centring_) {
            if (!centring_.contains(modulo_one(rot * vector))) {
                throw std::domain_error("its rotations don't keep its lattice");
            }
        }
    }

    vector_set centring_;
    std::vector<symop> ops_;
};

// All sums of the vectors, modulo 1.
std::vector<fraction_vector> closed_lattice(const std::vector<fraction_vector>& generators) {
    vector_set found = {fraction_vector{}};
    std::vector<fraction_vector> queue = {fraction_vector{}};
    for (std::size_t i = 0; i < queue.size(); ++i) {
        for (const fraction_vector& step : generators) {
            const fraction_vector sum = modulo_one(queue[i] + step);
            if (!found.insert(sum).second) continue;
            if (found.size() > most_centrings) throw std::domain_error("its new cell is too large");
            queue.push_back(sum);
        }
    }
    return {found.begin(), found.end()};
}

// The centring in the new axes, to which the old edges add.
std::vector<fraction_vector> changed_lattice(const std::vector<fraction_vector>& centring,
                                             const basis_change& change) {
    const vector_set old(centring.begin(), centring.end());
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const fraction_vector edge = {change.matrix[0][axis], change.matrix[1][axis],
                                      change.matrix[2][axis]};
        if (!old.contains(modulo_one(edge))) {
            throw std::domain_error("its new axes are no vectors of its lattice");
        }
    }
    const fraction_matrix back = inverse(change.matrix);
    std::vector<fraction_vector> generators;
    for (const fraction_vector& vector : centring) generators.push_back(back * vector);
    for (const int_vector& edge : unit_matrix) {
        generators.push_back(back * fraction_vector{edge[0], edge[1], edge[2]});
    }
    return closed_lattice(generators);
}

}  // namespace

operator_list generate(const std::vector<symop>& generators,
                       const std::vector<fraction_vector>& centring,
                       const std::optional<basis_change>& change) {
    coset_list cosets(centring);
    cosets.close(generators);
    std::vector<symop> ops = cosets.ops();
    operator_list result;
    result.centring = change ? changed_lattice(centring, *change) : closed_lattice(centring);
    if (change) {
        try {
            for (symop& op : ops) op = modulo_lattice(transformed(op, *change));
        } catch (const std::domain_error&) {
            throw std::domain_error("its new axes don't fit its rotations");
        }
    }
    sort_for_reading(ops);
    for (const fraction_vector& vector : result.centring) {
        for (symop op : ops) {
            op.trans = modulo_one(op.trans + vector);
            result.operators.push_back(op);
        }
    }
    return result;
}

void sort_for_reading(std::vector<symop>& ops) {
    const auto key = [](const symop& op) {
        const bool improper = determinant(op.rot) < 0;
        const int order = rotation_order(improper ? negated(op.rot) : op.rot);
        return std::tuple(improper, order, negated(op.rot), op.trans);
    };
    std::sort(ops.begin(), ops.end(),
              [&](const symop& a, const symop& b) { return key(a) < key(b); });
}

char lattice_letter(const std::vector<fraction_vector>& centring) {
    const vector_set wanted(centring.begin(), centring.end());
    for (const char letter : {'P', 'A', 'B', 'C', 'I', 'F', 'R'}) {
        const std::vector<fraction_vector> found = centring_of_letter(letter);
        if (vector_set(found.begin(), found.end()) == wanted) return letter;
    }
    return 0;
}

}  // namespace lomar
