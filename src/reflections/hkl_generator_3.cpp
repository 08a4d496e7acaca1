#include "reflections/hkl_generator_3.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <new>

#include "foundation/except_3.h"
#include "foundation/heap_3.h"
#include "reflections/hkl_enumeration.h"
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
    find_steps(limits);
    mark(cell_of(0, 0, 0));
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

void hkl_generator_3::size_grid(const triple_3& limits) {
    constexpr std::int64_t largest_index = 1 << 30;
    constexpr std::int64_t most_words = heap_3::largest_request / sizeof(std::uint64_t);
    std::int64_t lengths[3];
    seen_.clear();  // no grid, should this fail
    for (int row = 0; row < 3; ++row) {
        half_width_[row] = 0;
        for (const xyz_list_3& list : classes) {
            for (const xyz_op_3& op : list) {
                const std::int64_t reach = dot(op, row, limits[0], limits[1], limits[2]);
                half_width_[row] = std::max(half_width_[row], std::abs(reach));
            }
        }
        if (half_width_[row] > largest_index) fail_with("Index limits too large");
        lengths[row] = 2 * half_width_[row] + 1;
    }
    const double cells = static_cast<double>(lengths[0]) * static_cast<double>(lengths[1]) *
                         static_cast<double>(lengths[2]);
    if (cells > 64.0 * most_words) fail_with("Index limits too large");
    stride_k_ = lengths[2];
    stride_h_ = lengths[1] * lengths[2];
    origin_ = half_width_[0] * stride_h_ + half_width_[1] * stride_k_ + half_width_[2];
    try {
        seen_.new_n_zero(static_cast<int>((lengths[0] * stride_h_ + 63) / 64));
    } catch (const std::bad_alloc&) {
        fail_with("Index limits too large");
    }
}

void hkl_generator_3::find_steps(const triple_3& limits) {
    steps_.new_n(classes.n);
    inside_.set_n(classes.n);
    inside_.fill(1);
    for (int i = 0; i < classes.n; ++i) {
        for (const xyz_op_3& op : classes[i]) {
            cell_step& step = steps_[i].add();
            step = {
                dot(op, 0, 1, 0, 0) * stride_h_ + dot(op, 1, 1, 0, 0) * stride_k_ + op.rot(2, 0),
                dot(op, 0, 0, 1, 0) * stride_h_ + dot(op, 1, 0, 1, 0) * stride_k_ + op.rot(2, 1),
                dot(op, 0, 0, 0, 1) * stride_h_ + dot(op, 1, 0, 0, 1) * stride_k_ + op.rot(2, 2)};
            for (int row = 0; row < 3; ++row) {
                std::int64_t reach = 0;
                for (int j = 0; j < 3; ++j) {
                    reach += std::abs(std::int64_t{op.rot(row, j)} * limits[j]);
                }
                if (reach > half_width_[row]) inside_[i] = 0;
            }
        }
    }
}

bool hkl_generator_3::mark(std::int64_t cell) {
    std::uint64_t& word = seen_[static_cast<int>(cell >> 6)];
    const std::uint64_t bit = std::uint64_t{1} << (cell & 63);
    const bool fresh = (word & bit) == 0;
    word |= bit;
    return fresh;
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
    enumerate(allowed_residues(lattice), limits, [&](int h, int k, int l) {
        const class_line& line = line_of(h, k, l);
        const orbit found = mark_line(line, h, k, l);
        if (found.count == 0 || !counts_as_present(h, k, l)) return;
        rows.add() = row_of(line, found, l);
    });
}

constexpr hkl_generator_3::residue_patterns hkl_generator_3::patterns_ = [] {
    residue_patterns patterns{};
    for (unsigned allowed = 0; allowed < patterns.size(); ++allowed) {
        for (unsigned start = 0; start < period; ++start) {
            for (unsigned j = 0; j < 64; ++j) {
                const std::uint64_t bit = (allowed >> ((start + j) % period)) & 1;
                patterns[allowed][start] |= bit << j;
            }
        }
    }
    return patterns;
}();

hkl_generator_3::residue_sets hkl_generator_3::allowed_residues(const lattice_type_3& lattice) {
    residue_sets sets{};
    for (int h = 0; h < period; ++h) {
        for (int k = 0; k < period; ++k) {
            if (!lattice.hk_allowed(h, k)) continue;
            unsigned set = 0;
            for (int l = 0; l < period; ++l) {
                if (lattice.hkl_allowed(h, k, l)) set |= 1u << l;
            }
            sets[static_cast<unsigned>(h * period + k)] = static_cast<std::uint8_t>(set);
        }
    }
    return sets;
}

const hkl_generator_3::class_line& hkl_generator_3::line_of(int h, int k, int l) {
    class_line& line = l == 0 ? zero_line_ : general_line_;
    if (line.ops != nullptr) return line;
    const int class_index = hkl_class_of_3(h, k, l);
    line.ops = &classes[class_index];
    line.inside = inside_[class_index] != 0;
    line.images.set_n(line.ops->n / 2);
    for (int i = 0; i < line.images.n; ++i) {
        const cell_step& step = steps_[class_index][i];
        const xyz_op_3& op = (*line.ops)[i];
        line_image& image = line.images[i];
        image.cell = line.inside ? h * step.h + k * step.k + origin_ : 0;
        image.cell_step = step.l;
        for (int row = 0; row < 3; ++row) {
            image.start[row] = static_cast<int>(dot(op, row, h, k, 0));
            image.step[row] = op.rot(row, 2);
        }
    }
    return line;
}

// The second half of the operators of a class are the negatives of the first: they lead to the
// mirror image of the cell in the origin.
hkl_generator_3::orbit hkl_generator_3::mark_inside(const class_line& line, int l) {
    orbit result = {0, 0};
    std::int64_t greatest = -1;
    std::uint64_t* const seen = seen_.block();
    const auto visit = [&](std::int64_t cell, int op) {
        std::uint64_t& word = seen[cell >> 6];
        const std::uint64_t bit = std::uint64_t{1} << (cell & 63);
        if ((word & bit) != 0) return;
        word |= bit;
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
        visit(2 * origin_ - cell, i + half);
    }
    return result;
}

std::int64_t hkl_generator_3::image_cell(const xyz_op_3& op, int h, int k, int l) const {
    std::int64_t index[3];
    for (int row = 0; row < 3; ++row) {
        index[row] = dot(op, row, h, k, l);
        if (std::abs(index[row]) > half_width_[row]) return -1;
    }
    return cell_of(index[0], index[1], index[2]);
}

hkl_generator_3::orbit hkl_generator_3::mark_checked(const class_line& line, int h, int k, int l) {
    orbit result = {0, 0};
    std::int64_t greatest = -1;
    for (int i = 0; i < line.ops->n; ++i) {
        const std::int64_t cell = image_cell((*line.ops)[i], h, k, l);
        if (cell < 0 || !mark(cell)) continue;
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
