#include "fuzzing.h"
#include "library/magnetic/magnetic_groups.h"
#include "textout/sstring_out.h"

// The first line is a key and the letter of a lattice, the rest a file of magnetic groups.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string input(reinterpret_cast<const char*>(data), size);
    std::string key = take_line(input);
    const char letter = key.empty() ? 'p' : key.back();
    if (!key.empty()) key.pop_back();
    write_file("shubnikovgroups.txt", input);
    run_cleanly([&] {
        xyz_list_3 ops;
        string_3 name;
        load_magnetic_group_3(ops, key.c_str(), name);
        for (int i = 1; i < ops.n; ++i) {
            if (!less_than(ops[i - 1], ops[i])) __builtin_trap();
        }
        const int n = ops.n;
        add_centring_3(ops, letter);
        if (ops.n < n || ops.n > 4 * n) __builtin_trap();
        sstring_out out;
        for (const xyz_op_3& op : ops) write_moment_op(out, op, '(', nullptr, true);
    });
    return 0;
}
