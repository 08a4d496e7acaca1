#pragma once

#include <algorithm>
#include <utility>
#include <vector>

#include "analysis/conditions.h"
#include "analysis/reflection_list.h"
#include "group/space_group.h"

namespace lomar {

/// Finds the greatest of equivalent reflections, a line of l at a time, without looking at the
/// others: on a line each operator of the Laue class leaves a half-line on which the image is
/// smaller, perhaps with an end that has to be looked at.
class reflection_lines {
public:
    /// The conditions must outlive the object.
    reflection_lines(const space_group& group, const std::vector<reflection_condition>& conditions);

    /// How many reflections are equivalent to a general one, Friedel mates included.
    std::size_t n_equivalent() const { return differences_.size() + 1; }

    /// Calls take(reflection) for the greatest reflections of their sets from h, k, first to
    /// h, k, last, by rising l; with `absent` for those that the conditions forbid, too.
    template <typename Take>
    void walk(int h, int k, int first, int last, bool absent, Take take) {
        int low = first, high = last, n_fixing = 1;
        if (!narrow(h, k, low, high, n_fixing)) return;
        find_conditions(h, k);
        // The ends of the half-lines, where a narrower one does not rule them out.
        const int before = low - 1, after = high + 1;
        listed_reflection found;
        if (before >= first && before <= std::min(last, after) &&
            look_at(h, k, before, absent, found)) {
            take(found);
        }
        for (int l = low; l <= high; ++l) {
            const std::int16_t broken = broken_at(l);
            if (broken >= 0 && !absent) continue;
            take({h, k, l, multiplicity(n_fixing), broken});
        }
        if (after <= last && after >= std::max(first, before + 1) &&
            look_at(h, k, after, absent, found)) {
            take(found);
        }
    }

    /// How far the indices of equivalents of reflections within limits go.
    int_vector reach_of(const int_vector& limits) const;
    /// Whether an equivalent of a reflection is within limits.
    bool meets(const listed_reflection& reflection, const int_vector& limits) const;

private:
    // What a condition, whose class holds a whole line, demands of l.
    struct line_condition {
        std::int16_t place;
        int modulus;
        int start;
        int step;
    };

    bool narrow(int h, int k, int& low, int& high, int& n_fixing);
    void find_conditions(int h, int k);
    bool look_at(int h, int k, int l, bool absent, listed_reflection& found);
    // What rules out a reflection often rules out the next: it is asked earlier.
    bool rule_out(std::size_t place) {
        std::swap(differences_[place], differences_[place / 2]);
        return false;
    }
    std::int16_t broken_at(int l) const {
        for (const line_condition& condition : on_line_) {
            if ((condition.start + condition.step * (l % condition.modulus)) % condition.modulus !=
                0) {
                return condition.place;
            }
        }
        return -1;
    }
    std::int16_t multiplicity(int n_fixing) const {
        return static_cast<std::int16_t>(static_cast<int>(n_equivalent()) / n_fixing);
    }

    std::vector<int_matrix> differences_;  // 1 - W^T and 1 + W^T, but for that of the identity
    const std::vector<reflection_condition>& conditions_;
    std::vector<int_matrix> off_class_;  // for each condition, 0 times a reflection of its class
    std::vector<line_condition> on_line_;
};

}  // namespace lomar
