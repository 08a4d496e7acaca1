#include "group/space_group.h"

#include "group/catalogue_names.h"
#include "group/library_adapter.h"

namespace lomar {

space_group group_of(const setting& row) {
    const library_group found = operators_of_name(own_key(row));
    space_group result;
    result.row = &row;
    result.name = row.name();
    result.hall = row.hall;
    result.to_standard = row.to_standard();
    result.lattice = row.symbol[0];
    result.centring = found.centring;
    result.operators.reserve(found.representatives.size() * found.centring.size());
    for (const fraction_vector& vector : found.centring) {
        for (symop op : found.representatives) {
            op.trans = modulo_one(op.trans + vector);
            result.operators.push_back(op);
        }
    }
    return result;
}

std::string lattice_text(const space_group& group) {
    if (group.lattice != 0) return std::string(1, group.lattice);
    return std::to_string(group.centring.size()) + " points in the cell";
}

}  // namespace lomar
