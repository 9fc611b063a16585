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
    // expected: the result as a signed 64-bit number; used: units consumed; range: errno is ERANGE.
    const struct { Parser parser; const WCHAR* input; int base; int64_t expected; long used; bool range; } cases[] = {
        {UL, HMI_W("  42abc"), 10, 42, 4, false},          {UL, HMI_W("\t\r\n+7"), 10, 7, 5, false},
        {UL, HMI_W("-1"), 10, 0xFFFFFFFF, 2, false},       {UL, HMI_W("0X1a"), 0, 26, 4, false},
        {UL, HMI_W("089"), 0, 0, 1, false},                {UL, HMI_W("4294967296"), 10, 0xFFFFFFFF, 10, true},
        {UL, HMI_W("99999999999999999999x"), 10, 0xFFFFFFFF, 20, true}, {UL, HMI_W(" -x"), 10, 0, 0, false},
        {UL, HMI_W("\xFF11\x0669"), 10, 19, 2, false},     {UL, HMI_W("\x3000\x00A0\x2003 9"), 10, 9, 5, false},
        {UL, HMI_W("\xFEFF" "9"), 10, 0, 0, false},        {UL, HMI_W("0x"), 16, 0, 0, false},
        {L, HMI_W("2147483648"), 10, INT32_MAX, 10, true}, {L, HMI_W("-2147483648"), 10, INT32_MIN, 11, false},
        {L, HMI_W("-2147483649"), 10, INT32_MIN, 11, true}, {L, HMI_W("-0x10"), 0, -16, 5, false},
        {UI64, HMI_W("18446744073709551615"), 10, -1, 20, false},
        {UI64, HMI_W("18446744073709551616"), 10, -1, 20, true},
    };
    for (const auto& c : cases) {
        WCHAR* end = nullptr;
        errno = 0;
        const int64_t value = c.parser == UL  ? static_cast<int64_t>(wcstoul(c.input, &end, c.base))
                              : c.parser == L ? static_cast<int64_t>(wcstol(c.input, &end, c.base))
                                              : static_cast<int64_t>(_wcstoui64(c.input, &end, c.base));
        EXPECT_EQ(value, c.parser == UL ? c.expected & 0xFFFFFFFF : c.expected) << "case #" << (&c - cases);
        EXPECT_TRUE(end - c.input == c.used && (errno == ERANGE) == c.range) << "case #" << (&c - cases);
    }
    EXPECT_TRUE(_wtol(HMI_W(" -45.9")) == -45 && _wtol(HMI_W("99999999999")) == INT32_MAX);
}

// Formats into a buffer of capacity units followed by two guard units; returns the whole buffer.
WideString FormatInto(int* result, size_t capacity, const WCHAR* format, ...) {
    WideString buffer(capacity + 2, u'#');
    va_list args;
    va_start(args, format);
    *result = _vsnwprintf(&buffer[0], capacity, format, args);
    va_end(args);
    return buffer;
}

// The library formats with %s, %08X and %03d only, into a buffer measured first.
TEST(CrtConformance, FormatsTheConversionsTheLibraryUses) {
    int n[5];
    const struct { WideString produced, expected; } cases[] = {
        {FormatInto(&n[0], 64, HMI_W("%s\\%08X\\HMI"), HMI_W("Media"), 0x1Au).c_str(), HMI_W("Media\\0000001A\\HMI")},
        {FormatInto(&n[1], 64, HMI_W("%08X|%08X"), 0u, 0xFFFFFFFFu).c_str(), HMI_W("00000000|FFFFFFFF")},
        {FormatInto(&n[2], 64, HMI_W("%03d|%03d|%03d|%d"), 7, 1000, -7, -2147483647 - 1).c_str(),
         HMI_W("007|1000|-07|-2147483648")},
        {FormatInto(&n[3], 64, HMI_W("%s"), static_cast<const WCHAR*>(nullptr)).c_str(), HMI_W("(null)")},
        {FormatInto(&n[4], 4, HMI_W("%s"), HMI_W("abc")), WideString(HMI_W("abc\0##"), 6)},
    };
    const int results[] = {18, 17, 24, 6, 3};
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(cases[i].produced == cases[i].expected && n[i] == results[i]) << i;
}

}  // namespace
