#pragma once

#include <cstdint>

#include "reflections/hkl_classes.h"
#include "reflections/index_grid_3.h"
#include "reflections/lattice_type_3.h"
#include "reflections/presence_3.h"
#include "reflections/sg_phase_sum_3.h"
#include "textout/row_writers.h"

using row_list_3 = list_0_3<hkl_row_3>;

/// Finds the reflections that a measurement of a crystal can give: one of each set of equivalent
/// ones, without the absent. A grid of bits, addressed by h, k and l, keeps what was met before.
class hkl_generator_3 {
public:
    /// Appends a row to `rows` for each set of equivalents that the limits don't miss altogether,
    /// in no useful order: the greatest of them by h, k, l, be it outside the limits, and how many
    /// there are, Friedel mates included. The class lists come from the .sg file, the operators
    /// from `ops`, which must outlive the generator. Fails with the failures of reading, and with
    /// " Index limits too large" when the grid can't be held.
    void generate(const char* sg_path, const xyz_list_3& ops, const triple_3& limits,
                  row_list_3& rows);
    /// The first half of generate: reads the class lists, and prepares the tests for absence.
    void load(const char* sg_path, const xyz_list_3& ops);
    /// The second half: makes the grid, and lists. Needs a load before.
    void list(const triple_3& limits, row_list_3& rows);

    // The same without a file: the class lists are arguments, and have no Friedel mates. A class
    // without a list has no reflections. (library/groups/hkl_generator_3_variants.cpp)

    /// As generate; with `tests` 0 absent reflections are listed, too.
    void generate_all(const class_lists_3& class_lists, const xyz_list_3& ops,
                      const triple_3& limits, row_list_3& rows, int tests);
    /// As generate_all with `tests` 0, and for each row appends to `status` 1 if the reflection is
    /// present, 2 if it is absent. The conditions of the lattice aren't asked, so that of a group
    /// with an axis that no operator moves or shifts all general reflections count as present.
    void generate_with_status(const class_lists_3& class_lists, const xyz_list_3& ops,
                              const triple_3& limits, row_list_3& rows, int_list_3& status);
    /// Marks the equivalents of a reflection in the grid that the call before left.
    void mark_orbit(int h, int k, int l);
    /// Whether a reflection is marked; what lies outside the grid isn't, and 0, 0, 0 is
    /// as soon as there is a grid.
    bool is_marked(int h, int k, int l) const;
    friend void mark_present(hkl_generator_3& first, hkl_generator_3& second, int mode,
                             const char* sg_path, const xyz_list_3& ops, const triple_3& limits);

    /// Above 1e-9 if a reflection is present, at most that if it is absent. The number is 1 where
    /// an atom at one of two positions gives a real or imaginary part of more than 1e-4, and
    /// otherwise the square of what the second position gives. `sums` is scratch.
    double absence_value(int h, int k, int l, sum_list_3& sums) const;

    static constexpr double absence_limit = 1e-9;  ///< of absence_value
    /// The positions, in fractions of the cell edges.
    static constexpr double test_positions[2][3] = {{0.12035, 0.07896, 0.14478},
                                                    {0.19523, 0.25341, 0.19412}};

    class_lists_3 classes;  ///< with their Friedel mates, but for a mode of mark_present
    sg_phase_sum_3 sum;
    phase_list_3 position_phases[2];  ///< for each test position
    int axis_free[3] = {0, 0, 0};     ///< 1 if all operators leave this axis to itself, unshifted
    int axis_free_count = 0;

private:
    // The image under one operator of the reflections along a line of l: start + l * step.
    struct line_image {
        std::int64_t cell;
        std::int64_t cell_step;
        int start[3];
        int step[3];
    };
    // The equivalents of the reflections of one class along a line, without the Friedel mates.
    struct class_line {
        const xyz_list_3* ops = nullptr;  ///< null until the line is needed
        bool inside = false;              ///< no equivalent leaves the grid
        list_0_3<line_image> images;
    };
    struct orbit {
        int count;  ///< members met for the first time
        int best;   ///< the operator that leads to the greatest of them
    };

    static constexpr int with_mates = 3;

    void load_classes(const char* sg_path, int new_mode);
    void take_classes(const class_lists_3& lists, int new_mode);
    void apply_mode(int new_mode);
    void prepare(const xyz_list_3& ops, const triple_3& limits) {
        prepare_tests(ops);
        prepare_grid(limits);
    }
    void prepare_tests(const xyz_list_3& ops);
    void prepare_grid(const triple_3& limits);
    void find_free_axes(const xyz_list_3& ops);
    void size_grid(const triple_3& limits);
    void find_inside(const triple_3& limits);
    int expected_rows(const triple_3& limits) const;
    void make_room(const triple_3& limits, row_list_3& rows) const;
    void list_present(const lattice_type_3& lattice, const triple_3& limits, row_list_3& rows);
    void begin_line(int h, int k);
    // Goes through the reflections within the limits, but for those with h below 0, whose mates
    // have it above: all l of an h and a k before the next k, upward. Calls take(h, k, l) for those
    // that aren't marked by then and whose residues are allowed.
    template <typename Take>
    void enumerate(const residue_filter_3& allowed, const triple_3& limits, Take take) {
        const triple_3 within = limits_in_grid(limits);
        for (int h = 0; h <= within[0]; ++h) {
            for (int k = -within[1]; k <= within[1]; ++k) {
                const residue_filter_3::words* const line = allowed.line(h, k);
                if (line == nullptr || within[2] < 0) continue;
                begin_line(h, k);
                grid_.scan_line(h, k, within[2], *line, [&](int l) { take(h, k, l); });
            }
        }
    }
    triple_3 limits_in_grid(const triple_3& limits) const;
    const class_line& line_of(int h, int k, int l);
    orbit mark_line(const class_line& line, int h, int k, int l) {
        return line.inside ? mark_inside(line, l) : mark_checked(line, h, k, l);
    }
    orbit mark_inside(const class_line& line, int l);
    orbit mark_checked(const class_line& line, int h, int k, int l);
    // Whether a reflection of the line that is walked counts as present: a general one with a free
    // axis does. `at_limit` is the answer for a test value that equals the limit.
    bool counts_as_present(int h, int k, int l, bool at_limit = false) {
        if (h != 0 && k != 0 && l != 0 && axis_free_count != 0) return true;
        const presence_3::verdict verdict = presence_.test(l);
        if (verdict != presence_3::unsure) return verdict == presence_3::present;
        const double value = absence_value(h, k, l, sums_);
        return value > absence_limit || (at_limit && value == absence_limit);
    }
    hkl_row_3 row_of(const class_line& line, const orbit& found, int l) const;

    // The cell of the image of a reflection under an operator, or -1 if it lies outside the grid.
    std::int64_t image_cell(const xyz_op_3& op, int h, int k, int l) const;

    int mode_ = with_mates;
    index_grid_3 grid_;
    int_list_3 inside_;  ///< for each class 1 if no equivalent leaves the grid
    presence_3 presence_;
    sum_list_3 sums_;
    class_line general_line_;
    class_line zero_line_;  ///< for the reflection with l = 0
};
