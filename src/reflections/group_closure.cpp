#include "reflections/group_closure.h"

#include <cstdint>

#include "foundation/sorted.h"

namespace {

using key_list = list_0_3<std::int64_t>;

// A number for a normalised operator, which grows in the order of less_than; -1 if it has a
// coefficient other than -1, 0 and 1.
std::int64_t key_of(const xyz_op_3& op) {
    std::int64_t key = 0;
    for (const auto& row : op.rows) {
        for (int j = 0; j < 3; ++j) {
            if (row[j] < -1 || row[j] > 1) return -1;
            key = 3 * key + row[j] + 1;
        }
        key = xyz_op_3::edge * key + row[3];
    }
    return key;
}

// The keys of sorted operators. Without all of them if two are equal, or one has none.
key_list keys_of(const xyz_list_3& sorted) {
    key_list keys;
    keys.set_max_n(sorted.n, false);
    std::int64_t before = -1;
    for (const xyz_op_3& op : sorted) {
        const std::int64_t key = key_of(op);
        if (key <= before) break;
        keys.add(key);
        before = key;
    }
    return keys;
}

// The operators that are products of the generators so far.
struct closure {
    closure(const xyz_list_3& sorted_, const key_list& keys_) : sorted(sorted_), keys(keys_) {
        reached.new_n_zero(sorted.n);
        queue.set_max_n(sorted.n, false);
    }

    void reach(int i) {
        if (reached[i] != 0) return;
        reached[i] = 1;
        queue.add(i);
    }

    // The index of the product of two operators, or not_found.
    int find_product(int last, int first) const {
        xyz_op_3 product = sorted[first];
        compose(product, sorted[last]);
        normalise(product);
        return bsearch(keys, key_of(product));
    }

    // False if a product with the new generator isn't in the list.
    bool extend(int generator) {
        const int old = queue.n;
        generators.add(generator);
        reach(generator);
        for (int i = 0; i < queue.n; ++i) {
            for (int g = i < old ? generators.n - 1 : 0; g < generators.n; ++g) {
                const int product = find_product(generators[g], queue[i]);
                if (product == not_found) return false;
                reach(product);
            }
        }
        return true;
    }

    const xyz_list_3& sorted;
    const key_list& keys;
    int_list_3 reached;  // 1 for those in the queue
    int_list_3 queue;
    int_list_3 generators;
};

}  // namespace

bool is_group_3(const xyz_list_3& sorted) {
    const key_list keys = keys_of(sorted);
    if (sorted.n == 0 || keys.n != sorted.n) return false;
    closure products(sorted, keys);
    for (int i = 0; i < sorted.n; ++i) {
        if (products.reached[i] == 0 && !products.extend(i)) return false;
    }
    return true;
}
