#include "reflections/hkl_generator_3.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <new>

#include "foundation/except_3.h"
#include "foundation/heap_3.h"
#include "textin/file_in.h"

namespace {

constexpr double test_positions[2][3] = {{0.12035, 0.07896, 0.14478}, {0.19523, 0.25341, 0.19412}};

// The conditions of the lattices on one index repeat with 2 or 3.
constexpr int period = 6;

// For each set of allowed residues of l, and each residue to start at: the allowed ones among 64
// successive values of l.
constexpr auto allowed_patterns = [] {
    std::array<std::array<std::uint64_t, period>, 1 << period> patterns{};
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

int residue_of(int index) { return (index % period + period) % period; }

// For the residues of h and k, the set of the residues of l that the lattice allows.
std::array<std::uint8_t, period * period> allowed_residues(const lattice_type_3& lattice) {
    std::array<std::uint8_t, period * period> sets{};
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

std::int64_t dot(const xyz_op_3& op, int row, std::int64_t h, std::int64_t k, std::int64_t l) {
    return op.rot(row, 0) * h + op.rot(row, 1) * k + op.rot(row, 2) * l;
}

}  // namespace

void hkl_generator_3::generate(const char* sg_path, const xyz_list_3& ops, const triple_3& limits,
                               row_list_3& rows) {
    {
        file_in file(sg_path, file_in::data_file);
        load_hkl_classes_3(file, classes);
    }
    add_friedel_mates_3(classes);
    prepare(ops, limits);
    enumerate(lattice_of_3(ops), limits, rows);
}

void hkl_generator_3::prepare(const xyz_list_3& ops, const triple_3& limits) {
    sum.set_up(ops);
    find_free_axes(ops);
    for (int i = 0; i < 2; ++i) sum.position_phases(test_positions[i], position_phases[i]);
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

// Room for as many rows as there are reflections to look at, within reason. Room that isn't used
// costs nothing, while a list that grows leaves its old blocks behind.
static int first_room(const triple_3& limits) {
    constexpr int least = 50000;
    constexpr int most = 1 << 22;
    double cells = 1.0 + std::max(limits[0], 0);
    for (int i = 1; i < 3; ++i) cells *= 1.0 + 2.0 * std::max(limits[i], 0);
    return cells > most ? most : std::max(static_cast<int>(cells), least);
}

void hkl_generator_3::enumerate(const lattice_type_3& lattice, const triple_3& limits,
                                row_list_3& rows) {
    if (rows.n_max == 0) rows.set_max_n(first_room(limits), false);
    // What lies outside the grid has no cell; a complete class list never lets that happen.
    int within[3];
    for (int i = 0; i < 3; ++i) {
        within[i] =
            std::max(-1, static_cast<int>(std::min<std::int64_t>(limits[i], half_width_[i])));
    }
    const auto allowed = allowed_residues(lattice);
    for (int h = 0; h <= within[0]; ++h) {
        for (int k = -within[1]; k <= within[1]; ++k) {
            const int set = allowed[static_cast<unsigned>(residue_of(h) * period + residue_of(k))];
            if (set != 0) scan_line(h, k, within[2], static_cast<unsigned>(set), rows);
        }
    }
}

// Walks the cells of (h, k, -l_limit) to (h, k, l_limit) a word at a time and takes up each that is
// neither marked nor forbidden by the lattice.
void hkl_generator_3::scan_line(int h, int k, int l_limit, unsigned allowed, row_list_3& rows) {
    if (l_limit < 0) return;
    general_line_.ops = nullptr;
    zero_line_.ops = nullptr;
    presence_.begin_line(h, k);
    std::int64_t cell = cell_of(h, k, -l_limit);
    int l = -l_limit;
    while (l <= l_limit) {
        const std::uint64_t& word = seen_[static_cast<int>(cell >> 6)];
        const int offset = static_cast<int>(cell & 63);
        const int width = std::min(64 - offset, l_limit - l + 1);
        std::uint64_t open = allowed_patterns[allowed][static_cast<unsigned>(residue_of(l))];
        if (width < 64) open &= (std::uint64_t{1} << width) - 1;
        open &= ~word >> offset;
        while (open != 0) {
            const int at = l + std::countr_zero(open);
            open &= open - 1;
            take_reflection(h, k, at, rows);
            open &= ~word >> offset;
        }
        l += width;
        cell += width;
    }
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
        image.cell = h * step.h + k * step.k + origin_;
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

hkl_generator_3::orbit hkl_generator_3::mark_checked(const class_line& line, int h, int k, int l) {
    orbit result = {0, 0};
    std::int64_t greatest = -1;
    for (int i = 0; i < line.ops->n; ++i) {
        const xyz_op_3& op = (*line.ops)[i];
        std::int64_t index[3];
        bool inside = true;
        for (int row = 0; row < 3; ++row) {
            index[row] = dot(op, row, h, k, l);
            inside = inside && std::abs(index[row]) <= half_width_[row];
        }
        if (!inside) continue;
        const std::int64_t cell = cell_of(index[0], index[1], index[2]);
        if (!mark(cell)) continue;
        ++result.count;
        if (cell > greatest) {
            greatest = cell;
            result.best = i;
        }
    }
    return result;
}

void hkl_generator_3::take_reflection(int h, int k, int l, row_list_3& rows) {
    const class_line& line = line_of(h, k, l);
    const orbit found = line.inside ? mark_inside(line, l) : mark_checked(line, h, k, l);
    if (found.count == 0) return;
    const bool general = h != 0 && k != 0 && l != 0;
    if (!(general && axis_free_count != 0) && !is_present(h, k, l)) return;
    rows.add() = row_of(line, found, l);
}

hkl_row_3 hkl_generator_3::row_of(const class_line& line, const orbit& found, int l) const {
    const int half = line.images.n;
    const bool is_mate = found.best >= half;
    const line_image& image = line.images[is_mate ? found.best - half : found.best];
    const auto index = [&](int row) {
        const int value = image.start[row] + l * image.step[row];
        return is_mate ? -value : value;
    };
    return {index(0), index(1), index(2), found.count};
}

bool hkl_generator_3::is_present(int h, int k, int l) {
    const presence_3::verdict verdict = presence_.test(l);
    if (verdict != presence_3::unsure) return verdict == presence_3::present;
    return absence_value(h, k, l, sums_) > 1e-9;
}

double hkl_generator_3::absence_value(int h, int k, int l, sum_list_3& sums) const {
    sum.translation_sums(h, k, l, sums);
    double a = 0.0;
    double b = 0.0;
    for (const phase_list_3& phases : position_phases) {
        a = 0.0;
        b = 0.0;
        for (int g = 0; g < sums.n; ++g) {
            const double* const row = phases[g].row;
            const double p = h * row[0] + k * row[1] + l * row[2];
            const double sp = std::sin(p);
            const double cp = std::cos(p);
            if (sum.group_unpaired[g] != 0) b += sp * sums[g].a1 + cp * sums[g].b1;
            a += cp * sums[g].a2 - sp * sums[g].b2;
        }
        if (std::abs(b) > 0.0001 || std::abs(a) > 0.0001) return 1.0;
    }
    return a * a + b * b;
}
