#include "formats/setting_list.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace {

using namespace lomar;

using words = std::vector<std::string>;

TEST(SettingList, Words) {
    const struct {
        words given;
        std::size_t count;
        const char* first;
    } cases[] = {
        {{}, 558, "P 1"},
        {{"227"}, 2, "F d -3 m:1"},
        {{"195-199"}, 6, "P 2 3"},
        {{"cubic", "F"}, 14, "F 2 3"},
        {{"CUB", "f", "m-3m"}, 6, "F m -3 m"},
        {{"mono", "2/m", "P", "b1"}, 2, "P 1 2/c 1"},
        {{"Oh^7"}, 2, "F d -3 m:1"},
        {{"C2h"}, 52, "P 1 2/m 1"},
        {{"enantiomorphic"}, 22, "P 41"},
        {{"21/c", "14"}, 2, "P 1 21/c 1"},
        {{"cab", "62"}, 1, "P b n m"},
        {{"Pnnn:2"}, 1, "P n n n:2"},
        {{"P21/c"}, 2, "P 1 21/c 1"},
        {{"Fd3m"}, 2, "F d -3 m:1"},
        {{"C m c e"}, 1, "C m c a"},
        {{"-P 2ybc"}, 1, "P 1 21/c 1"},
        {{"2/e"}, 18, "C m m a"},
        {{":2", "tetragonal", "P"}, 10, "P 4/n:2"},
        {{"cubic", "monoclinic"}, 0, ""},
    };
    for (const auto& one : cases) {
        const std::vector<const setting*> found = settings_for(one.given);
        EXPECT_EQ(found.size(), one.count) << testing::PrintToString(one.given);
        EXPECT_EQ(found.empty() ? "" : found[0]->name(), one.first);
    }
    for (const char* const word : {"zzz", "", " ", "231", "300-400", "\x01", "hexagonalx"}) {
        EXPECT_THROW(settings_for({word}), std::runtime_error) << word;
    }
}

TEST(SettingList, Forms) {
    const std::vector<const setting*> rows = settings_for({"P b n m"});
    EXPECT_EQ(setting_csv(rows),
              "number,name,setting,hall,schoenflies,point_group,crystal_system\n"
              "62,P b n m,cab,-P 2c 2ab,D2h^16,mmm,orthorhombic\n");
    EXPECT_EQ(setting_table(rows),
              "   62  P b n m  cab  -P 2c 2ab  D2h^16  mmm  orthorhombic\n"
              "1 setting\n");
    const auto parsed = nlohmann::json::parse(setting_json(settings_for({"1"})));
    ASSERT_GE(parsed.size(), 1u);
    EXPECT_EQ(parsed[0]["name"], "P 1");
    EXPECT_TRUE(parsed[0]["setting"].is_null());
    std::size_t longest = 0;
    std::size_t start = 0;
    const std::string all = setting_table(settings_for({}));
    for (std::size_t end; (end = all.find('\n', start)) != std::string::npos; start = end + 1) {
        longest = std::max(longest, end - start);
    }
    EXPECT_LE(longest, 80u);
}

}  // namespace
