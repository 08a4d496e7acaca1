#include "analysis/conventional_bases.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <stdexcept>

namespace lomar {

namespace {

constexpr std::int64_t most_steps = 12;    // of a frame vector, in a search for short vectors
constexpr std::size_t most_vectors = 200;  // of which bases are made
constexpr std::int64_t largest_entry = 1'000'000'000;

constexpr std::array<std::array<std::size_t, 3>, 6> permutations = {
    {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {1, 0, 2}, {0, 2, 1}, {2, 1, 0}}};

std::int64_t common_denominator(const fraction_matrix& m) {
    std::int64_t common = 1;
    for (const auto& row : m) {
        for (const fraction& entry : row) {
            common = common / std::gcd(common, entry.den());
            if (common > largest_entry / entry.den()) {
                throw std::overflow_error("a number is too large");
            }
            common *= entry.den();
        }
    }
    return common;
}

void sort_by_cost(std::vector<candidate_basis>& list) {
    std::stable_sort(
        list.begin(), list.end(),
        [](const candidate_basis& a, const candidate_basis& b) { return a.cost < b.cost; });
}

// One of each pair v, -v; the null vector is none.
bool leads(const long_vector& v) {
    for (const std::int64_t entry : v) {
        if (entry != 0) return entry > 0;
    }
    return false;
}

}  // namespace

conventional_bases::conventional_bases(const fraction_matrix& lattice_basis,
                                       std::span<const symop> operators, axes_family family)
    : family_(family) {
    for (const symop& op : operators) rotations_.push_back(proper_part(op.rot));
    const fraction unit(common_denominator(lattice_basis));
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            in_input_[i][j] = (lattice_basis[i][j] * unit).num();
            if (std::abs(in_input_[i][j]) > largest_entry) {
                throw std::overflow_error("a number is too large");
            }
        }
    }
    handedness_ = determinant(lattice_basis) < fraction(0) ? -1 : 1;
    if (!finite()) choose_frame();
}

std::int64_t conventional_bases::length_of(const long_vector& v) const {
    std::int64_t total = 0;
    for (const long_vector& row : in_input_) total += std::abs(dot(row, v));
    return total;
}

std::int64_t conventional_bases::cost_of(const int_matrix& columns) const {
    std::int64_t total = 0;
    for (std::size_t j = 0; j < 3; ++j) {
        total += length_of({columns[0][j], columns[1][j], columns[2][j]});
    }
    return total;
}

void conventional_bases::choose_frame() {
    frame_ = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
    if (family_ == axes_family::triclinic) return;
    for (const int_matrix& rot : rotations_) {
        if (rot == unit_matrix) continue;
        const auto [first, second] = basis_of_plane(plane_of(rot, 2));
        long_vector u = first, v = second;
        for (bool changed = true; changed;) {
            changed = false;
            if (length_of(v) < length_of(u)) std::swap(u, v);
            for (const std::int64_t sign : {1, -1}) {
                while (length_of(plus(v, sign, u)) < length_of(v)) {
                    v = plus(v, sign, u);
                    changed = true;
                }
            }
        }
        frame_ = {u, v, axis_of(rot)};
        return;
    }
}

// With all signs that keep the basis right-handed.
void conventional_bases::add(candidates& list, const long_vector& a, const long_vector& b,
                             const long_vector& c) const {
    const std::int64_t volume = determinant(a, b, c) * handedness_;
    const int hand = volume < 0 ? -1 : 1;
    const std::int64_t cost = length_of(a) + length_of(b) + length_of(c);
    for (const int along_a : {1, -1}) {
        for (const int along_b : {1, -1}) {
            const int along_c = hand * along_a * along_b;
            list.push_back({matrix_of_columns(plus({}, along_a, a), plus({}, along_b, b),
                                              plus({}, along_c, c)),
                            cost});
        }
    }
}

std::vector<candidate_basis> conventional_bases::first() const {
    switch (family_) {
        case axes_family::orthorhombic:
        case axes_family::cubic:
            return along_three_axes();
        case axes_family::tetragonal:
        case axes_family::hexagonal:
            return around_axis();
        default:
            return of_open(open_in_box({1, 1, 1}, -1), -1);
    }
}

std::vector<candidate_basis> conventional_bases::up_to(std::int64_t cost) const {
    // What the other axes leave for the longest.
    const std::int64_t shortest = open_in_box({1, 1, 1}, -1).front().length;
    const bool monoclinic = family_ == axes_family::monoclinic;
    const std::int64_t reach = cost - shortest - (monoclinic ? length_of(frame_[2]) : shortest);
    return of_open(open_in_box(bounds_of(reach), reach), cost);
}

std::vector<candidate_basis> conventional_bases::along_three_axes() const {
    const bool four_fold =
        std::any_of(rotations_.begin(), rotations_.end(),
                    [](const int_matrix& rot) { return rotation_kind(rot) == 4; });
    std::vector<long_vector> axes;
    for (const int_matrix& rot : rotations_) {
        if (rotation_kind(rot) != (four_fold ? 4 : 2)) continue;
        const long_vector axis = axis_of(rot);
        if (std::find(axes.begin(), axes.end(), axis) != axes.end()) continue;
        if (std::find(axes.begin(), axes.end(), -axis) == axes.end()) axes.push_back(axis);
    }
    if (axes.size() != 3) throw std::domain_error("three axes were expected");
    candidates list;
    for (const auto& [i, j, k] : permutations) add(list, axes[i], axes[j], axes[k]);
    sort_by_cost(list);
    return list;
}

