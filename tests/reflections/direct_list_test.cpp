#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <string>

#include "reflections/direct_list_3.h"
#include "reflections/hkl_file.h"
#include "sgfile/sg_reader.h"
#include "support/expect_failure.h"
#include "support/orbits.h"
#include "support/pace.h"
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
    int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }

    // Operators of a group in other axes and from another origin.
    xyz_list_3 operators(const setting& row) {
        op_array change = unimodular();
        const int unit = std::array{360, 90, 30, 1}[static_cast<unsigned>(below(4))];
        for (unsigned i = 3; i < 12; i += 4) change[i] = unit * below(360 / unit);
        xyz_op_3 back = xyz_op_of(change);
        invert(back);
        xyz_list_3 ops;
        for (const op_array& op : row.group) {
            ops.add(xyz_op_of(product(change, product(op, array_of(back)))));
        }
        return ops;
    }

    void spoil(xyz_list_3& ops) {
        const int place = below(ops.n);
        switch (below(3)) {
            case 0:
                if (ops.n > 1) ops.remove_at(place);
                break;
            case 1:
                ops.add(ops[place]);
                break;
            default:
                ops[place].rows[below(3)][below(4)] = 1;
        }
    }

    // Leaves out a line, or all from there on, or puts another reflection there.
    std::string spoiled(const std::string& text) {
        const std::size_t start =
            text.find('\n', static_cast<std::size_t>(below(9999)) % text.size());
        const std::size_t end = std::min(text.find('\n', start + 1), text.size());
        if (start == std::string::npos) return text;
        const char* const others[] = {"", "\n\tk, h, l", "\n\t0, 0, l"};
        const std::string rest = below(4) == 0 ? "" : text.substr(end);
        return text.substr(0, start) + others[below(3)] + rest;
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

    std::mt19937 random_{7};
};

TEST(DirectList, BytesOfTheGridForRandomFiles) {
    constexpr int n_files = 2000 / pace;
    const scratch_dir dir;
    const std::vector<setting> settings = read_settings();
    random_sg random;
    int n_direct = 0;
    for (int i = 0; i < n_files; ++i) {
        const int kind = random.below(8);
        const int place = random.below(static_cast<int>(settings.size()));
        xyz_list_3 ops = random.operators(settings[static_cast<std::size_t>(place)]);
        if (kind == 0) random.spoil(ops);
        const std::string text = kind == 1 ? random.spoiled(sg_text_of(ops)) : sg_text_of(ops);
        write_file("group.sg", text);
        hkl limits{};
        for (int& limit : limits) limit = random.below(random.below(8) == 0 ? 20 : 6);
        if (kind == 2) limits = {limits[0], limits[0], limits[0]};
        SCOPED_TRACE(text + testing::PrintToString(limits));
        if (kind > 1 && is_direct(limits)) ++n_direct;
        ASSERT_EQ(outcome(limits, hkl_road_3::any), outcome(limits, hkl_road_3::grid));
    }
    // Both roads are among them.
    EXPECT_GT(n_direct, n_files / 4);
    EXPECT_LT(n_direct, n_files * 3 / 4);
}

}  // namespace
