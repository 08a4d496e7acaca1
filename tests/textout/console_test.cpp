#include "textout/console.h"

#include <cstdio>
#include <gtest/gtest.h>

#include "foundation/console_text.h"
#include "textout/sstring_out.h"

namespace {

TEST(Console, StandardOutputUnlessAStreamIsPushed) {
    testing::internal::CaptureStdout();
    pop_console_stream();  // nothing to pop
    console_stream() << "50% " << 1 << ' ';
    sstring_out outer;
    sstring_out inner;
    push_console_stream(outer);
    write_console_text("outer");
    push_console_stream(inner);
    write_console_text("inner");
    pop_console_stream();
    write_console_text(" again");
    pop_console_stream();
    write_console_text("end\n");
    std::fflush(stdout);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "50% 1 end\n");
    EXPECT_STREQ(outer.text(), "outer again");
    EXPECT_STREQ(inner.text(), "inner");
}

TEST(Console, LinesBeginWithTheirEndAndKeepTheFirstStream) {
    static sstring_out first;
    first.clear();
    push_console_stream(first);
    console_line() << "50%"
                   << "";
    pop_console_stream();
    console_line().end_line();
    EXPECT_STREQ(first.text(), " \n50% \n \n");
}

}  // namespace
