#include "analysis/reflection_line.h"

#include <cstdlib>
#include <set>

namespace lomar {

namespace {

int floor_quotient(int a, int b) {
    const int quotient = a / b;
    return a % b != 0 && (a < 0) != (b < 0) ? quotient - 1 : quotient;
}

int_matrix minus_identity(int_matrix m) {
    for (std::size_t i = 0; i < 3; ++i) --m[i][i];
    return m;
}

std::int16_t first_broken(const std::vector<reflection_condition>& conditions,
                          const int_vector& hkl) {
    for (std::size_t i = 0; i < conditions.size(); ++i) {
        if (conditions[i].broken_by(hkl)) return static_cast<std::int16_t>(i);
    }
    return -1;
}

int part(const int_matrix& m, std::size_t row, int h, int k) {
    return m[row][0] * h + m[row][1] * k;
}

}  // namespace

reflection_lines::reflection_lines(const space_group& group,
                                   const std::vector<reflection_condition>& conditions)
    : conditions_(conditions) {
    std::set<int_matrix> images;
    for (const symop& op : group.representatives()) {
        images.insert(transposed(op.rot));
        images.insert(negated(transposed(op.rot)));
    }
    images.erase(unit_matrix);
    for (const int_matrix& image : images) differences_.push_back(negated(minus_identity(image)));
    for (const reflection_condition& condition : conditions) {
        off_class_.push_back(minus_identity(condition.pattern * condition.parameters));
    }
    on_line_.reserve(conditions.size());
}

// Leaves the l between which every image but those of `n_fixing` operators, which fix the line, is
// smaller; false if nowhere on the line.
bool reflection_lines::narrow(int h, int k, int& low, int& high, int& n_fixing) {
    for (std::size_t n = 0; n < differences_.size(); ++n) {
        const int_matrix& difference = differences_[n];
        bool fixes = true;
        for (std::size_t i = 0; i < 3; ++i) {
            const int start = part(difference, i, h, k);
            const int step = difference[i][2];
            if (step == 0 && start == 0) continue;
            if (step == 0 && start < 0) return rule_out(n);
            if (step > 0) low = std::max(low, floor_quotient(-start, step) + 1);
            if (step < 0) high = std::min(high, -floor_quotient(start, step) - 1);
            fixes = false;
            break;
        }
        if (fixes) ++n_fixing;
    }
    return true;
}

void reflection_lines::find_conditions(int h, int k) {
    on_line_.clear();
    for (std::size_t n = 0; n < conditions_.size(); ++n) {
        const int_matrix& off = off_class_[n];
        bool holds_line = true;
        for (std::size_t i = 0; i < 3; ++i) {
            holds_line = holds_line && off[i][2] == 0 && part(off, i, h, k) == 0;
        }
        if (!holds_line) continue;
        const auto& [linear, modulus] = std::pair(conditions_[n].linear, conditions_[n].modulus);
        const int start = (linear[0] * (h % modulus) + linear[1] * (k % modulus)) % modulus;
        on_line_.push_back({static_cast<std::int16_t>(n), modulus, start, linear[2] % modulus});
    }
}

bool reflection_lines::look_at(int h, int k, int l, bool absent, listed_reflection& found) {
    int n_fixing = 1;
    for (std::size_t n = 0; n < differences_.size(); ++n) {
        const int_matrix& difference = differences_[n];
        // The first index that differs decides which is greater.
        int by = 0;
        for (std::size_t i = 0; i < 3 && by == 0; ++i) {
            by = part(difference, i, h, k) + difference[i][2] * l;
        }
        if (by < 0) return rule_out(n);
        if (by == 0) ++n_fixing;
    }
    if (h == 0 && k == 0 && l == 0) return false;
    found = {h, k, l, multiplicity(n_fixing), first_broken(conditions_, {h, k, l})};
    return found.broken < 0 || absent;
}

int_vector reflection_lines::reach_of(const int_vector& limits) const {
    int_vector reach = limits;
    for (const int_matrix& difference : differences_) {
        for (std::size_t i = 0; i < 3; ++i) {
            int sum = 0;
            for (std::size_t j = 0; j < 3; ++j) {
                sum += std::abs((i == j ? 1 : 0) - difference[i][j]) * limits[j];
            }
            reach[i] = std::max(reach[i], sum);
        }
    }
    return reach;
}

bool reflection_lines::meets(const listed_reflection& reflection, const int_vector& limits) const {
    const int_vector hkl = {reflection.h, reflection.k, reflection.l};
    const auto within = [&](const int_vector& image) {
        return std::abs(image[0]) <= limits[0] && std::abs(image[1]) <= limits[1] &&
               std::abs(image[2]) <= limits[2];
    };
    if (within(hkl)) return true;
    return std::any_of(differences_.begin(), differences_.end(), [&](const int_matrix& difference) {
        const int_vector by = difference * hkl;
        return within({hkl[0] - by[0], hkl[1] - by[1], hkl[2] - by[2]});
    });
}

}  // namespace lomar
