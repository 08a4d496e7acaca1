#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "reflections/similar_hkls.h"
#include "support/operators.h"
#include "textout/sstring_out.h"

/// The operators of the first setting with this symbol, and this choice if one is given.
inline std::string operators_of(std::string_view symbol, std::string_view choice = "") {
    for (const setting& row : read_settings()) {
        if (row.symbol != symbol) continue;
        if (choice.empty() || row.choice == choice) return row.operators;
    }
    throw std::invalid_argument("no such setting");
}

/// The text of a .sg file as far as reflections need it: the operators and the blocks of similar
/// reflections.
inline std::string sg_text_of(xyz_list_3 ops) {
    sstring_out text;
    text << "xyzs\n{";
    for (const xyz_op_3& op : ops) write_xyz(text, op);
    text << "\n}";
    sort_xyzs_3(ops);
    add_similar_hkls_3(ops, text);
    return text.text();
}

/// The same of operators such as `x,y,z;-x,-y,-z`.
inline std::string sg_text_of(std::string_view operators) {
    return sg_text_of(xyz_list_of(operators));
}
