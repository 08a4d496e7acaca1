#pragma once

#include "foundation/string_3.h"

/// The point groups, and the way from a space group's symbol to one of them. It is pure text work:
/// `a` or `n` turns into `m`, `21` into `2`, a colon and the rest are dropped, and so on, one
/// replacement after the other, until a point group has this name.
class point_group_table_3 {
public:
    point_group_table_3();

    /// Works out the point group of a symbol with its lattice letter, such as `fd-3m:2`. Fails
    /// with " Invalid point group".
    void lookup(const char* symbol);
    void lookup(const string_3& symbol) { lookup(symbol.data); }

    /// The point group that lookup found; a call that fails leaves it as it was.
    const string_3& normalised() const { return normalised_; }

    // Parallel lists of 42 rows, ascending by name.
    string_list_3 names;
    /// Rotations as in the catalogue's generator fields. Nothing reads them, and those of mmm,
    /// 4/mmm and 23 don't generate their groups.
    string_list_3 generators;
    string_list_3 keys;  ///< what lookup compares with: `3` for the names `3 1` and `3 2`

private:
    bool is_key() const { return find_sorted(keys, work.data) != not_found; }
    bool rewrite();

    string_3 work;
    string_3 normalised_;
};
