#include "reflections/hkl_generator_3.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "textin/file_in.h"

namespace {

std::int64_t dot(const xyz_op_3& op, int row, std::int64_t h, std::int64_t k, std::int64_t l) {
    return op.rot(row, 0) * h + op.rot(row, 1) * k + op.rot(row, 2) * l;
}

}  // namespace

void hkl_generator_3::generate(const char* sg_path, const xyz_list_3& ops, const triple_3& limits,
                               row_list_3& rows) {
    load(sg_path, ops);
    list(limits, rows);
}

void hkl_generator_3::load(const char* sg_path, const xyz_list_3& ops) {
    load_classes(sg_path, with_mates);
    prepare_tests(ops);
}

void hkl_generator_3::list(const triple_3& limits, row_list_3& rows) {
    prepare_grid(limits);
    list_present(lattice_of_3(*sum.ops), limits, rows);
}

void hkl_generator_3::load_classes(const char* sg_path, int new_mode) {
    file_in file(sg_path, file_in::data_file);
    load_hkl_classes_3(file, classes);
    apply_mode(new_mode);
}

void hkl_generator_3::apply_mode(int new_mode) {
    mode_ = new_mode & 3;
    if (mode_ == with_mates) return add_friedel_mates_3(classes);
    if (mode_ == 0) return;
    for (xyz_list_3& list : classes) {
        for (xyz_op_3& op : list) negate_rotation(op, 3);
    }
}

void hkl_generator_3::prepare_tests(const xyz_list_3& ops) {
    sum.set_up(ops);
    find_free_axes(ops);
    for (int i = 0; i < 2; ++i) sum.position_phases(test_positions[i], position_phases[i]);
}

void hkl_generator_3::prepare_grid(const triple_3& limits) {
    size_grid(limits);
    find_inside(limits);
    const int largest = std::max({limits[0], limits[1], limits[2], 0});
    presence_.set_up(sum, position_phases[0], largest);
}

void hkl_generator_3::find_free_axes(const xyz_list_3& ops) {
    axis_free_count = 0;
    for (int i = 0; i < 3; ++i) {
        axis_free[i] = 1;
        for (const xyz_op_3& op : ops) {
            for (int j = 0; j < 3; ++j) {
                if (op.trans(i) != 0 || (j != i && op.rot(i, j) != 0)) axis_free[i] = 0;
            }
        }
        axis_free_count += axis_free[i];
    }
}

// The grid holds what the limits themselves lead to. 0, 0, 0 isn't listed: it is marked at once.
void hkl_generator_3::size_grid(const triple_3& limits) {
    std::int64_t half_width[3] = {0, 0, 0};
    for (int row = 0; row < 3; ++row) {
        for (const xyz_list_3& list : classes) {
            for (const xyz_op_3& op : list) {
                const std::int64_t reach = dot(op, row, limits[0], limits[1], limits[2]);
                half_width[row] = std::max(half_width[row], std::abs(reach));
            }
        }
    }
    grid_.set_up(half_width);
    grid_.mark(grid_.origin());
}

void hkl_generator_3::find_inside(const triple_3& limits) {
    inside_.set_n(classes.n);
    inside_.fill(1);
    for (int i = 0; i < classes.n; ++i) {
        for (const xyz_op_3& op : classes[i]) {
            for (int row = 0; row < 3; ++row) {
                std::int64_t reach = 0;
                for (int j = 0; j < 3; ++j) {
                    reach += std::abs(std::int64_t{op.rot(row, j)} * limits[j]);
                }
                if (!grid_.contains(reach, row)) inside_[i] = 0;
            }
        }
    }
}

// Room for about as many rows as will come: a list that grows leaves its old blocks behind.
int hkl_generator_3::expected_rows(const triple_3& limits) const {
    constexpr int least = 50000;
    constexpr int most = 1 << 26;
    double cells = 1.0;
    for (int i = 0; i < 3; ++i) cells *= 1.0 + 2.0 * std::max(limits[i], 0);
    // Special reflections have fewer equivalents.
    const double rows = 1.1 * cells / std::max(classes[0].n, 1) + least;
    return static_cast<int>(std::min<double>(rows, most));
}

void hkl_generator_3::make_room(const triple_3& limits, row_list_3& rows) const {
    if (rows.n_max == 0) rows.set_max_n(expected_rows(limits), false);
}

