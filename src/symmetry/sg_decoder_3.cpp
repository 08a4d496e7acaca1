#include "symmetry/sg_decoder_3.h"

#include <cstdint>

#include "foundation/except_3.h"
#include "symmetry/centring_table.h"
#include "symmetry/rotation_catalogue_3.h"

namespace {

constexpr int head_size = 3;
constexpr int field_size = 6;
constexpr int rotation_size = 3;

// No group has as many operators. A product that grows beyond the first number is thinned out on
// the way; one that grows beyond the second isn't that of a group.
constexpr std::int64_t many_products = 20000;
constexpr std::int64_t most_products = 1000000;

}  // namespace

void sg_decoder_3::set_computer_symbol(const char* text) {
    computer_symbol = text;
    computer_symbol.to_lower();
}

void read_translation_digits(triple_3& vector, const char* text) {
    for (int i = 0; i < 3; ++i) {
        const int digit = text[i] >= '0' && text[i] <= '9' ? text[i] - '0' : 0;
        vector[i] = xyz_op_3::edge / 12 * (digit == 5 ? 10 : digit);
    }
}

void sg_decoder_3::read_axes(const char* axes) {
    axis_change = xyz_op_3();
    for (int row = 0; row < 3; ++row) {
        const int sign = *axes == 'm' ? -1 : 1;
        if (sign < 0) ++axes;
        const int column = text_index(*axes, "abc");
        if (column == not_found) fail_with("cab error");
        axis_change.rot(row, column) = sign;
        ++axes;
    }
    if (*axes != 0 || determinant(axis_change) == 0) fail_with("cab error");
}

int sg_decoder_3::count_generators() const {
    const int rest = computer_symbol.length() - head_size - field_size;
    if (rest < 0 || rest % field_size != 0) {
        fail_with("Length of computer adapted space group symbol invalid");
    }
    if (text_index(computer_symbol.data[0], lattice_letters_3) == not_found) {
        fail_with("Bad lattice_type");
    }
    if (text_index(computer_symbol.data[1], crystal_system_letters_3) == not_found) {
        fail_with("Bad crystal_system");
    }
    return rest / field_size + 1;
}

// What there is to find fault with before the rotations are needed.
void sg_decoder_3::start(const char* axes) {
    read_axes(axes);
    generator_lists.new_n(count_generators());
}

void sg_decoder_3::finish(const rotation_catalogue_3& rotations) {
    for (int i = 0; i < generator_lists.n; ++i) {
        const char* const field = computer_symbol.data + head_size + field_size * i;
        triple_3 translation;
        read_translation_digits(translation, field + rotation_size);
        generator_powers(rotations, generator_lists[i], field, translation, axis_change);
    }
    multiply_lists();
}

void sg_decoder_3::decode(const char* axes) {
    start(axes);
    finish(rotation_catalogue());
}

void sg_decoder_3::decode(const string_3& axes, const rotation_catalogue_3& rotations) {
    start(axes.data);
    finish(rotations);
}

void sg_decoder_3::multiply_lists() {
    ops = generator_lists[generator_lists.last()];
    for (int i = generator_lists.last() - 1; i >= 0; --i) {
        const xyz_list_3& powers = generator_lists[i];
        if (std::int64_t{powers.n} * ops.n > many_products) {
            normalise_xyzs_3(ops);
            keep_unique_6(ops);
        }
        multiply_group_3(ops, powers, most_products, "Rotation matrix failed consistency test");
    }
    normalise_xyzs_3(ops);
    keep_unique_6(ops);
}
