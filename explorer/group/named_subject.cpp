#include "group/named_subject.h"

namespace lomar {

named_subject subject_named(std::string_view name, bool magnetic) {
    named_subject result;
    if (magnetic) {
        result.magnetic = &find_magnetic(name, &result.notation);
        return result;
    }
    const bool magnetic_first = looks_magnetic(name);
    if (magnetic_first) result.magnetic = find_magnetic_exactly(name, &result.notation);
    if (result.magnetic != nullptr) return result;
    try {
        result.group = resolve_symbol(name);
        return result;
    } catch (const unknown_symbol&) {
        if (magnetic_first) find_magnetic(name);  // throws: its message has the nearer names
        result.magnetic = find_magnetic_exactly(name, &result.notation);
        if (result.magnetic == nullptr) throw;
    }
    return result;
}

}  // namespace lomar
