#include "library/groups/hkl_generator_3_variants.h"

void hkl_generator_3::take_classes(const class_lists_3& lists, int new_mode) {
    class_lists_3 taken(lists);
    taken.set_n(n_hkl_classes_3);
    classes.take(taken);
    apply_mode(new_mode);
}

void hkl_generator_3::generate_all(const class_lists_3& class_lists, const xyz_list_3& ops,
                                   const triple_3& limits, row_list_3& rows, int tests) {
    take_classes(class_lists, with_mates);
    prepare(ops, limits);
    if (tests != 0) return list_present(lattice_of_3(ops), limits, rows);
    make_room(limits, rows);
    enumerate(residue_filter_3(), limits, [&](int h, int k, int l) {
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
    enumerate(residue_filter_3(), limits, [&](int h, int k, int l) {
        const class_line& line = line_of(h, k, l);
        const orbit found = mark_line(line, h, k, l);
        if (found.count == 0) return;
        status.add(counts_as_present(h, k, l) ? is_there : is_absent);
        rows.add() = row_of(line, found, l);
    });
}

void hkl_generator_3::mark_orbit(int h, int k, int l) {
    if (grid_.is_empty()) return;
    for (const xyz_op_3& op : classes[hkl_class_of_3(h, k, l)]) {
        const std::int64_t cell = image_cell(op, h, k, l);
        if (cell < 0 || !grid_.mark(cell)) continue;
        // Cells ascend with the indices, so that a negative first index lies below the origin.
        if ((mode_ & 1) == 0 && cell < grid_.origin()) grid_.mark(grid_.marking().mate(cell));
    }
}

bool hkl_generator_3::is_marked(int h, int k, int l) const {
    if (grid_.is_empty()) return false;
    const int index[3] = {h, k, l};
    for (int i = 0; i < 3; ++i) {
        if (!grid_.contains(index[i], i)) return false;
    }
    return grid_.is_marked(grid_.cell(h, k, l));
}

void mark_present(hkl_generator_3& first, hkl_generator_3& second, int mode, const char* sg_path,
                  const xyz_list_3& ops, const triple_3& limits) {
    first.load_classes(sg_path, hkl_generator_3::with_mates);
    first.prepare(ops, limits);
    second.load_classes(sg_path, mode);
    second.size_grid(limits);
    const residue_filter_3 allowed(lattice_of_3(ops));
    first.enumerate(allowed, limits, [&](int h, int k, int l) {
        first.mark_orbit(h, k, l);
        if (first.counts_as_present(h, k, l, true)) second.mark_orbit(h, k, l);
    });
}
