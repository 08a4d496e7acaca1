#include "symmetry/rotation_catalogue_3.h"

#include <memory>

#include "foundation/except_3.h"
#include "foundation/sorted.h"
#include "textin/data_dir.h"
#include "textin/file_in.h"

namespace {

constexpr char rotation_file[] = "sgrots3.txt";

void skip_brace(sstring_in& in) {
    in.skip_white();
    in.get();
}

// The place of the first key that occurred before, or not_found.
int first_repeated(const group_record_3& keys) {
    int repeated = not_found;
    int k = 0;
    for (int count : keys.count) {
        int least = keys.index[k];
        int second = not_found;
        for (int i = 1; i < count; ++i) {
            int place = keys.index[k + i];
            if (place < least) std::swap(place, least);
            if (second == not_found || place < second) second = place;
        }
        if (second != not_found && (repeated == not_found || second < repeated)) repeated = second;
        k += count;
    }
    return repeated;
}

}  // namespace

rotation_catalogue_3::rotation_catalogue_3(const char* path) {
    {
        file_in file(path, file_in::data_file);
        load(file);
    }
    sort_by_key(path);
}

rotation_catalogue_3::rotation_catalogue_3(const data_text_3& text) {
    sstring_in in(text.text());
    load(in);
    sort_by_key(rotation_file);
}

void rotation_catalogue_3::load(sstring_in& in) {
    while (in.find_tag("rotation_matrix", 0)) {
        const char_range_3 key = in.token();
        string_3& text = keys.add();
        text.assign_range(key.begin, key.length());
        text.to_lower();
        skip_brace(in);
        xyz_op_3& matrix = matrices.add();
        for (int i = 0; i < 3; ++i) {
            for (int j = 0; j < 3; ++j) matrix.rot(i, j) = in.read_int();
        }
        skip_brace(in);
    }
}

void rotation_catalogue_3::sort_by_key(const char* path) {
    group_record_3 record;
    group(keys, record);
    const int repeated = first_repeated(record);
    if (repeated != not_found) {
        (error_builder_3() << "Rotation matrix" << keys[repeated] << "in file" << path
                           << "listed more than once")
            .fail();
    }
    apply_index(keys, record.index);
    apply_index(matrices, record.index);
}

const xyz_op_3& rotation_catalogue_3::find_rotation(const char* key) const {
    const int i = find_sorted(keys, key);
    if (i == not_found) fail_with("Invalid rotation matrix type");
    return matrices[i];
}

const rotation_catalogue_3& rotation_catalogue() {
    static string_3 failure;  // of the one attempt
    if (!failure.is_empty()) fail_with(failure.data + 1);
    try {
        static const rotation_catalogue_3 table(data_path(rotation_file).data);
        return table;
    } catch (except_3* thrown) {
        std::unique_ptr<except_3> held(thrown);
        failure = held->text();
        throw held.release();
    }
}

void generator_powers(const rotation_catalogue_3& rotations, xyz_list_3& out, const char* field,
                      const triple_3& translation, const xyz_op_3& A) {
    constexpr int most = 200;
    const char key[3] = {field[1], field[2], 0};
    xyz_op_3 generator = rotations.find_rotation(key);
    add_translation(generator, translation);
    if (field[0] == 'i') negate_rotation(generator, 3);
    conjugate(generator, A);
    normalise(generator);
    out.add(generator);
    if (!append_cycle_3(out, generator, generator, most)) {
        fail_with("Rotation matrix failed consistency test");
    }
}
