#include "fuzzing.h"
#include "reflections/crystal_system.h"
#include "reflections/lattice_type_3.h"
#include "reflections/similar_hkls.h"
#include "sgfile/sg_reader.h"
#include "textin/file_in.h"
#include "textout/sstring_out.h"

// The text of a .sg file, through the readers of both kinds of operators; then what is worked out
// from the operators.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string text(reinterpret_cast<const char*>(data), size);
    run_cleanly([&] {
        blank_comments(text.data());
        sstring_in in(text.c_str());
        xyz_list_3 ops;
        load_xyzs_3(in, ops);
        normalise_xyzs_3(ops);
        sort_xyzs_3(ops);
        if (ops.n > 200) return;  // no group, and only slow
        lattice_letter_3(ops);
        sstring_out out;
        for (const xyz_op_3& op : ops) write_xyz(out, op);
        add_similar_hkls_3(ops, out);
        run_cleanly([&] { crystal_system_of_3(ops); });
        class_lists_3 classes;
        load_hkl_classes_3(in, classes);
        add_friedel_mates_3(classes);
    });
    return 0;
}
