#pragma once

#include "reflections/interval_union_3.h"
#include "reflections/laue_group_3.h"

/// The reflections along a line of l that are the greatest of their orbits, by h, k, l.
///
/// An element takes (h, k, l) to indices a + b l. Which of the two is greater is decided by the
/// first index in which they aren't equal along the whole line. There the difference is linear in
/// l: it has one sign on all of the line, or one below and the other above a single value of l, at
/// which later indices decide. So the reflections that an element leaves where they are or makes
/// smaller are a half-line of l, if not all or none of the line, and those that are the greatest of
/// their orbits are one interval, which all these have in common.
///
/// An element that leaves one reflection where it is, and not the whole line, makes those on one
/// side of it greater. So such a reflection, if it is in the interval at all, is one of the two
/// ends of it: how many members an orbit has changes nowhere else.
class greatest_line_3 {
public:
    /// An end of the interval.
    struct line_end {
        int fixing = 0;       ///< the elements that leave this reflection where it is
        bool absent = false;  ///< it is absent, by those of them that don't do so to the whole line
    };

    /// The group must outlive the object.
    void set_up(const laue_group_3& group);

    /// Takes up the line of h and k, of which no more than `within` counts. False if it has no
    /// greatest member of an orbit but 0, 0, 0.
    bool find(int h, int k, interval_3 within);

    interval_3 span() const { return span_; }
    const line_end& first() const { return first_; }
    const line_end& last() const { return last_; }
    /// How many elements leave the line where it is, the unit among them.
    int fixing() const { return fixing_; }
    /// Whether elements leave an end where it is that don't do so to the line.
    bool is_special(const line_end& e) const { return e.fixing != fixing_; }
    /// The translations of the operators that leave the line where it is; of those that differ by a
    /// translation of the lattice one.
    const list_0_3<triple_3>& shifts() const { return shifts_; }

private:
    // Elements that agree in their first row.
    struct branch {
        triple_3 row;
        int begin;
        int end;
    };
    // Elements for which a difference is 0 at one l.
    struct tie {
        int l;
        int begin;
        int end;
    };
    enum class outcome { greater, equal, decided };

    bool compare_branch(const branch& same_first);
    bool compare_element(const laue_element_3& element, int e);
    outcome require_at_most(int a, int b, int begin, int end);
    bool bound(int a, int b, int begin, int end);
    bool check_end(int l, line_end& found) const;

    const laue_group_3* group_ = nullptr;
    list_0_3<branch> branches_;
    int failing_ = 0;  ///< the branch to begin with
    list_0_3<tie> ties_;
    list_0_3<triple_3> shifts_;
    int h_ = 0;
    int k_ = 0;
    int fixing_ = 0;
    interval_3 span_ = {1, 0};
    line_end first_;
    line_end last_;
};
