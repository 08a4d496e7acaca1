#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "analysis/completion.h"
#include "analysis/identify.h"
#include "group/space_group.h"

namespace lomar {

/// A subgroup with all translations of its group (translationengleich).
struct subgroup {
    int index = 1;                 ///< in the group that was asked for
    int conjugacy_class = 1;       ///< from 1: those with one number are conjugate in that group
    identification found;          ///< its setting; the change is from that group's axes
    std::vector<symop> operators;  ///< one for each rotation, in that group's axes
};

/// A way from a group down to one of its subgroups, each the next one's minimal supergroup; the
/// group itself is left out. The indices are those in the group, the classes too.
using subgroup_chain = std::vector<subgroup>;

/// The translationengleiche subgroups of a space group: those of its point group, taken as sets of
/// its operators. A group has at most 98 of them.
class subgroup_lattice {
public:
    /// Throws std::domain_error when the group isn't complete.
    explicit subgroup_lattice(const space_group& group);

    /// By rising index, then falling number; those of a class are next to each other.
    std::vector<subgroup> maximal() const;
    /// For each class of subgroups with a space-group number one chain, as short as any, to one of
    /// them. The last is told in the setting given.
    std::vector<subgroup_chain> chains_to(const setting& target) const;

private:
    /// One bit for each operator.
    using mask = std::uint64_t;

    struct entry {
        mask members = 0;
        std::vector<std::size_t> generators;
        int conjugacy_class = 0;  // counted over all subgroups
    };

    void make_table();
    void find_all();
    void find_classes();
    mask closure(const std::vector<std::size_t>& generators) const;
    mask conjugate(mask members, std::size_t by) const;
    /// The entries that are maximal in one, by place.
    std::vector<std::size_t> maximal_in(std::size_t place) const;
    /// The places of a shortest way down, the subgroup last.
    std::vector<std::size_t> way_to(std::size_t place) const;
    std::vector<symop> operators_of(mask members) const;
    subgroup described(std::size_t place) const;

    completed_group group_;
    std::vector<std::vector<std::size_t>> product_;
    std::vector<std::size_t> inverse_;
    std::vector<entry> entries_;  ///< by falling order, the group itself first
};

}  // namespace lomar
