#pragma once

#include "reflections/interval_union_3.h"
#include "reflections/laue_group_3.h"

/// The reflections with indices of at most the limits in size, and where their equivalents lie.
///
/// Along a line of l, which is all reflections with one h and k, an image has indices a + b l. The
/// condition that none is above its limit in size leaves an interval of l, and a reflection has a
/// member of its orbit in the box if it is in one of these intervals, one for each element. An
/// element and its negative have the same. In the same way the k that lie in the image of the box
/// under an element, for a given h, are within an interval.
class limit_box_3 {
public:
    /// No index of a member may be larger than this.
    static constexpr int largest_index = 1 << 20;

    /// The group must outlive the object. False if members have larger indices than that, or larger
    /// ones than the same element makes of the limits themselves, as with an h - k. No limit may be
    /// below 0.
    bool set_up(const laue_group_3& group, const triple_3& limits);

    /// The largest size that an index of an equivalent can have.
    int reach(int index) const { return reach_[index]; }

    /// Gives intervals of k with all the lines of this h that meet the images of the box, and maybe
    /// some more.
    void lines_of(int h, interval_union_3& lines) const;

    /// Gives those l of an interval for which an equivalent of (h, k, l) is in the box.
    void cover(int h, int k, interval_3 line, interval_union_3& covered) const;

    /// Of the equivalents in the box that have an h of 0 or more, the first by h, k, l. There must
    /// be one.
    triple_3 first_member(int h, int k, int l) const;

private:
    // What is known of (k + c h) in the image of the box, for c of -1, 0 and 1.
    struct box_image {
        int h;
        int k[3];
    };

    interval_3 within(const laue_element_3& element, int h, int k, interval_3 line) const;

    const laue_group_3* group_ = nullptr;
    int_list_3 half_;  ///< one element of each pair of negatives, the unit first
    triple_3 limits_ = {{0, 0, 0}};
    triple_3 reach_ = {{0, 0, 0}};
    list_0_3<box_image> images_;
};
