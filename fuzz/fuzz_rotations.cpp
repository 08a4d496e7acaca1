#include "fuzzing.h"
#include "symmetry/rotation_catalogue_3.h"
#include "symmetry/sg_decoder_3.h"

// A generator of six characters, and behind it a file of rotation matrices.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 6) return 0;
    const std::string field(reinterpret_cast<const char*>(data), 6);
    write_file("rotations.txt", std::string(reinterpret_cast<const char*>(data) + 6, size - 6));
    run_cleanly([&] {
        const rotation_catalogue_3 rotations("rotations.txt");
        if (rotations.keys.n != rotations.matrices.n) __builtin_trap();
        for (int i = 0; i < rotations.keys.n; ++i) {
            const char* const key = rotations.keys[i].data;
            if (&rotations.find_rotation(key) != &rotations.matrices[i]) __builtin_trap();
        }
        triple_3 translation;
        read_translation_digits(translation, field.c_str() + 3);
        xyz_op_3 axes;
        for (int i = 0; i < 3; ++i) axes.rot(i, (i + 1) % 3) = 1;
        xyz_list_3 powers;
        generator_powers(rotations, powers, field.c_str(), translation, axes);
        if (powers.n > 201) __builtin_trap();
    });
    return 0;
}
