#include "group/library_adapter.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>

#include "catalogue/sg_catalogue_entry_3.h"
#include "driver/request/sg_file_names_3.h"
#include "foundation/except_3.h"
#include "symmetry/centring_table.h"
#include "symmetry/sg_decoder_3.h"
#include "textin/data_dir.h"

namespace lomar {

namespace {

symop symop_of(const xyz_op_3& op) {
    symop result;
    for (int i = 0; i < 3; ++i) {
        const auto row = static_cast<std::size_t>(i);
        for (int j = 0; j < 3; ++j) result.rot[row][static_cast<std::size_t>(j)] = op.rot(i, j);
        result.trans[row] = fraction(op.trans(i), xyz_op_3::edge);
    }
    return result;
}

std::vector<fraction_vector> centring_of(char letter) {
    std::vector<fraction_vector> result;
    const int place = text_index(letter, lattice_letters_3);
    for (int row = centring_index_3(place, 0); row <= centring_index_3(place, 1); ++row) {
        fraction_vector vector;
        for (int i = 0; i < 3; ++i) {
            vector[static_cast<std::size_t>(i)] =
                fraction(centring_vector_3(row)[i], xyz_op_3::edge);
        }
        result.push_back(vector);
    }
    return result;
}

// The order for reading: proper rotations first, and low orders, so that the identity leads; -1
// leads the improper ones.
auto reading_order(const int_matrix& rot) {
    const bool improper = determinant(rot) < 0;
    const int order = rotation_order(improper ? negated(rot) : rot);
    return std::tuple(improper, order, negated(rot));
}

// One operator for each rotation, since a product of d glides may hold centring copies.
void keep_representatives(std::vector<symop>& ops) {
    std::sort(ops.begin(), ops.end(), [](const symop& a, const symop& b) {
        return std::tuple(reading_order(a.rot), a.trans) <
               std::tuple(reading_order(b.rot), b.trans);
    });
    const auto same_rotation = [](const symop& a, const symop& b) { return a.rot == b.rot; };
    ops.erase(std::unique(ops.begin(), ops.end(), same_rotation), ops.end());
}

library_group decode(const std::string& name) {
    data_dir() = LOMAR_DATA_DIR;
    sg_file_names_3 names;
    names.set_symbol(name.c_str());
    const sg_catalogue_entry_3 entry = find_catalogue_entry(names);
    sg_decoder_3 decoder;
    decoder.set_computer_symbol(entry.computer_symbol.data);
    decoder.decode(entry.axes.data);
    library_group result;
    for (const xyz_op_3& op : decoder.ops) result.representatives.push_back(symop_of(op));
    keep_representatives(result.representatives);
    result.centring = centring_of(decoder.computer_symbol.data[0]);
    return result;
}

}  // namespace

library_group operators_of_name(const std::string& name) {
    try {
        return decode(name);
    } catch (except_3* failure) {
        const std::string message = failure->text();
        delete failure;
        throw std::runtime_error(message);
    }
}

}  // namespace lomar
