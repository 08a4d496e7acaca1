#pragma once

#include "foundation/string_3.h"
#include "symmetry/xyz_op_3.h"

/// The rotation matrices by their two-character keys, such as `2a` or `3q`, from the data file
/// sgrots3.txt.
class rotation_catalogue_3 {
public:
    /// Reads the file. Fails when it is missing, or when a key stands in it twice.
    explicit rotation_catalogue_3(const char* path);

    /// The matrix of a key in lower case, with zero translation. Fails with
    /// " Invalid rotation matrix type".
    const xyz_op_3& find_rotation(const char* key) const;

    // Parallel lists, ascending by key.
    string_list_3 keys;
    xyz_list_3 matrices;

private:
    void load(const char* path);
    void sort_by_key(const char* path);
};

/// The table of the process, loaded at its first use.
const rotation_catalogue_3& rotation_catalogue();

/// Appends the powers of a generator: itself, its square, ... up to the identity. `field` is a type
/// letter and a key: `i` combines the rotation with the inversion, any other letter leaves it.
/// `translation` is in 1/360 of the cell edges; both are in the first axis setting and are
/// conjugated by `A`. The operators are normalised. Fails with " Invalid rotation matrix type", or
/// with " Rotation matrix failed consistency test" when 200 products don't lead back.
void generator_powers(const rotation_catalogue_3& rotations, xyz_list_3& out, const char* field,
                      const triple_3& translation, const xyz_op_3& A);
