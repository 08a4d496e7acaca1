// reflections SYMBOL LIMIT: the unique reflections of a group with indices up to a limit, each with
// its multiplicity.

#include <cstdio>
#include <cstdlib>

#include "foundation/except_3.h"
#include "library/groups/hkl_generator_3_variants.h"
#include "library/groups/space_group_3.h"
#include "reflections/similar_hkls.h"

int main(int argc, char** argv) {
    if (argc != 3) return 1;
    const auto failure = failure_of([&] {
        const space_group_3 group = space_group_of(argv[1]);
        class_lists_3 classes;
        similar_hkls_3(group.ops, classes);
        const int limit = std::atoi(argv[2]);
        hkl_generator_3 generator;
        row_list_3 rows;
        int_list_3 status;
        generator.generate_with_status(classes, group.ops, {{limit, limit, limit}}, rows, status);
        for (int i = 0; i < rows.n; ++i) {
            std::printf("%3d %3d %3d  %d %s\n", rows[i].h, rows[i].k, rows[i].l,
                        rows[i].multiplicity, status[i] == 1 ? "present" : "absent");
        }
    });
    if (failure == nullptr) return 0;
    std::fprintf(stderr, "Failed:%s\n", failure->text());
    return 1;
}
