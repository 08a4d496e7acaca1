#include "analysis/conditions.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <set>

#include "explorer/analysis/table_file.h"

namespace {

using namespace lomar;

// An operator with its translation in parts of `unit`.
struct whole_op {
    int_matrix rot;
    int_vector trans;
};

constexpr int unit = 7 * 5 * 144;

std::vector<whole_op> whole_ops(const std::vector<symop>& operators) {
    std::vector<whole_op> result;
    for (const symop& op : operators) {
        whole_op whole{op.rot, {}};
        for (std::size_t i = 0; i < 3; ++i) {
            const fraction part = op.trans[i] * fraction(unit);
            EXPECT_TRUE(part.is_integer());
            whole.trans[i] = static_cast<int>(part.num());
        }
        result.push_back(whole);
    }
    return result;
}

// Two equivalent terms of the structure factor with opposite phases, or more of them, cancel.
bool absent_by_phase(const std::vector<whole_op>& operators, const int_vector& h) {
    for (const auto& [rot, trans] : operators) {
        bool same = true;
        for (std::size_t j = 0; j < 3; ++j) {
            same = same && h[0] * rot[0][j] + h[1] * rot[1][j] + h[2] * rot[2][j] == h[j];
        }
        if (same && (h[0] * trans[0] + h[1] * trans[1] + h[2] * trans[2]) % unit != 0) return true;
    }
    return false;
}

void expect_phases_met(const space_group& group, int limit) {
    const std::vector<reflection_condition> conditions = conditions_of(group);
    for (const reflection_condition& condition : conditions) {
        EXPECT_GT(condition.modulus, 1) << condition.text;
        EXPECT_FALSE(condition.causes.empty()) << condition.text;
        EXPECT_TRUE(condition.text.starts_with(condition.reflection_class + ": "));
        // A left inverse of whole numbers proves the pattern to be primitive.
        const int_matrix product = condition.parameters * condition.pattern;
        const int n = trace(product);
        EXPECT_EQ(product, (int_matrix{{{n > 0, 0, 0}, {0, n > 1, 0}, {0, 0, n > 2}}}));
    }
    const std::vector<whole_op> operators = whole_ops(group.operators);
    for (int h = 0; h <= limit; ++h) {
        for (int k = -limit; k <= limit; ++k) {
            for (int l = -limit; l <= limit; ++l) {
                const bool broken =
                    std::any_of(conditions.begin(), conditions.end(), [&](const auto& each) {
                        return each.broken_by({h, k, l});
                    });
                ASSERT_EQ(broken, absent_by_phase(operators, {h, k, l}))
                    << h << ' ' << k << ' ' << l;
            }
        }
    }
}

TEST(Conditions, SayWhatPhasesSayInEverySetting) {
    for (const setting& row : settings()) {
        SCOPED_TRACE(row.name());
        expect_phases_met(group_of(row), 8);
    }
}

TEST(Conditions, SayWhatPhasesSayInOddAxes) {
    for (const char* basis :
         {"a+2b,b-3c,c", "3a+2b,a+b,c-7b", "b,c-5a,a", "-5a-4b-5c,-5a-2b+4c,4a+3b+3c"}) {
        for (const char* name : {"P 6/m c c", "P a -3", "P n -3 m:2", "P 42/n c m:1", "R -3 c:R"}) {
            SCOPED_TRACE(std::string(name) + " in " + basis);
            const basis_change change = {parse_basis(basis), parse_point("1/5 2/7 0")};
            space_group group = group_of(*find_setting(name));
            ASSERT_EQ(determinant(change.matrix), fraction(1));
            for (symop& op : group.operators) op = transformed(op, change);
            group.tabulated = false;
            expect_phases_met(group, 12);
        }
    }
}

// Printed in International Tables A, one of equivalent classes where the lattice has such; and how
// many there are with these.
TEST(Conditions, AsPrinted) {
    const struct {
        const char* name;
        std::size_t n_conditions;
        std::vector<std::string> printed;
    } groups[] = {
        {"P -1", 0, {}},
        {"P 1 21 1", 1, {"0k0: k = 2n"}},
        {"P 1 21/c 1", 3, {"h0l: l = 2n", "0k0: k = 2n", "00l: l = 2n"}},
        {"P 1 21/n 1", 4, {"h0l: h+l = 2n", "0k0: k = 2n", "h00: h = 2n", "00l: l = 2n"}},
        {"C 1 2/c 1",
         8,
         {"hkl: h+k = 2n", "h0l: h = 2n", "h0l: l = 2n", "0kl: k = 2n", "hk0: h+k = 2n",
          "0k0: k = 2n", "h00: h = 2n", "00l: l = 2n"}},
        {"I 1 2/a 1",
         8,
         {"hkl: h+k+l = 2n", "h0l: h = 2n", "h0l: l = 2n", "0kl: k+l = 2n", "hk0: h+k = 2n",
          "0k0: k = 2n", "h00: h = 2n", "00l: l = 2n"}},
        {"P 21 21 21", 3, {"h00: h = 2n", "0k0: k = 2n", "00l: l = 2n"}},
        {"P n a 21",
         5,
         {"0kl: k+l = 2n", "h0l: h = 2n", "h00: h = 2n", "0k0: k = 2n", "00l: l = 2n"}},
        {"P n m a",
         5,
         {"0kl: k+l = 2n", "hk0: h = 2n", "h00: h = 2n", "0k0: k = 2n", "00l: l = 2n"}},
        {"P b c a",
         6,
         {"0kl: k = 2n", "h0l: l = 2n", "hk0: h = 2n", "h00: h = 2n", "0k0: k = 2n",
          "00l: l = 2n"}},
        {"P b n m",
         5,
         {"0kl: k = 2n", "h0l: h+l = 2n", "h00: h = 2n", "0k0: k = 2n", "00l: l = 2n"}},
        {"C m c m",
         8,
         {"hkl: h+k = 2n", "0kl: k = 2n", "h0l: h = 2n", "h0l: l = 2n", "hk0: h+k = 2n",
          "h00: h = 2n", "0k0: k = 2n", "00l: l = 2n"}},
        {"F d d 2",
         14,
         {"hkl: h+k = 2n", "hkl: h+l = 2n", "hkl: k+l = 2n", "0kl: k+l = 4n", "0kl: k = 2n",
          "0kl: l = 2n", "h0l: h+l = 4n", "h0l: h = 2n", "h0l: l = 2n", "hk0: h = 2n",
          "hk0: k = 2n", "h00: h = 4n", "0k0: k = 4n", "00l: l = 4n"}},
        {"I b c a",
         10,
         {"hkl: h+k+l = 2n", "0kl: k = 2n", "0kl: l = 2n", "h0l: h = 2n", "h0l: l = 2n",
          "hk0: h = 2n", "hk0: k = 2n", "h00: h = 2n", "0k0: k = 2n", "00l: l = 2n"}},
        {"P 41", 1, {"00l: l = 4n"}},
        {"P 42", 1, {"00l: l = 2n"}},
        {"P 4/n:1", 3, {"hk0: h+k = 2n", "h00: h = 2n"}},
        {"I 41/a:2",
         12,
         {"hkl: h+k+l = 2n", "hk0: h = 2n", "hk0: k = 2n", "0kl: k+l = 2n", "hhl: l = 2n",
          "00l: l = 4n", "h00: h = 2n", "h-h0: h = 2n"}},
        {"P 41 21 2", 3, {"00l: l = 4n", "h00: h = 2n"}},
        {"P 42/m n m", 5, {"0kl: k+l = 2n", "00l: l = 2n", "h00: h = 2n"}},
        {"I 41/a m d:2",
         12,
         {"hkl: h+k+l = 2n", "hk0: h = 2n", "hk0: k = 2n", "0kl: k+l = 2n", "hhl: 2h+l = 4n",
          "00l: l = 4n", "h00: h = 2n", "h-h0: h = 2n"}},
        {"P 31", 1, {"000l: l = 3n"}},
        {"R 3:R", 0, {}},
        {"R 3:H",
         12,
         {"hkil: -h+k+l = 3n", "hki0: -h+k = 3n", "hh-2hl: l = 3n", "h-h0l: h+l = 3n",
          "000l: l = 3n", "h-h00: h = 3n"}},
        {"R -3 c:R", 4, {"hhl: l = 2n", "hhh: h = 2n"}},
        {"R -3 c:H",
         15,
         {"hkil: -h+k+l = 3n", "hki0: -h+k = 3n", "hh-2hl: l = 3n", "h-h0l: h+l = 3n",
          "h-h0l: l = 2n", "000l: l = 6n", "h-h00: h = 3n"}},
        {"P 3 1 c", 4, {"hh-2hl: l = 2n", "000l: l = 2n"}},
        {"P -3 c 1", 4, {"h-h0l: l = 2n", "000l: l = 2n"}},
        {"P 61", 1, {"000l: l = 6n"}},
        {"P 62", 1, {"000l: l = 3n"}},
        {"P 63/m c m", 4, {"h-h0l: l = 2n", "000l: l = 2n"}},
        {"P 21 3", 3, {"h00: h = 2n"}},
        {"P a -3", 6, {"0kl: k = 2n", "h00: h = 2n"}},
        {"P 41 3 2", 3, {"h00: h = 4n"}},
        {"P n -3 n:2", 12, {"0kl: k+l = 2n", "hhl: l = 2n", "h00: h = 2n"}},
        {"F m -3 m",
         18,
         {"hkl: h+k = 2n", "hkl: h+l = 2n", "hkl: k+l = 2n", "0kl: k = 2n", "0kl: l = 2n",
          "hhl: h+l = 2n", "h00: h = 2n"}},
        {"F d -3 m:2",
         21,
         {"hkl: h+k = 2n", "hkl: h+l = 2n", "hkl: k+l = 2n", "0kl: k+l = 4n", "0kl: k = 2n",
          "0kl: l = 2n", "hhl: h+l = 2n", "h00: h = 4n"}},
        {"I a -3 d",
         16,
         {"hkl: h+k+l = 2n", "0kl: k = 2n", "0kl: l = 2n", "hhl: 2h+l = 4n", "h00: h = 4n"}},
        {"I -4 3 d", 13, {"hkl: h+k+l = 2n", "0kl: k+l = 2n", "hhl: 2h+l = 4n", "h00: h = 4n"}},
    };
    for (const auto& [name, n_conditions, printed] : groups) {
        SCOPED_TRACE(name);
        std::vector<std::string> texts;
        for (const auto& condition : conditions_of(group_of(*find_setting(name))))
            texts.push_back(condition.text);
        EXPECT_EQ(texts.size(), n_conditions);
        // In the order of print, too.
        auto place = texts.begin();
        for (const std::string& text : printed) {
            place = std::find(place, texts.end(), text);
            EXPECT_NE(place, texts.end()) << text;
            if (place == texts.end()) break;
        }
    }
}

TEST(Conditions, Causes) {
    const struct {
        const char* name;
        const char* condition;
        std::vector<std::string> causes;
    } cases[] = {
        {"P 1 21/c 1", "h0l: l = 2n", {"c glide normal to b"}},
        {"P 1 21/c 1", "0k0: k = 2n", {"21 screw along b"}},
        {"P n m a", "0k0: k = 2n", {"n glide normal to a", "21 screw along b"}},
        {"C m c a", "h0l: h = 2n", {"C centring"}},
        {"C m c a", "hk0: k = 2n", {"b glide normal to c"}},
        {"F d d d:2", "0kl: k+l = 4n", {"d glide normal to a"}},
        {"I 41", "00l: l = 4n", {"41 screw along c"}},
        {"I 41 3 2", "h00: h = 4n", {"41 screw along a"}},
        {"P 65", "000l: l = 6n", {"65 screw along c"}},
        {"P -4 3 n", "hhl: l = 2n", {"n glide normal to [1-10]"}},
        {"F -4 3 c", "hhl: h = 2n", {"c glide normal to [1-10]"}},
        {"P 42/n b c:2", "hhl: l = 2n", {"c glide normal to [1-10]"}},
        {"R -3 c:R", "hkk: h = 2n", {"a glide normal to [01-1]"}},
        {"R 3 c:H",
         "000l: l = 6n",
         {"R centring", "c glide normal to a", "c glide normal to b", "c glide normal to [110]"}},
    };
    for (const auto& [name, text, causes] : cases) {
        SCOPED_TRACE(std::string(name) + ", " + text);
        bool met = false;
        for (const auto& condition : conditions_of(group_of(*find_setting(name)))) {
            if (condition.text != text) continue;
            met = true;
            EXPECT_EQ(condition.causes, causes);
        }
        EXPECT_TRUE(met);
    }
}

}  // namespace