void hkl_generator_3::list_present(const lattice_type_3& lattice, const triple_3& limits,
                                   row_list_3& rows) {
    make_room(limits, rows);
    enumerate(residue_filter_3(lattice), limits, [&](int h, int k, int l) {
        const class_line& line = line_of(h, k, l);
        const orbit found = mark_line(line, h, k, l);
        if (found.count == 0 || !counts_as_present(h, k, l)) return;
        rows.add() = row_of(line, found, l);
    });
}

// Limits beyond the grid, which only an incomplete class list leads to, are cut to it.
triple_3 hkl_generator_3::limits_in_grid(const triple_3& limits) const {
    triple_3 within;
    for (int i = 0; i < 3; ++i) {
        const std::int64_t most = std::min<std::int64_t>(limits[i], grid_.half_width(i));
        within[i] = std::max(-1, static_cast<int>(most));
    }
    return within;
}

void hkl_generator_3::begin_line(int h, int k) {
    general_line_.ops = nullptr;
    zero_line_.ops = nullptr;
    presence_.begin_line(h, k);
}

const hkl_generator_3::class_line& hkl_generator_3::line_of(int h, int k, int l) {
    class_line& line = l == 0 ? zero_line_ : general_line_;
    if (line.ops != nullptr) return line;
    const int class_index = hkl_class_of_3(h, k, l);
    line.ops = &classes[class_index];
    line.inside = inside_[class_index] != 0;
    line.images.set_n(line.ops->n / 2);
    for (int i = 0; i < line.images.n; ++i) {
        const xyz_op_3& op = (*line.ops)[i];
        line_image& image = line.images[i];
        for (int row = 0; row < 3; ++row) {
            image.start[row] = static_cast<int>(dot(op, row, h, k, 0));
            image.step[row] = op.rot(row, 2);
        }
        if (!line.inside) continue;
        image.cell = grid_.cell(image.start[0], image.start[1], image.start[2]);
        image.cell_step = grid_.step(image.step[0], image.step[1], image.step[2]);
    }
    return line;
}

// The second half of the operators of a class are the negatives of the first: they lead to the
// mirror image of the cell in the origin.
hkl_generator_3::orbit hkl_generator_3::mark_inside(const class_line& line, int l) {
    orbit result = {0, 0};
    std::int64_t greatest = -1;
    const index_grid_3::marks marks = grid_.marking();
    const auto visit = [&](std::int64_t cell, int op) {
        if (!marks.mark(cell)) return;
        ++result.count;
        if (cell > greatest) {
            greatest = cell;
            result.best = op;
        }
    };
    const int half = line.images.n;
    const line_image* const images = line.images.block();
    for (int i = 0; i < half; ++i) {
        const std::int64_t cell = images[i].cell + l * images[i].cell_step;
        visit(cell, i);
        visit(marks.mate(cell), i + half);
    }
    return result;
}

std::int64_t hkl_generator_3::image_cell(const xyz_op_3& op, int h, int k, int l) const {
    std::int64_t index[3];
    for (int row = 0; row < 3; ++row) {
        index[row] = dot(op, row, h, k, l);
        if (!grid_.contains(index[row], row)) return -1;
    }
    return grid_.cell(index[0], index[1], index[2]);
}

hkl_generator_3::orbit hkl_generator_3::mark_checked(const class_line& line, int h, int k, int l) {
    orbit result = {0, 0};
    std::int64_t greatest = -1;
    for (int i = 0; i < line.ops->n; ++i) {
        const std::int64_t cell = image_cell((*line.ops)[i], h, k, l);
        if (cell < 0 || !grid_.mark(cell)) continue;
        ++result.count;
        if (cell > greatest) {
            greatest = cell;
            result.best = i;
        }
    }
    return result;
}

hkl_row_3 hkl_generator_3::row_of(const class_line& line, const orbit& found, int l) const {
    const int half = line.images.n;
    const bool is_mate = found.best >= half;
    const line_image& image = line.images[is_mate ? found.best - half : found.best];
    const auto index = [&](int row) {
        const auto value = static_cast<int>(image.start[row] + std::int64_t{l} * image.step[row]);
        return is_mate ? -value : value;
    };
    return {index(0), index(1), index(2), found.count};
}

double hkl_generator_3::absence_value(int h, int k, int l, sum_list_3& sums) const {
    sum.translation_sums(h, k, l, sums);
    double a = 0.0;
    double b = 0.0;
    for (const phase_list_3& phases : position_phases) {
        a = 0.0;
        b = 0.0;
        sum.add_position_terms(b, a, phases, h, k, l, sums);
        if (std::abs(b) > 0.0001 || std::abs(a) > 0.0001) return 1.0;
    }
    return a * a + b * b;
}
