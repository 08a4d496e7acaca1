// magnetic_structure_factors GROUP ATOMS SYMBOL: |F| of magnetic reflections, the part of F that is
// perpendicular to the scattering vector, for the moments of a text file (see crystal.h). GROUP is
// a BNS or OG number or symbol. The reflections are those of the .hkl file of SYMBOL, in the folder
// sg: a space group with the rotations and the lattice of GROUP but without screw axes and glide
// planes, which don't forbid magnetic reflections.

#include <cmath>
#include <cstdio>

#include "crystal.h"
#include "driver/request/sg_file_names_3.h"
#include "library/magnetic/magnetic_groups.h"
#include "library/magnetic/magnetic_names.h"

namespace {

// All operators of a magnetic group, with their signs.
xyz_list_3 operators_of(const magnetic_name_3& group) {
    xyz_list_3 ops;
    string_3 name;
    load_magnetic_group_3(ops, group.bns_number.data, name);
    add_centring_3(ops, group.lattice_letter);
    return ops;
}

double perpendicular_size(const cell& c, const triple_3& hkl, const mag_factor_3& f) {
    double size = 0.0;
    double along[2] = {0.0, 0.0};
    for (int i = 0; i < 3; ++i) {
        for (int part = 0; part < 2; ++part) {
            along[part] += f.part[2 * i + part] * hkl[i] / c.edges[i];
            for (int j = 0; j < 3; ++j) {
                size += f.part[2 * i + part] * f.part[2 * j + part] * c.unit_product(i, j);
            }
        }
    }
    const double q_squared = c.q_squared(hkl);
    if (q_squared > 0) size -= (along[0] * along[0] + along[1] * along[1]) / q_squared;
    return std::sqrt(std::fmax(size, 0.0));
}

void print_factors(const char* group, const char* atoms_path, const char* symbol) {
    const xyz_list_3 ops = operators_of(find_magnetic_group_3(group));
    sg_file_names_3 names;
    names.set_symbol(symbol);
    const list_0_3<triple_3> hkls = reflections_of(names.hkl_path().data);

    crystal sample(atoms_path);
    for (mag_atom_3& atom : sample.moments) atom.occupancy /= site_order_3(ops, atom.position);

    magnetic_structure_factors_3 sums;
    sums.set_up(ops, hkls);
    list_0_3<mag_factor_3> factors;
    sums.sum(sample.moments, sample.table_for(hkls), factors);
    for (int r = 0; r < hkls.n; ++r) {
        std::printf("%4d %4d %4d %9.4f\n", hkls[r][0], hkls[r][1], hkls[r][2],
                    perpendicular_size(sample.unit_cell, hkls[r], factors[r]));
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) return 1;
    const auto failure = failure_of([&] { print_factors(argv[1], argv[2], argv[3]); });
    if (failure == nullptr) return 0;
    std::fprintf(stderr, "Failed:%s\n", failure->text());
    return 1;
}
