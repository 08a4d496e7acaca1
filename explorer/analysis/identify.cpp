#include "analysis/identify.h"

#include <algorithm>
#include <stdexcept>

#include "analysis/standard_search.h"
#include "analysis/whole_vectors.h"

namespace lomar {

namespace {

// A setting in the very axes of a group.
struct same_axes {
    const setting* row;
    fraction_vector origin;  ///< of the setting, the smallest in [0, 1)
};

// The settings of the standard one's number whose axes are the group's, by way of their changes to
// the standard setting.
std::vector<same_axes> settings_in_axes(const fraction_matrix& lattice_basis,
                                        const setting_matcher& matcher,
                                        const known_setting& standard) {
    const fraction_matrix into_basis = inverse(lattice_basis);
    std::vector<same_axes> result;
    for (const setting& row : settings()) {
        if (row.number != standard.group.row->number) continue;
        const basis_change change = row.to_standard();
        const fraction_matrix columns = into_basis * change.matrix;
        if (!is_whole(columns)) continue;
        const auto origin = matcher.origin(standard, to_integers(columns), change.origin);
        if (origin) result.push_back({&row, *origin});
    }
    std::stable_sort(result.begin(), result.end(),
                     [](const same_axes& a, const same_axes& b) { return a.origin < b.origin; });
    return result;
}

identification in_same_axes(const setting& row, const fraction_vector& origin) {
    identification result;
    result.row = &row;
    result.change.origin = origin;
    result.match = origin == fraction_vector{} ? match_kind::exact : match_kind::origin;
    return result;
}

identification transformed_to(const standard_place& standard) {
    return {standard.target->group.row, match_kind::transformed, standard.change, {}};
}

standard_place place_of(standard_search& search) {
    const std::optional<standard_place> standard = search.find();
    if (!standard) throw std::logic_error("internal: no setting was found for the operators");
    return *standard;
}

void verify(const completed_group& group, const identification& found, const space_group& answer) {
    if (!is_taken_onto(group.basis, group.operators, found.change, answer.representatives(),
                       answer.centring)) {
        throw std::logic_error("internal: the setting found hasn't the operators");
    }
}

// The other settings with the operators of the answer.
std::vector<const setting*> equal_rows(const space_group& answer, const known_setting& standard) {
    const completed_group group = complete(answer.operators);
    const setting_matcher matcher(group.basis, group.operators);
    std::vector<const setting*> result;
    for (const same_axes& same : settings_in_axes(group.basis, matcher, standard)) {
        if (same.origin == fraction_vector{} && same.row != answer.row) result.push_back(same.row);
    }
    return result;
}

}  // namespace

identification identify(const completed_group& group) {
    standard_search search(group.basis, group.operators);
    const standard_place standard = place_of(search);
    const auto same = settings_in_axes(group.basis, search.matcher(), *standard.target);
    identification result = same.empty() ? transformed_to(standard)
                                         : in_same_axes(*same.front().row, same.front().origin);
    const space_group answer = group_of(*result.row);
    verify(group, result, answer);
    result.also = equal_rows(answer, *standard.target);
    return result;
}

identification identify_standard(const completed_group& group) {
    standard_search search(group.basis, group.operators);
    const standard_place standard = place_of(search);
    const int_matrix own_axes = to_integers(inverse(group.basis));
    const auto origin = search.matcher().origin(*standard.target, own_axes);
    const identification result =
        origin ? in_same_axes(*standard.target->group.row, *origin) : transformed_to(standard);
    verify(group, result, standard.target->group);
    return result;
}

identification identify(std::span<const symop> operators) {
    std::vector<symop> plain(operators.begin(), operators.end());
    for (symop& op : plain) op.time = 1;
    return identify(complete(plain));
}

std::string_view match_text(match_kind match) {
    switch (match) {
        case match_kind::exact:
            return "exact";
        case match_kind::origin:
            return "origin";
        default:
            return "transformed";
    }
}

}  // namespace lomar
