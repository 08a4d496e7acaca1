#include <gtest/gtest.h>
#include <string>

#include "foundation/except_3.h"
#include "foundation/heap_watch.h"
#include "support/expect_failure.h"

namespace {

TEST(Errors, EachPieceGetsABlankBeforeIt) {
    EXPECT_FAILURE((error_builder_3() << "Unclosed: " << '}').fail(), " Unclosed:  }");
    EXPECT_FAILURE((error_builder_3() << "Cannot open file" << string_3("a.sg")).fail(),
                   " Cannot open file a.sg");
    EXPECT_FAILURE(error_builder_3().fail(), "");
}

TEST(Errors, NothingIsLostWhenMemoryRunsOut) {
    const std::string text(500, 'x');
    const int failures = fail_each_request([&](std::size_t failing) {
        const error_builder_3 unused;
        return survives(failing, [&] { EXPECT_FAILURE(fail_with(text.c_str()), " " + text); });
    });
    EXPECT_GE(failures, 2);  // the buffer of the message, and its growth
}

}  // namespace
