#pragma once

#include "foundation/string_3.h"
#include "symmetry/xyz_op_3.h"
#include "textin/data_text_3.h"
#include "textin/sstring_in.h"

/// The rotation matrices by their two-character keys, such as `2a` or `3q`, from the data file
/// sgrots3.txt.
class rotation_catalogue_3 {
public:
    /// Reads the file. Fails when it is missing, or when a key occurs in it twice.
    explicit rotation_catalogue_3(const char* path);

    /// The same from the text of the file.
    explicit rotation_catalogue_3(const data_text_3& text);

    /// The matrix of a key in lower case, with zero translation. Fails with
    /// " Invalid rotation matrix type".
    const xyz_op_3& find_rotation(const char* key) const;

    // Parallel lists, ascending by key.
    string_list_3 keys;
    xyz_list_3 matrices;

private:
    void load(sstring_in& in);
    void sort_by_key(const char* path);
};

/// The matrices of sgrots3.txt, which the first call reads. If that fails, all later calls fail
/// with the same message.
const rotation_catalogue_3& rotation_catalogue();

/// Appends a generator, its square and so on, each normalised; the identity is the last. The three
/// characters of `field` name its rotation: `p2a` is the matrix `2a`, and with `i` in front the
/// matrix is negated. A cell edge has 360 units of `translation`. Both refer to the catalogue's
/// axes; `A` takes them to the axes that are wanted. Fails with " Invalid rotation matrix type", or
/// with " Rotation matrix failed consistency test" if no power up to the 200th is the identity.
void generator_powers(const rotation_catalogue_3& rotations, xyz_list_3& out, const char* field,
                      const triple_3& translation, const xyz_op_3& A);
