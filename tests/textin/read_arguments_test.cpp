#include "textin/read_arguments.h"

#include <gtest/gtest.h>
#include <string>

#include "support/expect_failure.h"

namespace {

// The arguments in brackets and then the rest of the text, or the message of the failure.
std::string result_of(sstring_in in) {
    std::string result;
    const auto message = message_of([&] {
        argument_list_3 list;
        list.set_base(-1);
        read_arguments(in, list);
        for (const vstring_in& argument : list) {
            result += "[" + std::string(argument.text, argument.text + argument.size) + "]";
        }
        result += in.current();
    });
    return message.value_or(result);
}

TEST(ReadArguments, Results) {
    const char* const rows[][2] = {{"()", "[]"},
                                   {" \n(  )x", "[]x"},
                                   {"(a)", "[a]"},
                                   {"( a b\t, c\n) d", "[a b\t][c\n] d"},
                                   {"(f(x,(y)),g()h,)(", "[f(x,(y))][g()h][]("},
                                   {"(,)", "[][]"},
                                   {"(1,2,3,4,5)", "[1][2][3][4][5]"},
                                   {"", " Missing ("},
                                   {" a(b)", " Missing ("},
                                   {"( \n", " Missing )"},
                                   {"(a, ", " Missing )"},
                                   {"(a,b ", " Error in arguements"},
                                   {"(a(b)", " Error in arguements"},
                                   {"(a(b,c", " Unclosed:  )"}};
    for (const auto& row : rows) EXPECT_EQ(result_of(sstring_in(row[0])), row[1]) << row[0];
}

}  // namespace
