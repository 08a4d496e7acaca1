#pragma once

#include <cstdint>

#include "reflections/hkl_classes.h"
#include "reflections/lattice_type_3.h"
#include "reflections/presence_3.h"
#include "reflections/sg_phase_sum_3.h"
#include "textout/row_writers.h"

using row_list_3 = list_0_3<hkl_row_3>;

/// Lists the unique, present reflections of a group. A grid of one bit for each triple of indices
/// remembers which reflections were met as equivalents of others.
class hkl_generator_3 {
public:
    /// Appends to `rows` each unique reflection that has a member within the limits, unsorted: the
    /// greatest equivalent, which may lie beyond the limits, and the number of equivalents, Friedel
    /// mates included. The class lists come from the .sg file, the operators from `ops`, which
    /// must outlive the generator. Fails with the failures of reading, and with
    /// " Index limits too large" when the grid can't be held.
    void generate(const char* sg_path, const xyz_list_3& ops, const triple_3& limits,
                  row_list_3& rows);

    /// The test value of a reflection: 1 if the structure factor of an atom at one of two test
    /// positions doesn't vanish, else the square of its size. A reflection is present when the
    /// value is greater than 1e-9. `sums` is scratch.
    double absence_value(int h, int k, int l, sum_list_3& sums) const;

    class_lists_3 classes;  ///< with their Friedel mates
    sg_phase_sum_3 sum;
    phase_list_3 position_phases[2];  ///< for each test position
    int axis_free[3] = {0, 0, 0};     ///< 1 if all operators leave this axis to itself, unshifted
    int axis_free_count = 0;

private:
    // How an operator of a class moves the cell number: by a part for each index.
    struct cell_step {
        std::int64_t h;
        std::int64_t k;
        std::int64_t l;
    };
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

    void prepare(const xyz_list_3& ops, const triple_3& limits);
    void find_free_axes(const xyz_list_3& ops);
    void size_grid(const triple_3& limits);
    void find_steps(const triple_3& limits);
    void enumerate(const lattice_type_3& lattice, const triple_3& limits, row_list_3& rows);
    void scan_line(int h, int k, int l_limit, unsigned allowed, row_list_3& rows);
    const class_line& line_of(int h, int k, int l);
    void take_reflection(int h, int k, int l, row_list_3& rows);
    orbit mark_inside(const class_line& line, int l);
    orbit mark_checked(const class_line& line, int h, int k, int l);
    bool is_present(int h, int k, int l);
    hkl_row_3 row_of(const class_line& line, const orbit& found, int l) const;
    bool mark(std::int64_t cell);

    std::int64_t cell_of(std::int64_t h, std::int64_t k, std::int64_t l) const {
        return h * stride_h_ + k * stride_k_ + l + origin_;
    }

    list_0_3<std::uint64_t> seen_;
    std::int64_t half_width_[3] = {0, 0, 0};
    std::int64_t stride_h_ = 0;
    std::int64_t stride_k_ = 0;
    std::int64_t origin_ = 0;  ///< the cell of 0, 0, 0
    list_0_3<list_0_3<cell_step>> steps_;
    int_list_3 inside_;  ///< for each class 1 if no equivalent leaves the grid
    presence_3 presence_;
    sum_list_3 sums_;
    class_line general_line_;
    class_line zero_line_;  ///< for the reflection with l = 0
};
