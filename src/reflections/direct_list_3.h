#pragma once

#include "reflections/greatest_line_3.h"
#include "reflections/hkl_generator_3.h"
#include "reflections/hkl_row_writer_3.h"
#include "reflections/index_zeros_3.h"
#include "reflections/limit_box_3.h"
#include "reflections/line_presence_3.h"

/// The list of hkl_generator_3, in the order of a .hkl file and without a grid: the rows of a line
/// of l are computed from its h and k. It takes a group whose class lists are its own; other lists
/// are left to the grid.
///
/// The row of an orbit is its greatest member. Those along a line are one interval
/// (greatest_line_3), of which the row counts where a member is within the limits (limit_box_3);
/// the multiplicity is the same but for the ends. Which are absent by the operators that leave the
/// whole line where it is repeats with l (whole_phases_3); others can only be at the ends, too. So
/// the rows of a line are a few runs.
///
/// The grid's test for absence is one of the structure factor in floating point, of the first
/// member of an orbit that it meets. What is absent by the operators has a sum of less than 1e-6
/// there, as long as indices stay below a million, and fails it. What isn't can still be near 0 by
/// accident: that is looked at for each row (line_presence_3), and where the sum isn't large the
/// same test of the same member decides. A general reflection of a group with a free axis isn't
/// tested by the grid; this takes such a reflection for the row if the grid does.
class direct_list_3 {
public:
    static constexpr double most_rows = 1e11;  ///< two terabytes

    /// Takes the group and the tests of a generator that was loaded. Both it and the operators that
    /// it was loaded with must outlive this object. No limit may be below 0. False if the grid has
    /// to decide, which refuses limits that lead to more than most_rows. All memory that the list
    /// needs is taken here.
    bool set_up(const hkl_generator_3& generator, const triple_3& limits);

    /// The largest size that an index of a row can have.
    int largest_index() const;

    void write(hkl_row_writer_3& writer);

private:
    // Which reflections of a line are tested for absence: all of them; single ones; all, but some
    // of the general ones that aren't tested by the grid are among them.
    enum class tests { all, single, mixed };

    bool find_lattice(const xyz_list_3& ops);
    void make_line_table();
    const list_0_3<triple_3>& first_conditions() const {
        return is_free_ ? free_lattice_ : group_.lattice;
    }
    progression_3 first_members(int h, int k) const;
    void write_line(int h, int k);
    void choose_tests(int h, int k);
    void write_span(interval_3 part);
    void write_end(int l, const greatest_line_3::line_end& end);
    void write_inner(interval_3 part);
    bool is_doubtful(int l) const;
    int next_doubtful(int l, int last);
    bool is_present(int l, bool known_absent);
    int multiplicity(int fixing) const { return group_.order() / fixing; }

    const hkl_generator_3* generator_ = nullptr;
    hkl_row_writer_3* writer_ = nullptr;
    laue_group_3 group_;
    limit_box_3 box_;
    greatest_line_3 line_;
    index_zeros_3 zeros_;
    line_presence_3 presence_;
    bool is_free_ = false;             ///< general reflections aren't tested
    bool can_be_sure_ = false;         ///< the lattice has no translations but those of its letter
    list_0_3<triple_3> free_lattice_;  ///< the conditions for those that aren't
    list_0_3<triple_3> conditions_;    ///< those for the present line
    list_0_3<progression_3> line_table_;
    interval_union_3 lines_;
    interval_union_3 covered_;
    sum_list_3 sums_;
    tests tests_ = tests::all;
    progression_3 members_;  ///< of the present line, those that the conditions leave
    int h_ = 0;
    int k_ = 0;
};
