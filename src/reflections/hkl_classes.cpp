#include "reflections/hkl_classes.h"

#include "sgfile/sg_reader.h"

const string_list_3& hkl_class_names_3() {
    static const string_list_3 names = [] {
        string_list_3 list;
        for (const char* name : {"hkl", "hk0", "h0l", "0kl", "h00", "0k0", "00l"}) list.add(name);
        return list;
    }();
    return names;
}

int hkl_class_of_3(int h, int k, int l) {
    static constexpr int classes[8] = {0, 6, 5, 3, 4, 2, 1, 0};
    return classes[(h != 0 ? 4 : 0) + (k != 0 ? 2 : 0) + (l != 0 ? 1 : 0)];
}

void load_hkl_classes_3(sstring_in& in, class_lists_3& classes) {
    classes.new_n(n_hkl_classes_3);
    for (int i = 0; i < n_hkl_classes_3; ++i) {
        in.find_tag(hkl_class_names_3()[i].data, throw_on_failure);
        load_hkl_ops_3(in, classes[i]);
    }
}

void add_friedel_mates_3(class_lists_3& classes) {
    for (xyz_list_3& list : classes) {
        const int n = list.n;
        for (int i = 0; i < n; ++i) {
            xyz_op_3 mate = list[i];
            negate_rotation(mate, 3);
            list.add(mate);
        }
        list.set_max_n(list.n, true);
    }
}
