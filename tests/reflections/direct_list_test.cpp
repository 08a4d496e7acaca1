#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <string>

#include "reflections/direct_list_3.h"
#include "reflections/hkl_file.h"
#include "sgfile/sg_reader.h"
#include "support/expect_failure.h"
#include "support/orbits.h"
#include "support/scratch_dir.h"
#include "support/sg_text.h"

namespace {

// The bytes of a .hkl file, or the message of the failure.
std::string outcome(const hkl& limits, hkl_road_3 road) {
    const std::optional<std::string> message = message_of(
        [&] { write_hkl_file_3("group.sg", "group.hkl", limits[0], limits[1], limits[2], road); });
    return message ? *message : read_file("group.hkl");
}

// Whether group.sg is taken without a grid.
bool is_direct(const hkl& limits) {
    xyz_list_3 ops;
    load_sg_file_xyzs_3("group.sg", ops);
    hkl_generator_3 generator;
    generator.load("group.sg", ops);
    return direct_list_3().set_up(generator, {{limits[0], limits[1], limits[2]}});
}

TEST(DirectList, BytesOfTheGridForEverySetting) {
    const scratch_dir dir;
    for (const setting& row : read_settings()) {
        write_file("group.sg", sg_text_of(row.operators));
        for (const hkl& limits :
             {hkl{7, 7, 7}, {4, 5, 9}, {3, 0, 6}, {1, 2, 600}, {50, 1, 2}, {2, -3, 4}}) {
            SCOPED_TRACE(row.symbol + row.choice + testing::PrintToString(limits));
            ASSERT_TRUE(limits[1] < 0 || is_direct(limits));
            ASSERT_EQ(outcome(limits, hkl_road_3::any), outcome(limits, hkl_road_3::grid));
        }
    }
}

// What is passed over as sure to be present is so by the full evaluation, and nothing else is.
TEST(LinePresence, EverySetting) {
    const scratch_dir dir;
    int n_unsure = 0;
    for (const setting& row : read_settings()) {
        SCOPED_TRACE(row.symbol + row.choice);
        write_file("group.sg", sg_text_of(row.operators));
        const xyz_list_3 ops = xyz_list_of(row.operators);
        hkl_generator_3 generator;
        generator.load("group.sg", ops);
        laue_group_3 group;
        ASSERT_TRUE(group.set_up(ops, generator.classes));
        line_presence_3 presence;
        const int reach[3] = {300, 300, 300};
        presence.set_up(group, hkl_generator_3::test_positions[0], reach);
        sum_list_3 sums;
        for (const auto& [h, k] : {std::pair{1, 2}, {3, -4}, {7, 7}, {8, 0}, {0, 6}, {255, -256}}) {
            const progression_3 members = whole_phases_3(group.lattice, h, k, group.period[2]);
            if (members.is_empty()) continue;
            presence.begin_line(h, k, members);
            int unsure = presence.first_unsure(members.from(-300), 300);
            for (int l = members.from(-300); l <= 300; l += members.step) {
                const bool passed = l < unsure;
                if (!passed) unsure = presence.first_unsure(l + members.step, 300);
                if (!passed) ++n_unsure;
                ASSERT_LE(passed, presence.is_sure(l)) << h << ' ' << k << ' ' << l;
                if (!passed || l % 5 != 0) continue;
                ASSERT_EQ(generator.absence_value(h, k, l, sums), 1.0) << h << ' ' << k << ' ' << l;
            }
        }
    }
    EXPECT_GT(n_unsure, 1000);
    EXPECT_LT(n_unsure, 100000);
}

// At h = 25000 the cosine of 2 pi h x is 0 at both test positions, at 5000 at the first one. So the
// test finds h 0 0 with h = 25000 absent where the structure factor is a product with that cosine.
TEST(DirectList, AbsentByAccident) {
    const struct {
        const char* symbol;
        hkl limits;
        const char* missing;
    } rows[] = {{"P -1", {25010, 0, 0}, "\n 25000    0    0"},
                {"P m m m", {25010, 1, 1}, "\n 25000    1    0"},
                {"I b a m", {25010, 1, 1}, "\n 25000    0    0"},
                {"P -1", {0, 0, 25010}, "\n    0    0    0"}};
    const scratch_dir dir;
    for (const auto& row : rows) {
        write_file("group.sg", sg_text_of(operators_of(row.symbol)));
        ASSERT_TRUE(is_direct(row.limits));
        const std::string text = outcome(row.limits, hkl_road_3::any);
        EXPECT_EQ(text, outcome(row.limits, hkl_road_3::grid)) << row.symbol;
        EXPECT_EQ(text.find(row.missing), std::string::npos) << row.symbol;
        EXPECT_NE(text.find("\n 5000    0    0"), row.limits[0] == 0 ? 0 : std::string::npos);
    }
}

// .sg files that are right, or nearly so, in axes that no setting has.
class random_sg {
public:
    explicit random_sg(unsigned seed) : random_(seed) {}

    int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

