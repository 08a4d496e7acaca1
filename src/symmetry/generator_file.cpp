#include "symmetry/generator_file.h"

#include <cstdint>

#include "foundation/except_3.h"
#include "foundation/sorted.h"
#include "textin/file_in.h"
#include "textout/console.h"
#include "textout/sstring_out.h"

namespace {

// Moves past the word `symmetry`; false if the text has no more of them.
bool find_symmetry(sstring_in& in) {
    constexpr char_set_3 word_ends("{ \n\t");
    string_out word;
    while (in.peek_non_white() != 0) {
        word.clear();
        in.read_until(word_ends, word);
        if (text_equal(word.text(), "symmetry")) return true;
        if (in.peek() == '{') in.advance();
    }
    return false;
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// A fraction whose numerator was passed, in 1/360.
int read_fraction(vstring_in& field, char numerator, int sign) {
    if (field.get() != '/') fail_with(malformed_xyzs_3);
    const char denominator = static_cast<char>(field.get());
    if (!is_digit(denominator) || denominator == '0') fail_with(malformed_xyzs_3);
    return (numerator - '0') * sign * xyz_op_3::edge / (denominator - '0');
}

void read_row(vstring_in field, int* row) {
    while (field.peek_non_white() != 0) {
        int sign = 1;
        if (field.peek() == '+' || field.peek() == '-') {
            sign = field.get() == '-' ? -1 : 1;
            field.skip_white();
        }
        const char c = static_cast<char>(field.get());
        const int column = text_index(c, "xyz");
        if (column != not_found) {
            row[column] = sign;
        } else if (is_digit(c)) {
            row[3] = read_fraction(field, c, sign);
        } else {
            fail_with(malformed_xyzs_3);
        }
    }
}

void read_generator(sstring_in& in, xyz_op_3& op) {
    string_out field;
    for (auto& row : op.rows) {
        field.clear();
        in.read_field(field);
        read_row(vstring_in(field.text(), field.text() + field.length()), row);
        if (in.peek() != 0 && in.peek() != '}') in.advance();
    }
}

}  // namespace

void read_generator_file(const char* name, xyz_list_3& gens) {
    file_in in(name, file_in::data_file);
    if (find_symmetry(in)) {
        in.open_block();
        while (in.more_in_block()) {
            xyz_op_3 op;
            read_generator(in, op);
            gens.add(op);
        }
    }
    if (gens.n == 0) (error_builder_3() << "No generators in file" << in.file_name()).fail();
}

void cyclic_powers(xyz_list_3& list, const xyz_op_3& op) {
    constexpr int most = 13;
    xyz_op_3 generator = op;
    normalise(generator);
    list.add(generator);
    if (!append_cycle_3(list, generator, generator, most)) {
        fail_with("Identity matrix not found after 13 operations");
    }
}

namespace {

void write_ops(stream_out& out, const xyz_list_3& ops) {
    for (const xyz_op_3& op : ops) write_xyz(out, op);
}

void multiply_generator_lists(sg_decoder_3& decoder) {
    constexpr std::int64_t most_positions = 4000000;
    xyz_list_3& ops = decoder.ops;
    ops = decoder.generator_lists[0];
    for (int i = 1; i < decoder.generator_lists.n; ++i) {
        multiply_group_3(ops, decoder.generator_lists[i], most_positions,
                         "Too many equivalent positions");
    }
}

void find_powers(const xyz_list_3& ops, int_list_3& orders, string_list_3& texts) {
    orders.new_n(ops.n);
    texts.new_n(ops.n);
    xyz_list_3 powers;
    for (int i = 0; i < ops.n; ++i) {
        powers.clear();
        cyclic_powers(powers, ops[i]);
        orders[i] = powers.n;
        for (const xyz_op_3& power : powers) {
            const int place = bsearch(ops, power);
            texts[i].append(' ');
            if (place == not_found) {
                texts[i].append('*');
            } else {
                texts[i].append(place);
            }
        }
    }
}

void write_table(stream_out& out, const xyz_list_3& ops, const int_list_3& orders,
                 const string_list_3& texts) {
    constexpr int op_width = 26;  // the line feed and the tab counted
    out << "\n\t"
        << "                                  "
        << "Order  Det\n";
    for (int i = 0; i < ops.n; ++i) {
        sstring_out op;
        write_xyz(op, ops[i]);
        while (op.length() < op_width) op << ' ';
        out << op.text();
        out << format_number("   %4d   ", i);
        out << format_number("%4d", orders[i]);
        out << "  " << format_number("%4.0f", determinant(ops[i]));
        out << "  " << texts[i];
    }
}

}  // namespace

void run_generator_file(sg_decoder_3& decoder, const char* name) {
    xyz_list_3 gens;
    read_generator_file(name, gens);
    stream_out& out = console_stream();
    out << '\n' << gens.n << " Generators\n";
    write_ops(out, gens);
    decoder.generator_lists.new_n(gens.n);
    for (int i = 0; i < gens.n; ++i) {
        xyz_list_3& powers = decoder.generator_lists[i];
        cyclic_powers(powers, gens[i]);
        out << "\n\nGenerator " << i << '\n';
        write_ops(out, powers);
    }
    multiply_generator_lists(decoder);
    out << "\n\nNumber of equivalent positions before keep_unique_6 " << decoder.ops.n;
    normalise_xyzs_3(decoder.ops);
    keep_unique_6(decoder.ops);
    int_list_3 orders;
    string_list_3 texts;
    find_powers(decoder.ops, orders, texts);
    out << "\n\nEquivalent positions for asymmetric unit\nNumber of positions " << decoder.ops.n
        << "\n\n";
    write_table(out, decoder.ops, orders, texts);
}
