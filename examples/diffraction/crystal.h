#pragma once

#include <cmath>

#include "foundation/except_3.h"
#include "foundation/triple_3.h"
#include "library/magnetic/magnetic_structure_factors_3.h"
#include "textin/file_in.h"

/// The lengths of a cell's edges and the cosines of its angles (bc, ac, ab).
struct cell {
    double edges[3];
    double cosines[3];

    /// The product of the unit vectors along two axes.
    double unit_product(int i, int j) const { return i == j ? 1.0 : cosines[3 - i - j]; }

    /// The squared length of a reciprocal vector, 1/d^2.
    double q_squared(const triple_3& hkl) const {
        const auto& c = cosines;
        const double volume = 1 - c[0] * c[0] - c[1] * c[1] - c[2] * c[2] + 2 * c[0] * c[1] * c[2];
        double sum = 0.0;
        for (int i = 0; i < 3; ++i) {
            const int j = (i + 1) % 3;
            const int k = (i + 2) % 3;
            const double x = hkl[i] / edges[i];
            sum += x * x * (1 - c[i] * c[i]);
            sum += 2 * x * hkl[j] / edges[j] * (c[i] * c[j] - c[k]);
        }
        return sum / volume;
    }
};

/// A form factor a exp(-b s^2) + c, where s is sin theta / lambda.
struct kind_of_atom {
    string_3 name;
    double a;
    double b;
    double c;
};

/// The lines of the text file:
///
///     cell a b c alpha beta gamma
///     kind NAME a b c
///     atom KIND x y z occupancy B
///     moment KIND x y z occupancy B mx my mz      along the axes, in Bohr magnetons
struct crystal {
    cell unit_cell = {};
    list_0_3<kind_of_atom> kinds;
    list_0_3<sf_atom_3> atoms;
    list_0_3<mag_atom_3> moments;

    explicit crystal(const char* path) {
        file_in in(path, file_in::data_file);
        for (in.skip_white(); in.at_end() == 0; in.skip_white()) {
            const char_range_3 word = in.token();
            if (sstring_in::range_equal(word, "cell") != 0) {
                read_cell(in);
            } else if (sstring_in::range_equal(word, "kind") != 0) {
                read_kind(in);
            } else if (sstring_in::range_equal(word, "atom") != 0) {
                read_atom(in, atoms.add());
            } else if (sstring_in::range_equal(word, "moment") != 0) {
                mag_atom_3& atom = moments.add();
                read_atom(in, atom);
                for (double& m : atom.moment) m = in.read_double();
            } else {
                fail_with("Unknown word in the file of atoms");
            }
        }
        for (const double edge : unit_cell.edges) {
            if (!(edge > 0)) fail_with("No cell in the file of atoms");
        }
    }

    /// The factors for a list of reflections.
    scattering_table_3 table_for(const list_0_3<triple_3>& hkls) const {
        scattering_table_3 table;
        table.form_factors.set_n(kinds.n);
        for (const triple_3& hkl : hkls) {
            const double s_squared = unit_cell.q_squared(hkl) / 4;
            table.s_squared.add(s_squared);
            for (int i = 0; i < kinds.n; ++i) {
                const kind_of_atom& kind = kinds[i];
                table.form_factors[i].add(kind.a * std::exp(-kind.b * s_squared) + kind.c);
            }
        }
        return table;
    }

private:
    void read_cell(sstring_in& in) {
        for (double& edge : unit_cell.edges) edge = in.read_double();
        for (double& c : unit_cell.cosines) c = std::cos(in.read_double() * std::acos(-1.0) / 180);
    }

    void read_kind(sstring_in& in) {
        kind_of_atom& kind = kinds.add();
        in.read_word(kind.name);
        for (double* part : {&kind.a, &kind.b, &kind.c}) *part = in.read_double();
    }

    template <typename Atom>
    void read_atom(sstring_in& in, Atom& atom) {
        const char_range_3 name = in.token();
        atom.form_factor = 0;
        while (atom.form_factor < kinds.n &&
               sstring_in::range_equal(name, kinds[atom.form_factor].name.data) == 0) {
            ++atom.form_factor;
        }
        if (atom.form_factor == kinds.n) fail_with("Unknown kind of atom");
        for (double& x : atom.position) x = in.read_double();
        atom.occupancy = in.read_double();
        atom.b_iso = in.read_double();
    }
};

/// The reflections of a .hkl file.
inline list_0_3<triple_3> reflections_of(const char* hkl_path) {
    file_in in(hkl_path, file_in::data_file);
    in.find_tag("hkls", throw_on_failure);
    in.skip_past('{');
    list_0_3<triple_3> hkls;
    while (in.more_in_block() != 0) {
        triple_3& hkl = hkls.add();
        for (int i = 0; i < 3; ++i) hkl[i] = in.read_int();
        in.read_int();  // the multiplicity
    }
    return hkls;
}
