#include "group/suggestions.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <random>

#include "group/symbol_text.h"
#include "support/pace.h"

namespace {

using namespace lomar;

using random_engine = std::minstd_rand;

// A place behind the lattice letter.
std::size_t place_in(const std::string& text, random_engine& random) {
    return 1 + random() % (text.size() - 1);
}

std::string dropped(std::string text, random_engine& random) {
    return text.erase(place_in(text, random), 1);
}

std::string doubled(std::string text, random_engine& random) {
    const std::size_t i = place_in(text, random);
    return text.insert(i, 1, text[i]);
}

std::string swapped(std::string text, random_engine& random) {
    if (text.size() < 3) return text;
    const std::size_t i = 1 + random() % (text.size() - 2);
    std::swap(text[i], text[i + 1]);
    return text;
}

std::string replaced(std::string text, random_engine& random) {
    constexpr std::string_view characters = "1234606mnabcd-/";
    text[place_in(text, random)] = characters[random() % characters.size()];
    return text;
}

std::string with_near_key(std::string text, random_engine& random) {
    constexpr std::string_view keys = "qwertyuiopasdfghjklzxcvbnm,./1234567890-";
    const std::size_t i = place_in(text, random);
    text[i] = keys[keys.find(text[i]) - 1];
    return text;
}

std::string without_minus(std::string text, random_engine&) {
    std::erase(text, '-');
    return text;
}

// Two parts of the symbol, here with its blanks, change places.
std::string disordered(std::string text, random_engine& random) {
    std::vector<std::string> words = words_of(text);
    text.clear();
    const std::size_t i = words.size() < 3 ? 0 : 1 + random() % (words.size() - 2);
    if (i > 0) std::swap(words[i], words[i + 1]);
    for (const std::string& word : words) text += word;
    return text;
}

struct score {
    int tried = 0;
    int among_three = 0;
    int listed = 0;

    double share(int part) const { return static_cast<double>(part) / tried; }
};

void count(score& result, const std::string& slip, const setting& row) {
    const symbol_parts parts = parts_of_symbol(slip);
    if (find_named_setting(parts) != nullptr) return;
    const std::vector<std::string> names = near_names(parts);
    EXPECT_LE(names.size(), 10u);
    const auto found = std::ranges::find(names, row.symbol);
    ++result.tried;
    if (found == names.end()) return;
    ++result.listed;
    if (found - names.begin() < 3) ++result.among_three;
}

// Common groups, other conventional settings, the rest.
std::size_t class_of(const setting& row) {
    constexpr std::array common = {14, 2, 15, 19,  4,   61,  33,  62,  9,   1,
                                   60, 5, 29, 148, 225, 227, 194, 221, 229, 12};
    const bool conventional =
        row.index < 530 && (row.qualifier.empty() || row.qualifier == "b" || row.qualifier == "b1");
    if (!conventional) return 2;
    return std::ranges::find(common, row.number) == common.end() ? 1 : 0;
}

// What it takes to be told what was meant. Some slips leave much open: an `Imm` may lack any of
// four letters, so that not all can be among the first three.
TEST(Suggestions, MostSlipsAreSeenThrough) {
    std::array<score, 3> scores;
    random_engine random(7);
    for (const setting& row : settings()) {
        if (row.choice == "2" || row.choice == "R" || row.number % pace != 0) continue;
        score& into = scores[class_of(row)];
        const std::string symbol = lower_case(squeezed(row.symbol));
        for (const auto slip :
             {dropped, doubled, swapped, replaced, with_near_key, without_minus}) {
            count(into, slip(symbol, random), row);
        }
        count(into, disordered(std::string(row.symbol), random), row);
    }
    constexpr std::array among_three = {0.93, 0.92, 0.80};
    for (std::size_t i = 0; i < scores.size() && pace == 1; ++i) {
        const score& found = scores[i];
        RecordProperty("tried_" + std::to_string(i), found.tried);
        RecordProperty("among_three_" + std::to_string(i), found.among_three);
        EXPECT_GE(found.share(found.among_three), among_three[i]) << found.tried;
        EXPECT_GE(found.share(found.listed), 0.95);
    }
}

TEST(Suggestions, NearestFirst) {
    const struct {
        const char* typed;
        std::vector<std::string> first;
    } cases[] = {
        {"P-43n1", {"P -4 3 n"}},
        {"Fmm3", {"F m -3", "F m -3 m"}},
        {"P 21/b1", {"P 1 1 21/b", "P 21/b 1 1"}},
        {"P21c", {"P 1 21/c 1"}},
        {"Pna12", {"P n a 21"}},
        {"P 31 2", {"P 3 1 2", "P 31 1 2", "P 31 2 1"}},
        {"Fdd3m:2", {"F d -3 m:2"}},
        {"R-33m:R", {"R -3 m:R"}},
        {"-42m", {"P -4 2 m", "C -4 2 m", "I -4 2 m"}},
        {"D3", {"P 3 1 2", "P 3 2 1"}},
        {"C2h^9", {"P 1 2/m 1", "P 1 21/m 1"}},
        {"Oh", {"P m -3 m"}},
        {"2cb", {"P 2 c b"}},
        {"1Cc1", {"C 1 c 1"}},
        {"P 3 3", {"P 2 3"}},
        {"P-2", {"P -1"}},
        {"14:b9", {"P 1 21/c 1", "P 1 21/n 1", "P 1 21/a 1"}},
    };
    for (const auto& one : cases) {
        const std::vector<std::string> names = near_names(parts_of_symbol(one.typed));
        ASSERT_GE(names.size(), one.first.size()) << one.typed;
        for (std::size_t i = 0; i < one.first.size(); ++i) EXPECT_EQ(names[i], one.first[i]);
    }
}

TEST(Suggestions, Slips) {
    const struct {
        const char* typed;
        const char* name;
        int slips;
    } cases[] = {
        {"pnma", "pnma", 0},
        {"pmna", "pnma", 800},
        {"p43n", "p-43n", 500},
        {"pnmma", "pnma", 700},
        {"pna", "pnma", 800},
        {"P_a2", "P_A2", 250},
        {"", "", 0},
        {"", "abcde", 3000},
        {"abcdefgh", "", 3000},
        {"Pm'", "Pm", 500},
        {"P2_1", "P21", 300},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(slips_between(one.typed, one.name, 3000), one.slips) << one.typed;
    }
}

}  // namespace
