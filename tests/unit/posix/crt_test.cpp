// Linux only: where the substitutes follow the Microsoft CRT and Wine or mingw-w64 answer otherwise.
#include <gtest/gtest.h>

#include <cerrno>
#include <string>

#include "platform/platform.h"
#include "support/fault_injection.h"

namespace {

TEST(PosixCrt, ConversionsFollowTheMicrosoftCrt) {
    char16_t* end = nullptr;
    errno = 0;
    // Wine answers 1; the Microsoft CRT saturates whatever the sign.
    EXPECT_TRUE(wcstoul(u"-4294967296", &end, 10) == 0xFFFFFFFFu && errno == ERANGE);
    // mingw-w64 links its own wcstod, which takes "inf" and hexadecimal and no 'd' exponent.
    const struct { const char16_t* input; double expected; long used; } cases[] = {
        {u"2.5D-1", 0.25, 6}, {u"inf", 0.0, 0}, {u"0x1p3", 0.0, 1}, {u"\u30001.5", 1.5, 4}};
    for (const auto& c : cases) {
        EXPECT_TRUE(wcstod(c.input, &end) == c.expected && end - c.input == c.used) << "case #" << (&c - cases);
    }
}

TEST(PosixCrt, LongNumbersAreConvertedExactlyOrNotAtAll) {
    // Longer than the conversion's stack buffer: 0.1, 300 zeros and a 1 round to 0.1.
    const std::u16string text = u"0.1" + std::u16string(300, u'0') + u"1x";
    char16_t* end = nullptr;
    double value = 0;
    const long failures = hmitest::ForEachAllocationFailure(
        [&] { value = wcstod(text.c_str(), &end); },
        [&](bool injected) {
            EXPECT_EQ(value, injected ? 0.0 : 0.1);
            EXPECT_EQ(static_cast<size_t>(end - text.c_str()), injected ? 0 : text.size() - 1);
        });
    EXPECT_EQ(failures, 1);
}

}  // namespace
