#include "reflections/lattice_type_3.h"

#include <cstdint>

#include "foundation/sorted.h"
#include "symmetry/centring_table.h"

namespace {

bool even(std::int64_t value) { return value % 2 == 0; }

}  // namespace

int lattice_type_3::hkl_allowed(int, int, int) const { return 1; }
int lattice_type_3::hk_allowed(int, int) const { return 1; }

int a_lattice_type_3::hkl_allowed(int, int k, int l) const { return even(std::int64_t{k} + l); }

int b_lattice_type_3::hkl_allowed(int h, int, int l) const { return even(std::int64_t{h} + l); }

int c_lattice_type_3::hk_allowed(int h, int k) const { return even(std::int64_t{h} + k); }

int i_lattice_type_3::hkl_allowed(int h, int k, int l) const {
    return even(std::int64_t{h} + k + l);
}

int f_lattice_type_3::hkl_allowed(int h, int k, int l) const {
    return even(std::int64_t{h} + l) && even(std::int64_t{k} + l);
}

int f_lattice_type_3::hk_allowed(int h, int k) const { return even(std::int64_t{h} + k); }

int rr_lattice_type_3::hkl_allowed(int h, int k, int l) const {
    const std::int64_t difference = std::int64_t{h} - k;
    return (difference + l) % 3 == 0 || (l - difference) % 3 == 0;
}

namespace {

// Whether each operator has a partner under each vector of the lattice at `place`.
bool has_centring(const xyz_list_3& sorted, int place) {
    int_list_3 found;
    found.new_n_zero(sorted.n);
    for (int i = 0; i < sorted.n; ++i) {
        if (found[i] != 0) continue;
        for (const triple_3& vector : centring_vectors_3(place)) {
            const int j = bsearch(sorted, centring_copy_3(sorted[i], vector));
            if (j == not_found) return false;
            found[j] = 1;
        }
    }
    return true;
}

}  // namespace

char lattice_letter_3(const xyz_list_3& ops) {
    xyz_list_3 sorted(ops);
    normalise_xyzs_3(sorted);
    sort_xyzs_3(sorted);
    for (int place = 6; place > 0; --place) {
        if (has_centring(sorted, place)) return lattice_letters_3[place];
    }
    return 'p';
}

const lattice_type_3& lattice_of_3(const xyz_list_3& ops) {
    static const lattice_type_3 p;
    static const a_lattice_type_3 a;
    static const b_lattice_type_3 b;
    static const c_lattice_type_3 c;
    static const i_lattice_type_3 i;
    static const f_lattice_type_3 f;
    static const rr_lattice_type_3 r;
    switch (lattice_letter_3(ops)) {
        case 'a':
            return a;
        case 'b':
            return b;
        case 'c':
            return c;
        case 'i':
            return i;
        case 'f':
            return f;
        case 'r':
            return r;
        default:
            return p;
    }
}
