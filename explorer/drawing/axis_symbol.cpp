#include "drawing/axis_symbol.h"

#include <algorithm>

namespace lomar {

namespace {

const axis_member* find_kind(const std::vector<axis_member>& members, int kind) {
    for (const axis_member& member : members) {
        if (member.kind == kind) return &member;
    }
    return nullptr;
}

void note_point(axis_symbol& symbol, const std::vector<axis_member>& members, int kind) {
    for (const axis_member& member : members) {
        if (member.kind != kind) continue;
        if (!symbol.has_height || member.height < symbol.height) symbol.height = member.height;
        symbol.has_height = true;
    }
}

int time_of(const axis_member* member) { return member == nullptr ? 1 : member->time; }

// Which symbol the rotoinversions on the line call for, and the time of the inversion in it.
void note_rotoinversions(axis_symbol& symbol, const std::vector<axis_member>& members) {
    const int n = symbol.order;
    const axis_member* rotoinversion = find_kind(members, n == 2 ? -4 : n == 3 ? -6 : -n);
    const axis_member* centre = find_kind(members, -1);
    const axis_member* mate = n == 6 ? find_kind(members, -3) : rotoinversion;
    if ((n == 2 || n == 3) && rotoinversion != nullptr) {
        symbol.rotoinversion = rotoinversion->kind;
        symbol.primed_rotation = rotoinversion->time < 0;
        note_point(symbol, members, rotoinversion->kind);
        return;
    }
    if (n == 3) mate = find_kind(members, -3);
    if (centre == nullptr && mate == nullptr) return;
    symbol.has_centre = true;
    if (centre != nullptr) {
        symbol.primed_centre = centre->time < 0;
    } else {
        symbol.primed_centre = mate->time * (n == 4 ? time_of(find_kind(members, 4)) : 1) < 0;
    }
    const bool primed_two = time_of(find_kind(members, 2)) < 0;
    symbol.primed_plane = n % 2 == 0 && primed_two != symbol.primed_centre;
    note_point(symbol, members, centre != nullptr ? -1 : mate->kind);
}

axis_symbol symbol_of(const std::vector<axis_member>& members) {
    axis_symbol symbol;
    for (const axis_member& member : members) {
        symbol.operators.push_back(member.op);
        if (member.kind <= symbol.order) continue;
        symbol.order = member.kind;
        symbol.screw = member.screw;
        symbol.primed_rotation = member.time < 0;
    }
    std::sort(symbol.operators.begin(), symbol.operators.end());
    const auto end = std::unique(symbol.operators.begin(), symbol.operators.end());
    symbol.operators.erase(end, symbol.operators.end());
    note_rotoinversions(symbol, members);
    return symbol;
}

}  // namespace

std::string axis_symbol::kind() const {
    const char* prime = primed_rotation ? "'" : "";
    if (rotoinversion != 0) return std::to_string(rotoinversion) + prime;
    if (has_centre && order % 2 != 0) {
        return std::to_string(-order) + (primed_centre ? "'" : "");
    }
    std::string text = std::to_string(order);
    if (screw != 0) text += std::to_string(screw);
    text += prime;
    if (has_centre) text += primed_plane ? "/m'" : "/m";
    return text;
}

std::vector<axis_symbol> symbols_of(const std::vector<axis_member>& members, bool doubled) {
    if (!doubled) return {symbol_of(members)};
    std::vector<axis_member> plain;
    std::vector<axis_member> primed;
    for (const axis_member& member : members) (member.time > 0 ? plain : primed).push_back(member);
    std::vector<axis_symbol> result;
    if (find_kind(primed, 3) != nullptr && find_kind(primed, 6) == nullptr &&
        find_kind(primed, -3) == nullptr && find_kind(primed, -6) == nullptr) {
        // Half a period along a threefold axis is no screw: the symbol is that of the axis itself.
        plain.insert(plain.end(), primed.begin(), primed.end());
        primed.clear();
    }
    if (!plain.empty()) result.push_back(symbol_of(plain));
    if (primed.empty()) return result;
    axis_symbol mate = symbol_of(primed);
    mate.primed_rotation = mate.order > 1;
    mate.primed_centre = mate.has_centre;
    mate.primed_plane = mate.has_centre && mate.order % 2 == 0;
    result.push_back(mate);
    return result;
}

}  // namespace lomar
