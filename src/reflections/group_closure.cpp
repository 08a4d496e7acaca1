#include "reflections/group_closure.h"

#include "foundation/sorted.h"

namespace {

bool ascends(const xyz_list_3& sorted) {
    for (int i = 1; i < sorted.n; ++i) {
        if (!less_than(sorted[i - 1], sorted[i])) return false;
    }
    return true;
}

// Where the product of two operators stands, or not_found.
int find_product(const xyz_list_3& sorted, int last, int first) {
    xyz_op_3 product = sorted[first];
    compose(product, sorted[last]);
    normalise(product);
    return bsearch(sorted, product);
}

// The operators that are products of the generators so far.
struct closure {
    explicit closure(const xyz_list_3& sorted_) : sorted(sorted_) {
        reached.new_n_zero(sorted.n);
        queue.set_max_n(sorted.n, false);
    }

    void reach(int i) {
        if (reached[i] != 0) return;
        reached[i] = 1;
        queue.add(i);
    }

    // False if a product with the new generator isn't in the list.
    bool extend(int generator) {
        const int old = queue.n;
        generators.add(generator);
        reach(generator);
        for (int i = 0; i < queue.n; ++i) {
            for (int g = i < old ? generators.n - 1 : 0; g < generators.n; ++g) {
                const int product = find_product(sorted, generators[g], queue[i]);
                if (product == not_found) return false;
                reach(product);
            }
        }
        return true;
    }

    const xyz_list_3& sorted;
    int_list_3 reached;  // 1 for those in the queue
    int_list_3 queue;
    int_list_3 generators;
};

}  // namespace

bool is_group_3(const xyz_list_3& sorted) {
    if (sorted.n == 0 || !ascends(sorted)) return false;
    closure products(sorted);
    for (int i = 0; i < sorted.n; ++i) {
        if (products.reached[i] == 0 && !products.extend(i)) return false;
    }
    return true;
}
