#include "analysis/subgroups.h"

#include <algorithm>
#include <bit>
#include <deque>
#include <map>
#include <set>
#include <stdexcept>
#include <tuple>

#include "analysis/point_group.h"

namespace lomar {

subgroup_lattice::subgroup_lattice(const space_group& group) : group_(complete(group.operators)) {
    if (group_.operators.size() > 48) throw std::domain_error("more than 48 rotations");
    make_table();
    find_all();
    find_classes();
}

void subgroup_lattice::make_table() {
    const std::vector<symop>& ops = group_.operators;
    std::map<int_matrix, std::size_t> place;
    for (std::size_t i = 0; i < ops.size(); ++i) place.emplace(ops[i].rot, i);
    product_.assign(ops.size(), std::vector<std::size_t>(ops.size()));
    inverse_.resize(ops.size());
    for (std::size_t i = 0; i < ops.size(); ++i) {
        for (std::size_t j = 0; j < ops.size(); ++j) {
            const auto found = place.find(ops[i].rot * ops[j].rot);
            if (found == place.end()) throw std::domain_error("the group isn't complete");
            product_[i][j] = found->second;
            if (found->second == 0) inverse_[i] = j;
        }
    }
}

subgroup_lattice::mask subgroup_lattice::closure(const std::vector<std::size_t>& generators) const {
    mask members = 1;  // the identity is the first operator
    std::vector<std::size_t> list = {0};
    for (std::size_t i = 0; i < list.size(); ++i) {
        for (const std::size_t generator : generators) {
            const std::size_t next = product_[list[i]][generator];
            if ((members >> next & 1) != 0) continue;
            members |= mask{1} << next;
            list.push_back(next);
        }
    }
    return members;
}

// Each subgroup together with each further operator makes the next ones.
void subgroup_lattice::find_all() {
    std::set<mask> seen = {1};
    entries_.push_back({1, {}, 0});
    for (std::size_t at = 0; at < entries_.size(); ++at) {
        for (std::size_t op = 1; op < group_.operators.size(); ++op) {
            if ((entries_[at].members >> op & 1) != 0) continue;
            std::vector<std::size_t> generators = entries_[at].generators;
            generators.push_back(op);
            const mask members = closure(generators);
            if (seen.insert(members).second) entries_.push_back({members, generators, 0});
        }
    }
    std::stable_sort(entries_.begin(), entries_.end(), [](const entry& a, const entry& b) {
        return std::popcount(a.members) > std::popcount(b.members);
    });
}

subgroup_lattice::mask subgroup_lattice::conjugate(mask members, std::size_t by) const {
    mask result = 0;
    for (std::size_t i = 0; i < product_.size(); ++i) {
        if ((members >> i & 1) != 0) result |= mask{1} << product_[product_[by][i]][inverse_[by]];
    }
    return result;
}

void subgroup_lattice::find_classes() {
    std::map<mask, entry*> by_members;
    for (entry& one : entries_) by_members[one.members] = &one;
    int count = 0;
    for (entry& one : entries_) {
        if (one.conjugacy_class != 0) continue;
        ++count;
        for (std::size_t op = 0; op < product_.size(); ++op) {
            by_members.at(conjugate(one.members, op))->conjugacy_class = count;
        }
    }
}

std::vector<std::size_t> subgroup_lattice::maximal_in(std::size_t place) const {
    const mask whole = entries_[place].members;
    std::vector<std::size_t> result;
    for (std::size_t i = place + 1; i < entries_.size(); ++i) {
        const mask members = entries_[i].members;
        if (members == whole || (members & whole) != members) continue;
        // The entries fall in order, so what lies between has come before.
        const bool between = std::any_of(result.begin(), result.end(), [&](std::size_t other) {
            return (members & entries_[other].members) == members;
        });
        if (!between) result.push_back(i);
    }
    return result;
}

std::vector<symop> subgroup_lattice::operators_of(mask members) const {
    std::vector<symop> result;
    for (std::size_t i = 0; i < group_.operators.size(); ++i) {
        if ((members >> i & 1) != 0) result.push_back(group_.operators[i]);
    }
    return result;
}

subgroup subgroup_lattice::described(std::size_t place) const {
    const entry& one = entries_[place];
    completed_group part;
    part.basis = group_.basis;
    part.lattice = group_.lattice;
    part.operators = operators_of(one.members);
    subgroup result;
    result.index = static_cast<int>(group_.operators.size() / part.operators.size());
    result.conjugacy_class = one.conjugacy_class;
    result.found = identify_standard(part);
    const basis_change into_group = inverse(basis_change{group_.basis, {}});
    for (const symop& op : part.operators) {
        symop now = transformed(op, into_group);
        now.trans = group_.lattice.reduced(now.trans);
        result.operators.push_back(modulo_lattice(now));
    }
    return result;
}

std::vector<subgroup> subgroup_lattice::maximal() const {
    std::vector<subgroup> result;
    for (const std::size_t place : maximal_in(0)) result.push_back(described(place));
    const auto rank = [](const subgroup& one) {
        return std::tuple(one.index, -one.found.row->number, one.conjugacy_class);
    };
    std::stable_sort(result.begin(), result.end(),
                     [&](const subgroup& a, const subgroup& b) { return rank(a) < rank(b); });
    // Numbered as they are listed.
    std::map<int, int> numbers;
    for (subgroup& one : result) {
        const int next = static_cast<int>(numbers.size()) + 1;
        one.conjugacy_class = numbers.try_emplace(one.conjugacy_class, next).first->second;
    }
    return result;
}

std::vector<std::size_t> subgroup_lattice::way_to(std::size_t place) const {
    std::map<std::size_t, std::size_t> above = {{0, 0}};
    std::deque<std::size_t> queue = {0};
    while (!queue.empty() && !above.contains(place)) {
        const std::size_t now = queue.front();
        queue.pop_front();
        for (const std::size_t next : maximal_in(now)) {
            if (above.try_emplace(next, now).second) queue.push_back(next);
        }
    }
    std::vector<std::size_t> result;
    for (std::size_t now = place; now != 0; now = above.at(now)) result.push_back(now);
    std::reverse(result.begin(), result.end());
    return result;
}

std::vector<subgroup_chain> subgroup_lattice::chains_to(const setting& target) const {
    std::vector<subgroup_chain> result;
    std::set<int> seen;
    for (std::size_t place = 1; place < entries_.size(); ++place) {
        const entry& one = entries_[place];
        if (seen.contains(one.conjugacy_class)) continue;
        if (point_group_of(operators_of(one.members)).name != target.point_group) continue;
        seen.insert(one.conjugacy_class);
        subgroup last = described(place);
        if (last.found.row->number != target.number) continue;
        if (last.found.row != &target) {
            last.found.change =
                last.found.change * last.found.row->to_standard() * inverse(target.to_standard());
            last.found.row = &target;
            last.found.match = match_kind::transformed;
        }
        subgroup_chain chain;
        for (const std::size_t step : way_to(place)) {
            chain.push_back(step == place ? last : described(step));
        }
        result.push_back(std::move(chain));
    }
    for (std::size_t i = 0; i < result.size(); ++i) {
        result[i].back().conjugacy_class = static_cast<int>(i) + 1;
    }
    return result;
}

}  // namespace lomar
