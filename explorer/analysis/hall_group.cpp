#include "analysis/identify.h"
#include "group/generated_group.h"
#include "group/hall_symbol.h"

namespace lomar {

space_group space_group_of(const hall_group& hall) {
    const identification found = identify(hall.operators);
    if (found.match == match_kind::exact) return group_of(*found.row);
    space_group result;
    result.row = &standard_setting(found.row->number);
    result.tabulated = false;
    result.name = "hall:" + hall.symbol;
    result.hall = hall.symbol;
    result.to_standard = found.change * found.row->to_standard();
    result.lattice = lattice_letter(hall.centring);
    result.centring = hall.centring;
    result.operators = hall.operators;
    return result;
}

}  // namespace lomar
