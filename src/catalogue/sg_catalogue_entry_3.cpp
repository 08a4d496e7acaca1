#include "catalogue/sg_catalogue_entry_3.h"

#include "catalogue/catalogue_scan_3.h"
#include "foundation/except_3.h"
#include "textin/file_in.h"

namespace {

sg_catalogue_entry_3 find_entry(const char* catalogue, const char* key) {
    catalogue_scan_3 scan(catalogue);
    while (scan.next()) {
        if (sstring_in::range_equal(scan.name(), key)) return scan.entry();
    }
    fail_with("Space group not found in lomar5.txt");
}

}  // namespace

sg_catalogue_entry_3 find_catalogue_entry(sg_file_names_3& names) {
    const file_in file(catalogue_path(), file_in::data_file);
    return find_entry(file.current(), names.lower_symbol().data);
}

sg_catalogue_entry_3 find_catalogue_entry(const data_text_3& catalogue, const string_3& key) {
    return find_entry(catalogue.text(), key.data);
}

namespace {

void write_line(stream_out& stream, const char* key, string_3& value) {
    value.to_lower();
    stream << "\n\t" << key << ' ' << value;
}

}  // namespace

void sg_catalogue_entry_3::write_record(stream_out& stream) {
    stream << "space_group\n{"
           << "\n\tnumber " << number;
    write_line(stream, "symbol", symbol);
    write_line(stream, "point_group", point_group);
    write_line(stream, "computer_symbol", computer_symbol);
    if (!unique_axis.is_empty()) write_line(stream, "unique_axis", unique_axis);
    if (!rhombohedral_hexagonal.is_empty()) {
        write_line(stream, "rhombohedral_hexagonal", rhombohedral_hexagonal);
    }
    if (!axes.is_empty()) stream << "\n\taxes " << axes;
    stream << "\n}";
}

void sg_catalogue_entry_3::read_record(sstring_in& in) {
    in.find_tag("space_group", throw_on_failure);
    in.skip_past('{');
    const struct {
        const char* key;
        string_3* field;
    } texts[] = {{"axes", &axes},
                 {"computer_symbol", &computer_symbol},
                 {"unique_axis", &unique_axis},
                 {"symbol", &symbol},
                 {"point_group", &point_group},
                 {"rhombohedral_hexagonal", &rhombohedral_hexagonal}};
    while (in.more_in_block()) {
        const char_range_3 key = in.token();
        if (sstring_in::range_equal(key, "number")) number = in.read_int();
        for (const auto& text : texts) {
            if (!sstring_in::range_equal(key, text.key)) continue;
            const char_range_3 value = in.token();
            text.field->assign_range(value.begin, value.length());
        }
    }
}
