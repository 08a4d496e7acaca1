#pragma once

#include "foundation/string_3.h"
#include "symmetry/xyz_op_3.h"

/// The letters of the crystal systems: anorthic (triclinic), monoclinic, orthorhombic, tetragonal,
/// trigonal, hexagonal, cubic. The place of a letter in this text is its number.
inline constexpr char crystal_system_letters_3[] = "amotrhc";

class rotation_catalogue_3;

/// Makes the operators of a group out of its computer-adapted symbol.
///
/// The symbol, such as `cmci1a000p2b006`, has a head of three characters: the lattice letter, the
/// letter of the crystal system, and one that nothing reads. Then come generators of six
/// characters: three that name a rotation (see generator_powers), and three digits of translation.
/// A digit d means d/12 of a cell edge, but 5 means 10/12. Each generator gives a cyclic
/// group; multiplied together these are the group, but for its centring.
///
/// A decoder is used for one symbol.
class sg_decoder_3 {
public:
    /// Says which group it is. Upper case is as good as lower case.
    void set_computer_symbol(const char* text);
    void set_computer_symbol(const string_3& text) { set_computer_symbol(text.data); }

    /// Works out `ops`: normalised, sorted, none twice, and without the centring copies. `axes`
    /// names the old axis for each new one, and has an `m` where the two point in opposite
    /// directions: `abc` changes nothing, `cab` and `bamc` do. Fails with " cab error",
    /// " Length of computer adapted space group symbol invalid", " Bad lattice_type",
    /// " Bad crystal_system" and the failures of generator_powers.
    void decode(const char* axes);
    void decode(const string_3& axes) { decode(axes.data); }

    /// The same with the matrices of a catalogue in memory.
    void decode(const string_3& axes, const rotation_catalogue_3& rotations);

    /// Writes the xyzs section of a .sg file with the centred operators, and adds those to the
    /// list, which is sorted afterwards.
    void write_xyzs(stream_out& stream);

    /// Writes the equivalence_of_xyz section for a sorted list, and notes the permutations that
    /// map the group onto itself.
    void write_equivalence_of_xyz(stream_out& stream);

    string_3 computer_symbol;
    xyz_list_3 ops;                        ///< the operators of the group
    list_0_3<xyz_list_3> generator_lists;  ///< for each generator, its powers
    xyz_op_3 axis_change;                  ///< what `axes` did, as a matrix
    list_0_3<triple_3> xyz_permutations;

private:
    void start(const char* axes);
    void finish(const rotation_catalogue_3& rotations);
    void read_axes(const char* axes);
    int count_generators() const;
    void multiply_lists();
};

/// Turns three digits of a generator into its translation, whose units are 1/360. A character of
/// another kind is taken for a 0.
void read_translation_digits(triple_3& vector, const char* text);
