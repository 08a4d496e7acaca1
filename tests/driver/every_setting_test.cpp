#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "driver/sg_driver_3.h"
#include "library/groups/space_group_3.h"
#include "reflections/hkl_classes.h"
#include "sgfile/sg_reader.h"
#include "support/expect_failure.h"
#include "support/operators.h"
#include "support/scratch_dir.h"
#include "textin/file_in.h"

// The .sg file of every setting of the shipped catalogue, held against the table of settings and
// against definitions.

namespace {

// The coefficient c of row r.
int entry(const op_array& op, unsigned r, unsigned c) { return op[4 * r + c]; }

void check_record(const sg_catalogue_entry_3& record, const setting& row) {
    EXPECT_EQ(record.number, row.number);
    const std::string symbol = record.symbol.data;
    std::string point_group = row.point_group;
    // The symbol says whether the 2-fold axes lie along a or between the axes.
    const bool along_a = std::any_of(row.group.begin(), row.group.end(), [](const op_array& op) {
        return op[0] == 1 && op[4] == 0 && op[5] == -1 && op[10] == -1;
    });
    if (point_group == "-42m" && !along_a) point_group = "-4m2";
    if (point_group == "-62m" && !along_a) point_group = "-6m2";
    // The rewriting of these two symbols ends elsewhere.
    if (symbol == "p32") point_group = "32";
    if (symbol == "p6222") point_group = "6";
    EXPECT_EQ(record.point_group.data, point_group);
    std::string unique_axis;  // the diagonal of its operators differs there
    for (const op_array& op : row.group) {
        for (unsigned i = 0; i < 3 && row.number >= 3 && row.number <= 15; ++i) {
            const int next = entry(op, (i + 1) % 3, (i + 1) % 3);
            const bool differs = entry(op, i, i) != next;
            if (differs && entry(op, (i + 2) % 3, (i + 2) % 3) == next) unique_axis = "xyz"[i];
        }
    }
    EXPECT_EQ(record.unique_axis.data, unique_axis);
    EXPECT_STREQ(record.rhombohedral_hexagonal.data, row.choice == "R" ? "r" : "");
}

void check_xyzs(const std::vector<op_array>& ops, std::string text,
                const std::set<op_array>& group) {
    EXPECT_EQ(ops.size(), group.size());
    EXPECT_EQ(std::set<op_array>(ops.begin(), ops.end()), group);
    // Up to the first remark on centring they ascend, but that the identity has changed places with
    // the first.
    text.resize(std::min(text.find("\n\t' +"), text.find("\n} ")));
    text.erase(0, text.find("xyzs\n{\n"));
    const auto plain = std::count(text.begin(), text.end(), '\n') - 1;
    const std::vector<op_array> first(ops.begin(), ops.begin() + plain);
    std::vector<op_array> sorted = first;
    std::sort(sorted.begin(), sorted.end());
    std::iter_swap(sorted.begin(), std::find(sorted.begin(), sorted.end(), op_of("x,y,z")));
    EXPECT_EQ(first, sorted);
}

op_array negative(op_array op) {
    for (int& value : op) value = -value;
    return op;
}

op_array transposed(const op_array& op) {
    op_array result{};
    for (unsigned i = 0; i < 9; ++i) result[i / 3 * 4 + i % 3] = entry(op, i % 3, i / 3);
    return result;
}

// Every rotation of the group, transposed and without the indices that the class sets to zero, must
// be in the list, or else its negative must: one of the two, and nothing but these.
void check_class(const std::string& name, const std::vector<op_array>& listed,
                 const std::set<op_array>& group) {
    SCOPED_TRACE(name);
    std::set<op_array> all;
    for (const op_array& op : group) {
        op_array reflection = transposed(op);
        for (unsigned i = 0; i < 9; ++i) {
            if (name[i % 3] == '0') reflection[i / 3 * 4 + i % 3] = 0;
        }
        all.insert(reflection);
        all.insert(negative(reflection));
    }
    EXPECT_EQ(2 * listed.size(), all.size());
    std::set<op_array> with_mates(listed.begin(), listed.end());
    for (const op_array& op : listed) with_mates.insert(negative(op));
    EXPECT_EQ(with_mates, all);
    const auto before = [](const auto& a, const auto& c) { return transposed(a) < transposed(c); };
    if (name == "hkl") {
        EXPECT_EQ(listed.at(0), op_of("h,k,l"));
    } else {
        EXPECT_TRUE(std::is_sorted(listed.begin(), listed.end(), before));
    }
}

void check_equivalence(sstring_in& in, const std::set<op_array>& group) {
    std::string expected;
    for (const char* permutation : {"xyz", "xzy", "yxz", "yzx", "zxy", "zyx"}) {
        std::set<op_array> permuted;
        for (const op_array& op : group) {
            op_array result = op;
            for (unsigned i = 0; i < 9; ++i) {
                const auto from = static_cast<unsigned>(permutation[i % 3] - 'x');
                result[i / 3 * 4 + i % 3] = entry(op, i / 3, from);
            }
            permuted.insert(result);
        }
        if (permuted == group) expected = expected + "\n\t" + permutation;
    }
    EXPECT_EQ(in.find_tag("equivalence_of_xyz", 0), 1);
    EXPECT_EQ(in.current(), "\n{" + expected + "\n}");
}

// The record and the operators are what the program's own readers make of the file.
void check_sg_file(const char* path, const std::string& symbol, const setting& row) {
    file_in in(path, file_in::data_file);
    sg_catalogue_entry_3 record;
    record.read_record(in);
    EXPECT_EQ(record.symbol.data, symbol);
    check_record(record, row);
    xyz_list_3 ops;
    load_xyzs_3(in, ops);
    normalise_xyzs_3(ops);
    check_xyzs(arrays_of(ops), read_file(path), row.group);
    class_lists_3 classes;
    load_hkl_classes_3(in, classes);
    for (int i = 0; i < n_hkl_classes_3; ++i) {
        check_class(hkl_class_names_3()[i].data, arrays_of(classes[i]), row.group);
    }
    check_equivalence(in, row.group);
}

// Each typed name leads to its setting, and the first one of a setting makes the file.
TEST(EverySetting, FoundAndGenerated) {
    const scratch_dir dir;
    std::filesystem::current_path(DATA_DIR);
    const std::vector<setting> settings = read_settings();
    const space_groups_3 groups;
    std::ifstream file(TEST_DATA_DIR "/names.tsv");
    std::string line;
    std::getline(file, line);
    int n = 0;
    std::set<std::string> generated;
    while (std::getline(file, line)) {
        const std::vector<std::string> fields = split(line, '\t');
        SCOPED_TRACE(fields[0]);
        const setting& row = settings.at(std::stoul(fields[2]) - 1);
        sg_file_names_3 names;
        names.set_symbol(fields[0].c_str());
        names.set_out_dir(dir.path().string().c_str());
        const space_group_3 group = groups.find(fields[0].c_str());
        EXPECT_EQ(group.entry.number, std::stoi(fields[1]));
        const std::vector<op_array> ops = arrays_of(group.ops);
        EXPECT_EQ(std::set<op_array>(ops.begin(), ops.end()), row.group);
        EXPECT_EQ(ops.size(), row.group.size());
        if (generated.insert(group.entry.symbol.data).second) {
            sg_decoder_3 decoder;
            ASSERT_EQ(message_of([&] { sg_driver_3().generate_sg(names, decoder); }), std::nullopt);
            check_sg_file(names.sg_path().data, group.entry.symbol.data, row);
            EXPECT_EQ(arrays_of(decoder.ops), ops);
        }
        ++n;
    }
    EXPECT_GT(n, 5000);
    EXPECT_EQ(generated.size(), 557U);
}

}  // namespace
