#include "reflections/laue_group_3.h"

#include <numeric>

#include "reflections/group_closure.h"

namespace {

constexpr int most_elements = 48;  // of any Laue class
constexpr int most_shifts = 64;    // without a rotation
constexpr int n_keys = 19683;      // matrices of -1, 0 and 1

laue_element_3 negative(const laue_element_3& element) {
    laue_element_3 result = element;
    for (triple_3& row : result.row) row = {{-row[0], -row[1], -row[2]}};
    return result;
}

bool same_rows(const laue_element_3& a, const laue_element_3& b) {
    return a.row[0] == b.row[0] && a.row[1] == b.row[1] && a.row[2] == b.row[2];
}

int find_rows(const list_0_3<laue_element_3>& elements, const laue_element_3& element) {
    for (int i = 0; i < elements.n; ++i) {
        if (same_rows(elements[i], element)) return i;
    }
    return not_found;
}

bool has_small_coefficients(const xyz_op_3& op) {
    for (int i = 0; i < 9; ++i) {
        if (op.rot(i / 3, i % 3) < -1 || op.rot(i / 3, i % 3) > 1) return false;
    }
    return true;
}

// A number for a matrix of -1, 0 and 1, with the columns of the missing indices struck out.
template <typename Coefficient>
int key_of(const char* class_name, Coefficient coefficient) {
    int key = 0;
    for (int i = 0; i < 9; ++i) {
        key = 3 * key + 1 + (class_name[i % 3] == '0' ? 0 : coefficient(i / 3, i % 3));
    }
    return key;
}

// Whether a class list holds exactly the elements, each of them once or more often. `marks` are 0
// before and after.
bool is_class_of(const list_0_3<laue_element_3>& elements, const char* class_name,
                 const xyz_list_3& list, list_0_3<char>& marks) {
    constexpr char wanted = 1;
    constexpr char found = 2;
    int missing = 0;
    const auto key = [&](const laue_element_3& e) {
        return key_of(class_name, [&](int i, int j) { return e.row[i][j]; });
    };
    for (const laue_element_3& element : elements) {
        char& mark = marks[key(element)];
        if (mark == 0) ++missing;
        mark = wanted;
    }
    bool same = true;
    for (const xyz_op_3& op : list) {
        if (!has_small_coefficients(op)) return false;
        for (int i = 0; i < 9; ++i) {
            if (class_name[i % 3] == '0' && op.rot(i / 3, i % 3) != 0) return false;
        }
        char& mark = marks[key_of(class_name, [&](int i, int j) { return op.rot(i, j); })];
        if (mark == 0) same = false;
        if (mark == wanted) {
            mark = found;
            --missing;
        }
    }
    for (const laue_element_3& element : elements) marks[key(element)] = 0;
    return same && missing == 0;
}

bool are_classes_of(const list_0_3<laue_element_3>& elements, const class_lists_3& classes) {
    list_0_3<char> marks;
    marks.new_n_zero(n_keys);
    for (int i = 0; i < n_hkl_classes_3; ++i) {
        if (!is_class_of(elements, hkl_class_names_3()[i].data, classes[i], marks)) return false;
    }
    return true;
}

}  // namespace

bool element_less(const laue_element_3& a, const laue_element_3& b) {
    for (int i = 0; i < 3; ++i) {
        if (a.row[i] != b.row[i]) return element_less(a.row[i], b.row[i]);
    }
    return false;
}

bool laue_group_3::set_up(const xyz_list_3& ops, const class_lists_3& classes) {
    elements.clear();
    lattice.clear();
    if (ops.n > most_elements * most_shifts || classes.n != n_hkl_classes_3) return false;
    xyz_list_3 sorted(ops);
    normalise_xyzs_3(sorted);
    for (const xyz_op_3& op : sorted) {
        if (!has_small_coefficients(op) || elements.n > most_elements) return false;
        add_operator(op);
    }
    add_negatives();
    sort(elements);
    // Most lists that aren't those of a group show it here, at the least cost.
    if (lattice.n > most_shifts || !are_classes_of(elements, classes)) return false;
    find_periods();
    sort_xyzs_3(sorted);
    return is_group_3(sorted);
}

void laue_group_3::add_operator(const xyz_op_3& op) {
    laue_element_3 element;
    for (int i = 0; i < 3; ++i) element.row[i] = {{op.rot(0, i), op.rot(1, i), op.rot(2, i)}};
    element.in_group = true;
    element.shift = {{op.trans(0), op.trans(1), op.trans(2)}};
    if (is_identity_rotation(op)) {
        if (element.shift != triple_3{{0, 0, 0}}) lattice.add(element.shift);
        element.shift = {{0, 0, 0}};
    }
    if (find_rows(elements, element) == not_found) elements.add(element);
}

void laue_group_3::add_negatives() {
    const int n = elements.n;
    for (int i = 0; i < n; ++i) {
        laue_element_3 mate = negative(elements[i]);
        mate.in_group = false;
        if (find_rows(elements, mate) == not_found) elements.add(mate);
    }
}

int laue_group_3::negative_of(int element) const {
    return find_rows(elements, negative(elements[element]));
}

void laue_group_3::find_periods() {
    for (int i = 0; i < 3; ++i) {
        int step = xyz_op_3::edge;
        for (const laue_element_3& element : elements) step = std::gcd(step, element.shift[i]);
        for (const triple_3& shift : lattice) step = std::gcd(step, shift[i]);
        period[i] = xyz_op_3::edge / step;
    }
}
