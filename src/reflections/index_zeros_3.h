#pragma once

#include "reflections/laue_group_3.h"

/// Tells along a line of l which orbits have a member with an index of 0. An index of an image is
/// a + b l: it is 0 along the whole line, or at one l, or nowhere.
class index_zeros_3 {
public:
    enum kind {
        single,       ///< no image of the line has a fixed 0: only single reflections count
        all_members,  ///< each image of the line has one
        some_members  ///< some images have
    };

    void set_up(const laue_group_3& group);

    /// Takes up the line of h and k.
    kind begin_line(int h, int k);

    /// The first l from `l` on, in steps of `step` up to `last`, at which an index is 0 that isn't
    /// so along the whole line. Without any it is a number above `last`.
    int next(int l, int last, int step) const;

private:
    list_0_3<triple_3> rows_;             ///< of all elements, one of two opposite ones
    list_0_3<unsigned long long> masks_;  ///< for each element, which of these it has
    int_list_3 zeros_;                    ///< of the line
};
