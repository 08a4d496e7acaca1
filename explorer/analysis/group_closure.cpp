#include "analysis/group_closure.h"

namespace lomar {

namespace {

// A finite group of whole matrices has at most 48 elements, so 96 with time reversal; an infinite
// one shows a product of infinite order long before this many.
constexpr std::size_t most_operators = 1000;

}  // namespace

group_closure::group_closure() { insert(symop()); }

bool group_closure::insert(const symop& op) {
    const auto [at, is_new] = place_.try_emplace({op.rot, op.time}, operators_.size());
    if (is_new) {
        operators_.push_back(modulo_lattice(op));
    } else {
        lattice_.add(modulo_one(op.trans - operators_[at->second].trans));
    }
    return is_new;
}

void group_closure::insert_product(const symop& a, const symop& b) {
    const symop product = a * b;
    if (!insert(product)) return;
    if (rotation_order(product.rot) == 0 || operators_.size() > most_operators) {
        throw contradiction{a, b};
    }
}

void group_closure::add(const symop& op) {
    if (place_.contains({op.rot, op.time})) {
        insert(op);
        return;
    }
    for (const symop& generator : generators_) {
        if (rotation_order(generator.rot * op.rot) == 0) throw contradiction{generator, op};
    }
    generators_.push_back(op);
    const std::size_t old_count = operators_.size();
    for (std::size_t i = 0; i < operators_.size(); ++i) {
        const std::size_t first = i < old_count ? generators_.size() - 1 : 0;
        for (std::size_t g = first; g < generators_.size(); ++g) {
            insert_product(operators_[i], generators_[g]);
        }
    }
}

void group_closure::complete_lattice() {
    for (bool grew = true; grew;) {
        grew = false;
        const fraction_matrix basis = lattice_.short_basis();
        for (const symop& generator : generators_) {
            for (std::size_t i = 0; i < 3; ++i) {
                if (lattice_.add(generator.rot * column(basis, i))) grew = true;
            }
        }
    }
}

}  // namespace lomar
