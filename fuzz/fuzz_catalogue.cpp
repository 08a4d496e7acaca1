#include "catalogue/point_group_table_3.h"
#include "catalogue/sg_catalogue_entry_3.h"
#include "fuzzing.h"
#include "textout/sstring_out.h"

// The first line is a symbol as a user types it, the rest a catalogue in which it is searched.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string input(reinterpret_cast<const char*>(data), size);
    const std::string symbol = take_line(input);
    run_cleanly([&] {
        sg_file_names_3 names;
        names.set_symbol(symbol.c_str());
        names.set_out_dir("out");
        names.sg_path();
        names.hkl_path();
        names.run_command();
        write_file("lomar5.txt", input);
        sg_catalogue_entry_3 entry = find_catalogue_entry(names);
        sstring_out record;
        entry.write_record(record);
        sstring_in in(record.string_out::text());
        sg_catalogue_entry_3 back;
        back.read_record(in);
        point_group_table_3 point_groups;
        point_groups.lookup(entry.symbol.data);
    });
    return 0;
}
