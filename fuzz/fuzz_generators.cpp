#include <cstdint>

#include "fuzzing.h"
#include "symmetry/generator_file.h"
#include "textout/console.h"
#include "textout/sstring_out.h"

// A generator file. Whether the product of its groups is worth the time is found out first.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    write_file("generators.txt", std::string(reinterpret_cast<const char*>(data), size));
    sstring_out console;
    push_console_stream(console);
    run_cleanly([&] {
        xyz_list_3 generators;
        read_generator_file("generators.txt", generators);
        std::int64_t product = 1;
        for (const xyz_op_3& generator : generators) {
            xyz_list_3 powers;
            cyclic_powers(powers, generator);
            const bool closes = is_identity_rotation(powers[powers.last()]);
            if (!closes && determinant(generator) != 0.0) __builtin_trap();
            product *= powers.n;
            if (product > 2000) return;
        }
        sg_decoder_3 decoder;
        run_generator_file(decoder, "generators.txt");
        if (decoder.ops.n < 1 || decoder.ops.n > product) __builtin_trap();
    });
    pop_console_stream();
    return 0;
}
