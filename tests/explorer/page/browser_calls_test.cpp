#include "page/browser_calls.h"

#include <gtest/gtest.h>

#include "explorer/drawing/picture_reader.h"
#include "formats/json.h"

namespace lomar {
namespace {

json called(const json& request) {
    return json::parse(browser_call(request.dump(-1, ' ', false, json::error_handler_t::replace)));
}

json answer_to(const std::string& text) { return called({{"do", "answer"}, {"text", text}}); }

struct typed_case {
    const char* text;
    const char* name;     // that the answer has
    const char* address;  // what the address bar says
};

TEST(browser, understands_what_is_typed) {
    for (const auto& [text, name, address] : {
             typed_case{" P 21/c\n", "P 1 21/c 1", "P_21/c"},
             {"hall:P 4 2", "P 4 2 2", "hall:P_4_2"},
             {"-P 2ybc (x,y,z+1/4)", "hall:-P 2ybc (x,y,z+1/4)", "-P_2ybc_(x,y,z+1/4)"},
             {"P_a2_1/c", "14.80", "P_a2_1/c"},
             {"14.5.90", "14.79", "14.5.90"},
             {"x,y,z\n-x,-y,-z", "P -1", "x,y,z;-x,-y,-z"},
             {"y,z,x; 1/2+x,-y,z", "P a -3", "y,z,x;x+1/2,-y,z"},
             {"x,y,z,1\n-x,-y,-z,-1", "2.6", "x,y,z;-x,-y,-z,-1"},
             {"LATT 1", "P -1", "x,y,z;-x,-y,-z"},
             {"symmetry { -x, -y, -z }", "P -1", "-x,-y,-z"},
             {"\xef\xbb\xbf[\"x,y,z\", \"-x,-y,-z\"]", "P -1", "x,y,z;-x,-y,-z"},
         }) {
        const json answer = answer_to(text);
        ASSERT_FALSE(answer.contains("message")) << text << ": " << answer["message"];
        EXPECT_EQ(answer["name"], name) << text;
        EXPECT_EQ(answer["address"], address) << text;
        const std::string again = answer["name"];
        EXPECT_EQ(answer_to(again)["name"], again);
        EXPECT_EQ(answer_to(address)["name"], name);
        drawing_test::read_tags("<main>" + answer["html"].get<std::string>() + "</main>");
        // Its figures, and all its files.
        for (const char* key : {"operators", "elements-a", "elements-c", "positions-b"}) {
            const json figure = called({{"do", "figure"}, {"name", again}, {"figure", key}});
            EXPECT_TRUE(figure.contains("html")) << again << " " << key;
        }
        for (const json& offer : answer["downloads"]) {
            const json file =
                called({{"do", "download"}, {"name", again}, {"format", offer["format"]}});
            // No file of lomar6 for axes that it has no name for.
            if (offer["format"] == "sg" && again[0] == 'h') continue;
            EXPECT_TRUE(file.contains("text")) << again << " " << offer << file;
            // What is written is read, but for tables and pictures.
            const std::string format = offer["format"];
            if (again[0] == 'h' || format == "csv" || format.ends_with("svg")) continue;
            EXPECT_EQ(answer_to(file["text"])["name"], again) << format;
        }
    }
}

TEST(browser, starts_with_the_style_of_the_drawings) {
    EXPECT_NE(called({{"do", "start"}})["style"].get<std::string>().find("lomar-diagram"),
              std::string::npos);
}

TEST(browser, tells_what_is_wrong) {
    for (const char* text : {"", "P 21/b1", "x,y", "x,y,z+q", "x,y,z;x,y,z;2x,y,z", "{}",
                             "data_x\n", "\xff\xfe", "<script>", "P_a2_1/q", "2.9999", "hall:"}) {
        const json answer = answer_to(text);
        EXPECT_TRUE(answer.contains("message")) << text;
        EXPECT_FALSE(answer.contains("html")) << text;
    }
    EXPECT_EQ(answer_to("Fmm3")["near"][0], "F m -3");
    for (const char* request :
         {"",
          "null",
          "[]",
          "{}",
          "{\"do\": 1}",
          "{\"do\": \"nothing\"}",
          "{\"do\": \"answer\"}",
          R"({"do": "answer", "text": 1})",
          R"({"do": "figure", "name": "P 1"})",
          R"({"do": "figure", "name": "P 1", "figure": "elements-"})",
          R"({"do": "figure", "name": "P 1", "figure": "elements-d"})",
          R"({"do": "figure", "name": "Q", "figure": "elements-a"})",
          R"({"do": "download", "name": "P 1", "format": "exe"})",
          R"({"do": "reflections"})",
          R"({"do": "reflections", "name": "P 1"})",
          R"({"do": "reflections", "name": "P 1", "cell": [1, 2, 3]})",
          R"({"do": "reflections", "name": "P 1", "cell": [1, 2, 3, 90, 90, 1e400], "d_min": 1})",
          R"({"do": "reflections", "name": "P 1", "limits": [1, 2, -3]})",
          R"({"do": "reflections", "name": "P 1", "limits": [1000, 1000, 1000]})",
          R"({"do": "reflections", "name": "62.446", "limits": [1, 1, 1]})"}) {
        const json answer = json::parse(browser_call(request));
        EXPECT_TRUE(answer.contains("message")) << request;
    }
}

// The list of docs/hkl_file.md.
TEST(browser, writes_hkl_files) {
    const json file =
        called({{"do", "reflections"}, {"name", "P_21"}, {"limits", {0, 2, 1}}, {"format", "hkl"}});
    EXPECT_EQ(file["text"],
              "hkls 0 2 1\n{\n    0    0    1    2\n    0    1    1    4\n    0    2    0    2\n"
              "    0    2    1    4\n}");
}

TEST(browser, lists_reflections_of_a_cell) {
    json request = {
        {"do", "reflections"}, {"name", "P 4"}, {"cell", {5, 5, 7, 90, 90, 90}}, {"d_min", 2.5}};
    // 001, 100, 101, 002, 110, 111, 102 and 200: d from 7 to 2.5.
    EXPECT_EQ(called(request)["count"], 8);
    request["cell"][1] = 6;
    EXPECT_EQ(called(request)["fits"], json({5.5227, 5.5227, 7.0, 90.0, 90.0, 90.0}));
    request["cell"] = {5, 5, 7, 10, 10, 170};
    EXPECT_TRUE(called(request).contains("message"));
}

}  // namespace
}  // namespace lomar
