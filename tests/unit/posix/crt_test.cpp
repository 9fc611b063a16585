// Linux only: where the substitutes follow the Microsoft CRT and Wine or mingw-w64 answer otherwise.
#include <gtest/gtest.h>

#include <cerrno>

#include "platform/platform.h"

namespace {

TEST(PosixCrt, ConversionsFollowTheMicrosoftCrt) {
    char16_t* end = nullptr;
    errno = 0;
    // Wine answers 1; the Microsoft CRT saturates whatever the sign.
    EXPECT_TRUE(wcstoul(u"-4294967296", &end, 10) == 0xFFFFFFFFu && errno == ERANGE);
}

}  // namespace