    // Operators of a group in other axes and from another origin.
    std::vector<op_array> operators(const setting& row) {
        const op_array axes = unimodular();
        const op_array back = inverse(axes);
        op_array shift = op_of("x,y,z");
        const int unit = std::array{360, 90, 30, 1}[static_cast<unsigned>(below(4))];
        for (unsigned i = 3; i < 12; i += 4) shift[i] = unit * below(360 / unit);
        op_array unshift = op_of("x,y,z");
        for (unsigned i = 3; i < 12; i += 4) unshift[i] = 360 - shift[i];
        std::vector<op_array> ops;
        for (const op_array& op : row.group) {
            const op_array moved = product(shift, product(op, unshift));
            ops.push_back(product(axes, product(moved, back)));
        }
        return ops;
    }

    void spoil_operators(std::vector<op_array>& ops) {
        const auto place = static_cast<std::size_t>(below(static_cast<int>(ops.size())));
        switch (below(3)) {
            case 0:
                if (ops.size() > 1) ops.erase(ops.begin() + static_cast<std::ptrdiff_t>(place));
                break;
            case 1:
                ops.push_back(ops[place]);
                break;
            default:
                ops[place][static_cast<std::size_t>(4 * below(3) + below(4))] = 1;
        }
    }

    // The class lists of the operators: those of the program, or those by the definition.
    std::vector<std::set<op_array>> classes(const std::vector<op_array>& ops) {
        std::vector<std::set<op_array>> lists(7);
        for (unsigned c = 0; c < 7; ++c) {
            const char* const name = hkl_class_names_3()[static_cast<int>(c)].data;
            for (const op_array& op : ops) {
                op_array reflection{};
                for (unsigned i = 0; i < 9; ++i) {
                    if (name[i % 3] != '0') reflection[i / 3 * 4 + i % 3] = op[i % 3 * 4 + i / 3];
                }
                op_array mate = reflection;
                for (int& value : mate) value = -value;
                if (!lists[c].contains(mate)) lists[c].insert(reflection);
            }
        }
        return lists;
    }

    void spoil_classes(std::vector<std::set<op_array>>& lists) {
        std::set<op_array>& list = lists[static_cast<std::size_t>(below(7))];
        switch (below(4)) {
            case 0:
                list.erase(list.begin());
                break;
            case 1:
                list.clear();
                break;
            case 2:
                list.insert(op_of("k,h,l"));
                break;
            default:
                lists.resize(static_cast<std::size_t>(below(7)));
        }
    }

private:
    op_array unimodular() {
        op_array axes = op_of("x,y,z");
        for (int n = below(3); n > 0; --n) {
            op_array step = op_of("x,y,z");
            const int i = below(3);
            step[static_cast<std::size_t>(4 * i + (i + 1 + below(2)) % 3)] = below(2) * 2 - 1;
            axes = product(axes, step);
        }
        if (below(2) != 0) axes = product(op_of("z,x,y"), axes);
        return axes;
    }

    static op_array inverse(const op_array& axes) {
        xyz_op_3 op = xyz_op_of(axes);
        invert(op);
        return array_of(op);
    }

    std::mt19937 random_;
};

void write_row(std::string& text, const int* row, const char* letters, int n_columns) {
    bool empty = true;
    for (int c = 0; c < 3; ++c) {
        for (int n = std::abs(row[c]); n > 0; --n) {
            text += row[c] < 0 ? "-" : "+";
            text += letters[c];
            empty = false;
        }
    }
    if (n_columns == 4 && row[3] % 360 != 0) text += '+' + std::to_string(row[3]) + "/360";
    if (empty) text += n_columns == 4 ? "+0/1" : "0";
}

std::string block_of(const char* name, const auto& ops, const char* letters, int n_columns) {
    std::string text = std::string("\n") + name + "\n{";
    for (const op_array& op : ops) {
        for (unsigned i = 0; i < 3; ++i) {
            text += i == 0 ? "\n\t" : ", ";
            write_row(text, &op[4 * i], letters, n_columns);
        }
    }
    return text + "\n}";
}

TEST(DirectList, BytesOfTheGridForRandomFiles) {
#if defined(__SANITIZE_ADDRESS__)
    constexpr int n_files = 200;
#else
    constexpr int n_files = 2000;
#endif
    const scratch_dir dir;
    const std::vector<setting> settings = read_settings();
    random_sg random(7);
    int n_direct = 0;
    for (int i = 0; i < n_files; ++i) {
        const int kind = random.below(8);
        const auto place =
            static_cast<std::size_t>(random.below(static_cast<int>(settings.size())));
        std::vector<op_array> ops = random.operators(settings[place]);
        if (kind == 0) random.spoil_operators(ops);
        std::vector<std::set<op_array>> classes = random.classes(ops);
        if (kind == 1) random.spoil_classes(classes);
        std::string text = block_of("xyzs", ops, "xyz", 4);
        for (unsigned c = 0; c < classes.size(); ++c) {
            text += block_of(hkl_class_names_3()[static_cast<int>(c)].data, classes[c], "hkl", 3);
        }
        write_file("group.sg", text);
        hkl limits{};
        for (int& limit : limits) limit = random.below(random.below(8) == 0 ? 20 : 6);
        if (kind == 2) limits = {limits[0], limits[0], limits[0]};
        SCOPED_TRACE(text + testing::PrintToString(limits));
        if (classes.size() == 7 && is_direct(limits)) ++n_direct;
        ASSERT_EQ(outcome(limits, hkl_road_3::any), outcome(limits, hkl_road_3::grid));
    }
    // Both roads are among them.
    EXPECT_GT(n_direct, n_files / 4);
    EXPECT_LT(n_direct, n_files * 3 / 4);
}

}  // namespace
