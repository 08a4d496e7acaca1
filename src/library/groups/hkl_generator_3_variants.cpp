#include "library/groups/hkl_generator_3_variants.h"

#include <cmath>

#include "reflections/hkl_enumeration.h"

void hkl_generator_3::take_classes(const class_lists_3& lists, int new_mode) {
    class_lists_3 taken(lists);
    taken.set_n(n_hkl_classes_3);
    classes.take(taken);
    apply_mode(new_mode);
}

hkl_generator_3::residue_sets hkl_generator_3::all_residues() {
    residue_sets sets;
    sets.fill((1 << period) - 1);
    return sets;
}

void hkl_generator_3::generate_all(const class_lists_3& class_lists, const xyz_list_3& ops,
                                   const triple_3& limits, row_list_3& rows, int tests) {
    take_classes(class_lists, with_mates);
    prepare(ops, limits);
    if (tests != 0) return list_present(lattice_of_3(ops), limits, rows);
    make_room(limits, rows);
    enumerate(all_residues(), limits, [&](int h, int k, int l) {
        const class_line& line = line_of(h, k, l);
        const orbit found = mark_line(line, h, k, l);
        if (found.count != 0) rows.add() = row_of(line, found, l);
    });
}

void hkl_generator_3::generate_with_status(const class_lists_3& class_lists, const xyz_list_3& ops,
                                           const triple_3& limits, row_list_3& rows,
                                           int_list_3& status) {
    constexpr int room = 50000;
    constexpr int is_there = 1;
    constexpr int is_absent = 2;
    take_classes(class_lists, with_mates);
    prepare(ops, limits);
    make_room(limits, rows);
    if (status.n_max == 0) status.set_max_n(room, false);
    enumerate(all_residues(), limits, [&](int h, int k, int l) {
        const class_line& line = line_of(h, k, l);
        const orbit found = mark_line(line, h, k, l);
        if (found.count == 0) return;
        status.add(counts_as_present(h, k, l) ? is_there : is_absent);
        rows.add() = row_of(line, found, l);
    });
}

void hkl_generator_3::mark_orbit(int h, int k, int l) {
    if (seen_.n == 0) return;
    for (const xyz_op_3& op : classes[hkl_class_of_3(h, k, l)]) {
        const std::int64_t cell = image_cell(op, h, k, l);
        if (cell < 0 || !mark(cell)) continue;
        // Cells ascend with the indices, so that a negative first index lies below the origin.
        if ((mode_ & 1) == 0 && cell < origin_) mark(2 * origin_ - cell);
    }
}

bool hkl_generator_3::is_marked(int h, int k, int l) const {
    if (seen_.n == 0) return false;
    const int index[3] = {h, k, l};
    for (int i = 0; i < 3; ++i) {
        if (std::abs(std::int64_t{index[i]}) > half_width_[i]) return false;
    }
    const std::int64_t cell = cell_of(h, k, l);
    return (seen_[static_cast<int>(cell >> 6)] >> (cell & 63) & 1) != 0;
}

void mark_present(hkl_generator_3& first, hkl_generator_3& second, int mode, const char* sg_path,
                  const xyz_list_3& ops, const triple_3& limits) {
    first.load_classes(sg_path, hkl_generator_3::with_mates);
    first.prepare(ops, limits);
    second.load_classes(sg_path, mode);
    second.size_grid(limits);
    second.mark(second.cell_of(0, 0, 0));
    const auto allowed = hkl_generator_3::allowed_residues(lattice_of_3(ops));
    first.enumerate(allowed, limits, [&](int h, int k, int l) {
        first.mark_orbit(h, k, l);
        if (first.counts_as_present(h, k, l, true)) second.mark_orbit(h, k, l);
    });
}
