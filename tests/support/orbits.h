#pragma once

#include <algorithm>
#include <gtest/gtest.h>
#include <map>

#include "reflections/hkl_generator_3.h"
#include "support/operators.h"

// Reflections by their definition, to hold against the lists of the program.

using hkl = std::array<int, 3>;

inline hkl negative(const hkl& index) { return {-index[0], -index[1], -index[2]}; }

inline hkl image_of(const op_array& op, const hkl& index) {
    hkl image{};
    for (unsigned c = 0; c < 3; ++c) {
        for (unsigned r = 0; r < 3; ++r) image[c] += index[r] * op[4 * r + c];
    }
    return image;
}

/// All reflections that symmetry and the inversion make of one.
inline std::set<hkl> orbit_of(const std::vector<op_array>& ops, const hkl& index) {
    std::set<hkl> orbit;
    for (const op_array& op : ops) {
        const hkl image = image_of(op, index);
        orbit.insert(image);
        orbit.insert(negative(image));
    }
    return orbit;
}

/// A reflection is absent if an operator leads it to itself with another phase.
inline bool is_absent(const std::vector<op_array>& ops, const hkl& index) {
    return std::any_of(ops.begin(), ops.end(), [&](const op_array& op) {
        const int phase = index[0] * op[3] + index[1] * op[7] + index[2] * op[11];
        return phase % 360 != 0 && image_of(op, index) == index;
    });
}

/// The orbits that have members within limits, each by its greatest member, with their sizes.
struct orbit_lists {
    std::map<hkl, int> all;
    std::map<hkl, int> present;
    std::vector<hkl> first_present;  ///< of each that is present the member with the least indices
};

inline orbit_lists orbits_within(const std::vector<op_array>& ops, const hkl& limits) {
    orbit_lists lists;
    for (int h = 0; h <= limits[0]; ++h) {  // the mates of the others lie here
        for (int k = -limits[1]; k <= limits[1]; ++k) {
            for (int l = -limits[2]; l <= limits[2]; ++l) {
                const hkl index = {h, k, l};
                const std::set<hkl> orbit = orbit_of(ops, index);
                const std::pair row(*orbit.rbegin(), static_cast<int>(orbit.size()));
                if (!lists.all.insert(row).second || is_absent(ops, index)) continue;
                lists.present.insert(row);
                lists.first_present.push_back(index);
            }
        }
    }
    for (auto* list : {&lists.all, &lists.present}) list->erase({0, 0, 0});
    return lists;
}

inline std::map<hkl, int> multiplicities(const row_list_3& rows) {
    std::map<hkl, int> found;
    for (const hkl_row_3& row : rows) found[{row.h, row.k, row.l}] = row.multiplicity;
    EXPECT_EQ(found.size(), static_cast<std::size_t>(rows.n));
    return found;
}
