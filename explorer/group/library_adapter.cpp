#include "group/library_adapter.h"

#include <algorithm>
#include <stdexcept>

#include "catalogue/catalogue_scan_3.h"
#include "catalogue/point_group_table_3.h"
#include "foundation/except_3.h"
#include "group/embedded_data.h"
#include "group/generated_group.h"
#include "reflections/sg_sections.h"
#include "sgfile/sg_reader.h"
#include "sgfile/sg_writer.h"
#include "symmetry/centring_table.h"
#include "symmetry/rotation_catalogue_3.h"
#include "symmetry/sg_decoder_3.h"
#include "textout/sstring_out.h"

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
    const int place = lattice_place_3(letter);
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

// One operator for each rotation, since a product of d glides may hold centring copies.
void keep_representatives(std::vector<symop>& ops) {
    sort_for_reading(ops);
    const auto same_rotation = [](const symop& a, const symop& b) { return a.rot == b.rot; };
    ops.erase(std::unique(ops.begin(), ops.end(), same_rotation), ops.end());
}

const data_text_3& catalogue() {
    static const data_text_3 text(catalogue_data.data(), static_cast<int>(catalogue_data.size()));
    return text;
}

const rotation_catalogue_3& rotations() {
    static const rotation_catalogue_3 table(
        data_text_3(rotations_data.data(), static_cast<int>(rotations_data.size())));
    return table;
}

// Where the record begins that holds the first place of the catalogue at which the key could be a
// name; the end if there is none. Records begin their lines.
std::size_t first_record_with(const std::string& key, std::string_view text) {
    constexpr std::string_view before = " \t\r\n={-";
    constexpr std::string_view after = " \t\r\n={}";
    for (std::size_t at = text.find(key); at < text.size(); at = text.find(key, at + 1)) {
        const std::size_t end = at + key.size();
        if (at > 0 && before.find(text[at - 1]) == std::string_view::npos) continue;
        if (end < text.size() && after.find(text[end]) == std::string_view::npos) continue;
        do {
            at = text.rfind('\n', at - 1);
        } while (at != std::string_view::npos && (text[at + 1] < '0' || text[at + 1] > '9'));
        return at == std::string_view::npos ? 0 : at;
    }
    return text.size();
}

// As find_catalogue_entry of the library, which reads every record from the first one on.
sg_catalogue_entry_3 entry_of(const std::string& key) {
    const std::string_view text = catalogue().text();
    catalogue_scan_3 scan(text.data() + first_record_with(key, text));
    while (scan.next()) {
        if (sstring_in::range_equal(scan.name(), key.c_str()) != 0) return scan.entry();
    }
    return find_catalogue_entry(catalogue(), key.c_str());
}

library_group decode(const std::string& key) {
    const sg_catalogue_entry_3 entry = entry_of(key);
    sg_decoder_3 decoder;
    decoder.set_computer_symbol(entry.computer_symbol.data);
    decoder.decode(entry.axes.data, rotations());
    library_group result;
    for (const xyz_op_3& op : decoder.ops) result.representatives.push_back(symop_of(op));
    keep_representatives(result.representatives);
    result.centring = centring_of(decoder.computer_symbol.data[0]);
    return result;
}

library_name name_of(const sg_catalogue_entry_3& entry, std::string key) {
    return {entry.number, std::move(key), entry.symbol.data};
}

std::vector<library_name> scan_names() {
    std::vector<library_name> result;
    sg_catalogue_entry_3 entry;
    for (catalogue_scan_3 scan(catalogue().text()); scan.next();) {
        if (scan.is_main_name()) entry = scan.entry();
        result.push_back(name_of(entry, std::string(scan.name().begin, scan.name().end)));
    }
    return result;
}

std::vector<symop> read_operators(std::string_view text, int count) {
    vstring_in in(text.data(), text.data() + text.size());
    std::vector<symop> result;
    for (int i = 0; i < count; ++i) {
        xyz_op_3 op;
        in.skip_white();
        load_xyz_op_3(in, op);
        result.push_back(modulo_lattice(symop_of(op)));
        result.back().time = op.tag;
    }
    return result;
}

std::string sg_text_of(const std::string& key) {
    sg_catalogue_entry_3 entry = entry_of(key);
    point_group_table_3 point_groups;
    point_groups.lookup(entry.symbol.data);
    entry.point_group = point_groups.normalised();
    sstring_out stream;
    write_sg_banner(stream);
    entry.write_record(stream);
    sg_decoder_3 decoder;
    decoder.set_computer_symbol(entry.computer_symbol.data);
    decoder.decode(entry.axes.data, rotations());
    write_sg_sections(decoder, stream);
    return {stream.text(), static_cast<std::size_t>(stream.text_length())};
}

// Calls the library, and turns its failure into an exception.
template <class Function>
auto guarded(Function call) {
    try {
        return call();
    } catch (except_3* failure) {
        const std::string message = failure->text();
        delete failure;
        throw std::runtime_error(message);
    }
}

}  // namespace

library_group operators_of_name(const std::string& key) {
    return guarded([&] { return decode(key); });
}

std::string sg_file_text(const std::string& key) {
    return guarded([&] { return sg_text_of(key); });
}

std::optional<library_name> find_library_name(const std::string& key) {
    try {
        return name_of(entry_of(key), key);
    } catch (except_3* failure) {
        delete failure;
        return std::nullopt;
    }
}

std::vector<library_name> library_names() { return guarded(scan_names); }

std::vector<symop> operators_of_lines(std::string_view lines, int count) {
    return guarded([&] { return read_operators(lines, count); });
}

std::vector<fraction_vector> centring_of_letter(char letter) {
    return guarded([&] { return centring_of(letter); });
}

}  // namespace lomar
