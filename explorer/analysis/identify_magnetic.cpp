#include "analysis/identify_magnetic.h"

#include <algorithm>
#include <map>
#include <stdexcept>

#include "analysis/standard_search.h"
#include "analysis/whole_vectors.h"

namespace lomar {

namespace {

// What is magnetic about a group beside its operators without time reversal.
struct magnetic_part {
    int type = 1;
    std::vector<symop> operators;        ///< that the setting is found by: of type 4 the unprimed
    std::map<int_matrix, int> times;     ///< of type 3, for each rotation
    fraction_vector primed_translation;  ///< of type 4, one of them
};

magnetic_part part_of(std::span<const symop> operators) {
    magnetic_part part;
    const auto primed_identity =
        std::find_if(operators.begin(), operators.end(),
                     [](const symop& op) { return op.rot == unit_matrix && op.time < 0; });
    if (primed_identity != operators.end()) {
        part.primed_translation = primed_identity->trans;
        part.type = is_integer(part.primed_translation) ? 2 : 4;
    }
    for (symop op : operators) {
        if (op.time < 0 && part.type != 1 && part.type != 3) continue;
        if (op.time < 0) part.type = 3;
        part.times[op.rot] = op.time;
        op.time = 1;
        part.operators.push_back(op);
    }
    return part;
}

// A magnetic group of the table in the lattice basis of its setting.
struct known_magnetic {
    known_magnetic(const magnetic_facts& facts, const known_setting& setting)
        : group(group_of(facts)) {
        const basis_change change{setting.primitive, {}};
        std::vector<symop> operators;
        for (const symop& op : group.operators) operators.push_back(transformed(op, change));
        part = part_of(operators);
    }

    std::span<const symop> representatives() const {
        return {group.operators.data(), group.operators.size() / group.centring.size()};
    }

    magnetic_group group;
    magnetic_part part;
};

// Whether the axes that take a group's unprimed part onto a setting take the rest along.
bool agrees(const magnetic_part& input, const int_matrix& columns, const known_setting& setting,
            const known_magnetic& wanted) {
    if (input.type < 3) return true;
    const fraction_matrix exact = to_fractions(columns) * setting.primitive;
    if (!is_whole(exact)) return false;
    if (determinant(exact) != fraction(1) && determinant(exact) != fraction(-1)) return false;
    const fraction_matrix back = inverse(exact);
    if (input.type == 4) {
        return is_integer(back * input.primed_translation - wanted.part.primed_translation);
    }
    const int_matrix to_setting = to_integers(exact), from_setting = to_integers(back);
    return std::all_of(
        setting.generators.begin(), setting.generators.end(), [&](const symop& generator) {
            const auto found = input.times.find(to_setting * generator.rot * from_setting);
            return found != input.times.end() &&
                   found->second == wanted.part.times.at(generator.rot);
        });
}

std::optional<magnetic_identification> try_row(const magnetic_facts& facts,
                                               const completed_group& group,
                                               const magnetic_part& part, standard_search& search,
                                               const known_setting& setting) {
    const known_magnetic wanted(facts, setting);
    const auto holds = [&](const int_matrix& columns, const known_setting& target) {
        return agrees(part, columns, target, wanted);
    };
    magnetic_identification result;
    result.row = &facts;
    const int_matrix own_axes = to_integers(inverse(group.basis));
    const auto origin =
        holds(own_axes, setting) ? search.matcher().origin(setting, own_axes) : std::nullopt;
    if (origin) {
        result.change.origin = *origin;
        const bool exact = *origin == fraction_vector{};
        result.match = exact ? match_kind::exact : match_kind::origin;
    } else {
        const auto place = search.find(setting.group.row->number, holds);
        if (!place) return std::nullopt;
        result.match = match_kind::transformed;
        result.change = place->change;
    }
    if (!is_taken_onto(group.basis, group.operators, result.change, wanted.representatives(),
                       wanted.group.centring)) {
        throw std::logic_error("internal: the magnetic group found hasn't the operators");
    }
    return result;
}

}  // namespace

magnetic_identification identify_magnetic(const completed_group& group) {
    const magnetic_part part = part_of(group.operators);
    standard_search search(group.basis, part.operators);
    const std::optional<standard_place> standard = search.find();
    if (!standard) throw std::logic_error("internal: no setting was found for the operators");
    const known_setting& setting = *standard->target;
    for (const magnetic_facts& facts : magnetic_groups()) {
        if (facts.type != part.type || facts.parent_number != setting.group.row->number) continue;
        if (const auto found = try_row(facts, group, part, search, setting)) return *found;
    }
    throw std::logic_error("internal: no magnetic group was found for the operators");
}

}  // namespace lomar
