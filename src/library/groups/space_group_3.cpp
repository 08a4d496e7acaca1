#include "library/groups/space_group_3.h"

#include "catalogue/point_group_table_3.h"
#include "foundation/except_3.h"
#include "symmetry/centring_table.h"
#include "symmetry/sg_decoder_3.h"
#include "textin/data_dir.h"

namespace {

sg_file_names_3 names_of(const char* symbol) {
    sg_file_names_3 names;
    names.set_symbol(symbol);
    if (!names.is_valid()) fail_with("Error in space group symbol");
    return names;
}

space_group_3 make_group(const sg_catalogue_entry_3& entry, const rotation_catalogue_3& rotations) {
    space_group_3 group;
    group.entry = entry;
    point_group_table_3 table;
    table.lookup(entry.symbol);
    group.entry.point_group = table.normalised();
    sg_decoder_3 decoder;
    decoder.set_computer_symbol(entry.computer_symbol);
    decoder.decode(entry.axes, rotations);
    group.ops.take(decoder.ops);
    add_centring_copies(group.ops, decoder.computer_symbol.data[0]);
    sort_xyzs_3(group.ops);
    return group;
}

}  // namespace

space_group_3 space_group_of(const char* symbol) {
    sg_file_names_3 names = names_of(symbol);
    const sg_catalogue_entry_3 entry = find_catalogue_entry(names);
    return make_group(entry, rotation_catalogue());
}

space_groups_3::space_groups_3()
    : catalogue_(catalogue_path()), rotations_(data_text_3(data_path("sgrots3.txt"))) {}

space_groups_3::space_groups_3(const data_text_3& catalogue, const data_text_3& rotations)
    : catalogue_(catalogue), rotations_(rotations) {}

space_group_3 space_groups_3::find(const char* symbol) const {
    sg_file_names_3 names = names_of(symbol);
    return group_of(find_catalogue_entry(catalogue_, names.lower_symbol()));
}

space_group_3 space_groups_3::group_of(const sg_catalogue_entry_3& entry) const {
    return make_group(entry, rotations_);
}
