// The runtime text functions the library relies on; the same expectations hold for the Microsoft CRT
// under Wine and for the Linux substitutes.
#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <cstdarg>
#include <string>

#include "platform/platform.h"

namespace {

using WideString = std::basic_string<WCHAR>;
enum Parser { UL, L, UI64 };

TEST(CrtConformance, IntegersFollowTheMicrosoftCrt) {
    const struct {
        Parser parser;
        const WCHAR* input;
        int base;
        int64_t expected;  // the result as a signed 64-bit number
        long consumed;
        bool range;
    } cases[] = {
        {UL, HMI_W("  42abc"), 10, 42, 4, false},          {UL, HMI_W("\t\r\n+7"), 10, 7, 5, false},
        {UL, HMI_W("-1"), 10, 0xFFFFFFFF, 2, false},       {UL, HMI_W("-4294967295"), 10, 1, 11, false},
        {UL, HMI_W("0X1a"), 0, 26, 4, false},              {UL, HMI_W("010"), 0, 8, 3, false},
        {UL, HMI_W("089"), 0, 0, 1, false},                {UL, HMI_W("4294967296"), 10, 0xFFFFFFFF, 10, true},
        {UL, HMI_W("99999999999999999999x"), 10, 0xFFFFFFFF, 20, true},
        {UL, HMI_W("\xFF11\x0669"), 10, 19, 2, false},     {UL, HMI_W("\x3000\x00A0\x2003 9"), 10, 9, 5, false},
        {UL, HMI_W("\xFEFF" "9"), 10, 0, 0, false},        {UL, HMI_W(" -x"), 10, 0, 0, false},
        {UL, HMI_W("0x"), 16, 0, 0, false},
        {L, HMI_W("2147483648"), 10, INT32_MAX, 10, true}, {L, HMI_W("-2147483648"), 10, INT32_MIN, 11, false},
        {L, HMI_W("-2147483649"), 10, INT32_MIN, 11, true}, {L, HMI_W("-0x10"), 0, -16, 5, false},
        {UI64, HMI_W("18446744073709551615"), 10, -1, 20, false},
        {UI64, HMI_W("18446744073709551616"), 10, -1, 20, true},
        {UI64, HMI_W("4294967296"), 10, 4294967296LL, 10, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "case #" << (&c - cases));
        WCHAR* end = nullptr;
        errno = 0;
        const int64_t value = c.parser == UL  ? static_cast<int64_t>(wcstoul(c.input, &end, c.base))
                              : c.parser == L ? static_cast<int64_t>(wcstol(c.input, &end, c.base))
                                              : static_cast<int64_t>(_wcstoui64(c.input, &end, c.base));
        EXPECT_EQ(value, c.parser == UL ? c.expected & 0xFFFFFFFF : c.expected);
        EXPECT_EQ(end - c.input, c.consumed);
        EXPECT_EQ(errno == ERANGE, c.range);
    }
    EXPECT_EQ(_wtol(HMI_W(" -45.9")), -45);
    EXPECT_EQ(_wtol(HMI_W("99999999999")), INT32_MAX);
}

TEST(CrtConformance, WcstodReadsTheLongestDecimalPrefix) {
    const struct {
        const WCHAR* input;
        double expected;
        long consumed;
        int error;
    } cases[] = {
        {HMI_W("  -2.25e2x"), -225.0, 9, 0}, {HMI_W("+.5"), 0.5, 3, 0},     {HMI_W("1."), 1.0, 2, 0},
        {HMI_W("1e+"), 1.0, 1, 0},           {HMI_W("1,5"), 1.0, 1, 0},     {HMI_W(" -."), 0.0, 0, 0},
        {HMI_W("1e400"), HUGE_VAL, 5, ERANGE}, {HMI_W("-1e400"), -HUGE_VAL, 6, ERANGE},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "case #" << (&c - cases));
        WCHAR* end = nullptr;
        errno = 0;
        EXPECT_EQ(wcstod(c.input, &end), c.expected);
        EXPECT_EQ(end - c.input, c.consumed);
        EXPECT_EQ(errno, c.error);
    }
}

// Formats into a buffer of capacity units followed by two guard units.
int FormatInto(WideString* buffer, size_t capacity, const WCHAR* format, ...) {
    buffer->assign(capacity + 2, u'#');
    va_list args;
    va_start(args, format);
    const int n = _vsnwprintf(&(*buffer)[0], capacity, format, args);
    va_end(args);
    return n;
}

WideString Format(const WCHAR* format, ...) {
    WCHAR buffer[64];
    va_list args;
    va_start(args, format);
    const int n = _vsnwprintf(buffer, 64, format, args);
    va_end(args);
    return n < 0 ? WideString(HMI_W("<failed>")) : WideString(buffer, static_cast<size_t>(n));
}

// The library formats with %s, %08X and %03d only.
TEST(CrtConformance, FormatsTheConversionsTheLibraryUses) {
    EXPECT_EQ(Format(HMI_W("%s\\%08X\\HMI"), HMI_W("Media"), 0x1Au), HMI_W("Media\\0000001A\\HMI"));
    EXPECT_EQ(Format(HMI_W("%08X|%08X"), 0u, 0xFFFFFFFFu), HMI_W("00000000|FFFFFFFF"));
    EXPECT_EQ(Format(HMI_W("%03d|%03d|%03d|%d"), 7, 1000, -7, -2147483647 - 1), HMI_W("007|1000|-07|-2147483648"));
    EXPECT_EQ(Format(HMI_W("%s"), static_cast<const WCHAR*>(nullptr)), HMI_W("(null)"));
}

TEST(CrtConformance, BoundedFormattingTerminatesOnlyWhenThereIsRoom) {
    const struct {
        size_t capacity;
        int result;
        const WCHAR* buffer;
    } cases[] = {{5, 3, HMI_W("abc\0####")}, {3, 3, HMI_W("abc##")}, {2, -1, HMI_W("ab##")}};
    WideString buffer;
    for (const auto& c : cases) {
        EXPECT_EQ(FormatInto(&buffer, c.capacity, HMI_W("%s"), HMI_W("abc")), c.result);
        EXPECT_EQ(buffer, WideString(c.buffer, c.capacity + 2));
    }
}

// The order is the platform's (linguistic on Windows, by code unit on Linux); both tell case apart.
TEST(CrtConformance, LstrcmpComparesTextCaseSensitively) {
    const WideString media(HMI_W("media"));  // equal text at another address
    EXPECT_EQ(lstrcmpW(HMI_W("media"), media.c_str()), 0);
    EXPECT_EQ(lstrcmpW(nullptr, nullptr), 0);
    EXPECT_LT(lstrcmpW(nullptr, HMI_W("")), 0);
    EXPECT_LT(lstrcmpW(HMI_W("a"), HMI_W("ab")), 0);
    EXPECT_GT(lstrcmpW(HMI_W("b"), HMI_W("ab")), 0);
    EXPECT_NE(lstrcmpW(HMI_W("a"), HMI_W("A")), 0);
}

}  // namespace
