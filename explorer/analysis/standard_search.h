#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "analysis/conventional_bases.h"
#include "analysis/setting_matcher.h"

namespace lomar {

/// A place of a group in the axes of a standard setting.
struct standard_place {
    std::shared_ptr<const known_setting> target;
    int_matrix columns{};  ///< the axes in the basis of the group's lattice
    basis_change change;   ///< from the input's axes
    std::int64_t cost = 0;
};

/// Finds the standard setting of a group: of all changes of axes with the least sum of absolute
/// entries the one with the smallest origin, then that with the greatest sum of the entries, then
/// the one with the greater entries first, row by row. That it is the least of all is certain
/// unless hundreds of lattice vectors are as short as those of the answer, which a triclinic or
/// monoclinic cell with thousands of lattice points may have.
class standard_search {
public:
    /// What else is asked of a change: it is given the columns and the target.
    using condition = std::function<bool(const int_matrix&, const known_setting&)>;

    /// The operators in the basis of the lattice, each rotation once, without time reversal.
    standard_search(const fraction_matrix& lattice_basis, std::span<const symop> operators);

    /// Among all standard settings of the point group, or only that of a number.
    std::optional<standard_place> find(int number = 0, const condition& holds = {});

    const point_group_type& point_group() const { return type_; }
    const setting_matcher& matcher() const { return matcher_; }

private:
    using targets = std::vector<std::shared_ptr<const known_setting>>;

    const targets& targets_with(std::size_t lattice_points);
    void consider(const candidate_basis& candidate, const condition& holds, int number,
                  std::optional<standard_place>& best);
    void improve(const candidate_basis& candidate,
                 const std::shared_ptr<const known_setting>& target,
                 std::optional<standard_place>& best) const;

    point_group_type type_;
    conventional_bases bases_;
    setting_matcher matcher_;
    std::map<std::size_t, targets> targets_;  ///< by the lattice points of their cells
};

}  // namespace lomar
