#pragma once

#include "foundation/string_3.h"

/// The point groups, and the rewriting that reaches one from a space group's symbol: glide letters
/// become mirrors, screw axes plain axes, marks of the setting go. A fixed list of replacements in
/// a fixed order is all there is to it; no crystallography is done.
class point_group_table_3 {
public:
    point_group_table_3();

    /// Works out the point group of a symbol with its lattice letter, such as `fd-3m:2`. Fails
    /// with " Invalid point group".
    void lookup(const char* symbol);

    /// The result of the last successful lookup.
    const string_3& normalised() const { return normalised_; }

    // Parallel lists of 42 rows, ascending by name.
    string_list_3 names;
    string_list_3 generators;  ///< rotations as in the catalogue's generator fields
    string_list_3 keys;        ///< the names cut at their first blank

private:
    bool is_key() const { return find_sorted(keys, work.data) != not_found; }
    bool rewrite();

    string_3 work;
    string_3 normalised_;
};
