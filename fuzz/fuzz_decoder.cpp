#include <filesystem>

#include "fuzzing.h"
#include "reflections/similar_hkls.h"
#include "symmetry/rotation_catalogue_3.h"
#include "symmetry/sg_decoder_3.h"
#include "textout/sstring_out.h"

// The first line is a computer-adapted symbol, the second an axis setting, the rest a file of
// rotation matrices from which the first generator of the symbol is taken once more.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
    std::filesystem::copy_file(DATA_DIR "/sgrots3.txt", "sgrots3.txt",
                               std::filesystem::copy_options::overwrite_existing);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string input(reinterpret_cast<const char*>(data), size);
    const std::string symbol = take_line(input);
    const std::string axes = take_line(input);
    sg_decoder_3 decoder;
    run_cleanly([&] {
        decoder.set_computer_symbol(symbol.c_str());
        decoder.decode(axes.c_str());
        if (decoder.ops.n > 200) return;  // no group, and only slow
        sstring_out out;
        decoder.write_xyzs(out);
        add_similar_hkls_3(decoder.ops, out);
        decoder.write_equivalence_of_xyz(out);
    });
    run_cleanly([&] {
        if (input.empty() || decoder.computer_symbol.length() < 9) return;
        write_file("rotations.txt", input);
        const rotation_catalogue_3 rotations("rotations.txt");
        triple_3 translation;
        read_translation_digits(translation, decoder.computer_symbol.data + 6);
        xyz_list_3 powers;
        generator_powers(rotations, powers, decoder.computer_symbol.data + 3, translation,
                         decoder.axis_change);
    });
    return 0;
}
