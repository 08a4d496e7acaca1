#include "library/groups/group_files.h"

#include "foundation/except_3.h"
#include "library/groups/child_process.h"
#include "sgfile/sg_reader.h"
#include "textin/file_in.h"
#include "textout/console.h"

int load_space_group(sg_catalogue_entry_3& entry, const char* symbol) {
    if (*symbol == 0) return space_group_empty;
    sg_file_names_3 names;
    names.set_symbol(symbol);
    if (!names.is_valid()) return space_group_invalid;
    if (!names.sg_file_exists() && !run_generation(names)) return space_group_not_generated;
    file_in file(names.sg_path(), file_in::data_file);
    sg_catalogue_entry_3 loaded;
    loaded.read_record(file);
    entry = loaded;
    return space_group_loaded;
}

namespace {

void generate_missing_sg(sg_file_names_3& names, const char* symbol) {
    console_stream() << "Generating xyz's for " << symbol << '\n';
    if (run_generation(names) == 0) fail_with("Error generating equivalent positions");
}

}  // namespace

void load_group_xyzs_3(xyz_list_3& ops, string_3& path, const char* symbol) {
    constexpr int tries = 2;
    sg_file_names_3 names;
    names.set_symbol(symbol);
    ops.clear();
    path = names.sg_path();
    for (int i = 0; i < tries; ++i) {
        if (names.sg_file_exists()) {
            file_in file(path, file_in::data_file);
            console_stream() << "Loading xyz's for " << symbol << " from file " << path << '\n';
            return load_xyzs_3(file, ops);
        }
        generate_missing_sg(names, symbol);
    }
}