std::vector<candidate_basis> conventional_bases::around_axis() const {
    const int order = family_ == axes_family::hexagonal ? 3 : 4;
    const auto main = std::find_if(rotations_.begin(), rotations_.end(),
                                   [&](const int_matrix& r) { return rotation_kind(r) == order; });
    if (main == rotations_.end()) throw std::domain_error("a main axis was expected");
    const long_vector axis = axis_of(*main);
    const long_vector u = turned_basis(basis_of_plane(plane_of(*main, order)), *main);
    const long_vector v = times(*main, u);
    const long_vector w = times(*main, v);
    candidates list;
    if (order == 4) {
        add(list, u, v, axis);
        add(list, v, u, axis);
    } else {
        // Two axes that enclose 120 degrees: of the signs in add, those that are alike.
        for (const auto& [a, b] : {std::pair(u, v), std::pair(v, w), std::pair(w, u)}) {
            add(list, a, b, axis);
            add(list, b, a, axis);
        }
    }
    sort_by_cost(list);
    return list;
}

std::vector<conventional_bases::open_vector> conventional_bases::open_in_box(
    const long_vector& bounds, std::int64_t reach) const {
    std::vector<open_vector> result;
    const std::int64_t last = family_ == axes_family::monoclinic ? 0 : bounds[2];
    for (std::int64_t i = -bounds[0]; i <= bounds[0]; ++i) {
        for (std::int64_t j = -bounds[1]; j <= bounds[1]; ++j) {
            for (std::int64_t k = -last; k <= last; ++k) {
                if (!leads({i, j, k})) continue;
                const long_vector v =
                    plus(plus(plus({}, i, frame_[0]), j, frame_[1]), k, frame_[2]);
                const std::int64_t length = length_of(v);
                if (reach < 0 || length <= reach) result.push_back({{i, j, k}, v, length});
            }
        }
    }
    std::stable_sort(result.begin(), result.end(), [](const open_vector& a, const open_vector& b) {
        return a.length < b.length;
    });
    if (result.size() > most_vectors) result.resize(most_vectors);
    return result;
}

// How many steps of each frame vector a vector of that length may have: it is at most the length
// times the greatest entry of the frame's reciprocal vector.
long_vector conventional_bases::bounds_of(std::int64_t length) const {
    std::array<std::array<double, 3>, 3> f{};
    for (std::size_t j = 0; j < 3; ++j) {
        for (std::size_t i = 0; i < 3; ++i)
            f[j][i] = static_cast<double>(dot(in_input_[i], frame_[j]));
    }
    long_vector result{};
    for (std::size_t j = 0; j < 3; ++j) {
        const auto& p = f[(j + 1) % 3];
        const auto& q = f[(j + 2) % 3];
        double volume = 0;
        double greatest = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            const std::size_t i1 = (i + 1) % 3, i2 = (i + 2) % 3;
            const double normal = p[i1] * q[i2] - p[i2] * q[i1];
            volume += normal * f[j][i];
            greatest = std::max(greatest, std::abs(normal));
        }
        const double bound = static_cast<double>(length) * greatest / std::abs(volume) + 1e-6;
        result[j] = std::clamp<std::int64_t>(static_cast<std::int64_t>(std::min(bound, 1e6)), 1,
                                             most_steps);
    }
    return result;
}

std::vector<candidate_basis> conventional_bases::of_open(std::vector<open_vector> vectors,
                                                         std::int64_t most) const {
    candidates list;
    if (family_ == axes_family::monoclinic) {
        add_pairs(list, vectors, most);
    } else {
        add_triples(list, vectors, most);
    }
    sort_by_cost(list);
    return list;
}

// a and c of a monoclinic group; a cost of -1 admits all.
void conventional_bases::add_pairs(candidates& list, const std::vector<open_vector>& vectors,
                                   std::int64_t most) const {
    const std::int64_t axis = length_of(frame_[2]);
    for (std::size_t i = 0; i < vectors.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const open_vector& a = vectors[i];
            const open_vector& c = vectors[j];
            if (most >= 0 && a.length + c.length + axis > most) break;
            const std::int64_t area = a.steps[0] * c.steps[1] - a.steps[1] * c.steps[0];
            if (area != 1 && area != -1) continue;
            add(list, a.vector, frame_[2], c.vector);
            add(list, c.vector, frame_[2], a.vector);
        }
    }
}

void conventional_bases::add_triples(candidates& list, const std::vector<open_vector>& vectors,
                                     std::int64_t most) const {
    for (std::size_t i = 0; i < vectors.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            if (most >= 0 && vectors[i].length + vectors[j].length > most) break;
            for (std::size_t k = 0; k < j; ++k) {
                const std::array<const open_vector*, 3> v = {&vectors[i], &vectors[j], &vectors[k]};
                if (most >= 0 && v[0]->length + v[1]->length + v[2]->length > most) break;
                const std::int64_t volume = determinant(v[0]->steps, v[1]->steps, v[2]->steps);
                if (volume != 1 && volume != -1) continue;
                for (const auto& [p, q, r] : permutations) {
                    add(list, v[p]->vector, v[q]->vector, v[r]->vector);
                }
            }
        }
    }
}

}  // namespace lomar
