#include "driver/sg_driver_3.h"

#include <exception>
#include <new>

#include "catalogue/point_group_table_3.h"
#include "catalogue/sg_catalogue_entry_3.h"
#include "foundation/except_3.h"
#include "reflections/hkl_file.h"
#include "reflections/sg_sections.h"
#include "reflections/similar_hkls.h"
#include "sgfile/sg_reader.h"
#include "sgfile/sg_writer.h"
#include "symmetry/generator_file.h"
#include "textout/console.h"
#include "textout/file_out.h"

namespace {

constexpr char usage[] =
    "Try lomar6 F_d_d_d [-hhh] [-hkl 10 10 10] [-dir out_put_dir]\n"
    "   Arguments in brackets are optional.\n"
    "   Ouput is placed in .sg and .hkl files.\n"
    "   A .sg file is created if it is not there.\n"
    "   -hkl creates a .hkl file.\n"
    "   Examples:\n"
    "      lomar6 F_d_d_d -hhh";

}  // namespace

void sg_driver_3::run(int argc, const char* const* argv) {
    try {
        args.set_up(argc, argv);
        if (const auto failure = failure_of([&] { run_modes(); })) report_failure(failure->text());
    } catch (const std::bad_alloc&) {
        report_failure(" Out of memory");
    } catch (const std::exception& failure) {
        console_stream() << ' ';
        report_failure(failure.what());
    }
}

void sg_driver_3::report_failure(const char* message) {
    console_stream() << message << '\n';
    touch_error_marker();
}

void sg_driver_3::run_modes() {
    if (args.count() < 2) fail_with(usage);
    if (const int i = args.find_arg("-bill"); i != not_found) {
        sg_decoder_3 generated;
        run_generator_file(generated, args.value_of(i));
        return;
    }
    names.set_symbol(args.argument(1));
    if (!names.is_valid()) fail_with("Error in space group symbol");
    const int dir = args.find_arg("-dir");
    names.set_out_dir(dir == not_found ? "" : args.value_of(dir));
    if (!names.sg_file_exists()) generate_sg(names, decoder);
    if (const int i = args.find_arg("-compare"); i != not_found) compare_groups(args.value_of(i));
    if (args.has("-hhh")) append_hhh_3(names.sg_path());
    if (const int i = args.find_arg("-hkl"); i != not_found) {
        const char* const last = args.value_of(i, 3);
        write_hkl_file_3(names.sg_path().data, names.hkl_path().data,
                         int_of_text(args.value_of(i, 1)), int_of_text(args.value_of(i, 2)),
                         int_of_text(last));
    }
}

void sg_driver_3::generate_sg(sg_file_names_3& group, sg_decoder_3& operators) {
    sg_catalogue_entry_3 entry = find_catalogue_entry(group);
    point_group_table_3 point_groups;
    point_groups.lookup(entry.symbol);
    entry.point_group = point_groups.normalised();
    file_out stream(group.sg_path());
    write_sg_banner(stream);
    entry.write_record(stream);
    operators.set_computer_symbol(entry.computer_symbol);
    operators.decode(entry.axes);
    if (args.has("-only_asym")) {
        move_identity_to_front(operators.ops);
        write_plain_xyzs(stream, operators.ops);
    } else {
        write_sg_sections(operators, stream);
    }
    stream.finish();
}

void sg_driver_3::compare_groups(const char* symbol) {
    sg_file_names_3 second_names;
    second_names.set_symbol(symbol);
    sg_decoder_3 second;
    generate_sg(second_names, second);
    if (decoder.ops.n == 0) {  // it wasn't generated in this run
        load_sg_file_xyzs_3(names.sg_path(), decoder.ops);
        normalise_xyzs_3(decoder.ops);
    }
    sort_xyzs_3(second.ops);
    sort_xyzs_3(decoder.ops);
    console_line() << (equal_xyzs_3(second.ops, decoder.ops) ? "Equal" : "NOT Equal");
}
