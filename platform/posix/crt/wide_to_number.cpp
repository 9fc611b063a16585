#include "posix/crt/crt.h"

#include <cerrno>

namespace {

bool IsWideSpace(WCHAR c) {
    if ((c >= 0x09 && c <= 0x0D) || c == 0x20) return true;
    switch (c) {
        case 0xA0: case 0x1680: case 0x2028: case 0x2029: case 0x202F: case 0x205F: case 0x3000:
            return true;
        default:
            return c >= 0x2000 && c <= 0x200A;
    }
}

const WCHAR* SkipSpace(const WCHAR* p) {
    while (IsWideSpace(*p)) ++p;
    return p;
}

// The value of c as a digit (0-35), counting the decimal digits of other scripts as the MS CRT does;
// -1 for anything else.
int DigitValue(WCHAR c) {
    if (c >= u'0' && c <= u'9') return c - u'0';
    if (c >= u'a' && c <= u'z') return c - u'a' + 10;
    if (c >= u'A' && c <= u'Z') return c - u'A' + 10;
    static const WCHAR kZeros[] = {0x0660, 0x06F0, 0x0966, 0x09E6, 0x0A66, 0x0AE6, 0x0B66, 0x0C66, 0x0CE6,
                                   0x0D66, 0x0E50, 0x0ED0, 0x0F20, 0x1040, 0x17E0, 0x1810, 0xFF10};
    for (WCHAR zero : kZeros) {
        if (c >= zero && c <= zero + 9) return c - zero;
    }
    return -1;
}

void SetEnd(WCHAR** end, const WCHAR* at) {
    if (end) *end = const_cast<WCHAR*>(at);
}

struct ParsedInteger {
    uint64_t magnitude = 0;
    bool negative = false;
    bool overflow = false;
    bool valid = false;
};

// Reads an integer whose magnitude may not exceed limit (for a negative number, negativeLimit).
// Digits beyond the limit are still consumed and flag overflow.
ParsedInteger ParseInteger(const WCHAR* s, WCHAR** end, int base, uint64_t limit, uint64_t negativeLimit) {
    ParsedInteger result;
    SetEnd(end, s);
    if (!s || base < 0 || base == 1 || base > 36) {
        errno = EINVAL;
        return result;
    }
    const WCHAR* p = SkipSpace(s);
    if (*p == u'-' || *p == u'+') result.negative = *p++ == u'-';
    bool hexPrefix = DigitValue(p[0]) == 0 && (p[1] == u'x' || p[1] == u'X');
    if (base == 0) base = hexPrefix ? 16 : DigitValue(p[0]) == 0 ? 8 : 10;
    if (base == 16 && hexPrefix) p += 2;
    uint64_t max = result.negative ? negativeLimit : limit;
    for (int digit; (digit = DigitValue(*p)) >= 0 && digit < base; ++p) {
        result.valid = true;
        if (result.magnitude > (max - static_cast<uint64_t>(digit)) / static_cast<uint64_t>(base)) {
            result.overflow = true;
        } else {
            result.magnitude = result.magnitude * static_cast<uint64_t>(base) + static_cast<uint64_t>(digit);
        }
    }
    if (!result.valid) return ParsedInteger();
    SetEnd(end, p);
    if (result.overflow) errno = ERANGE;
    return result;
}

// Any negative number may be negated into the unsigned range, as the MS CRT does.
uint64_t ToUnsigned(const ParsedInteger& n, uint64_t max) {
    if (n.overflow) return max;
    return n.negative ? (0 - n.magnitude) & max : n.magnitude;
}

}  // namespace

ULONG wcstoul(const WCHAR* s, WCHAR** end, int base) {
    ParsedInteger n = ParseInteger(s, end, base, UINT32_MAX, UINT32_MAX);
    return static_cast<ULONG>(ToUnsigned(n, UINT32_MAX));
}

LONG wcstol(const WCHAR* s, WCHAR** end, int base) {
    const uint64_t maxLong = INT32_MAX;
    ParsedInteger n = ParseInteger(s, end, base, maxLong, maxLong + 1);
    if (n.overflow) return n.negative ? INT32_MIN : INT32_MAX;
    return n.negative ? static_cast<LONG>(0 - static_cast<int64_t>(n.magnitude)) : static_cast<LONG>(n.magnitude);
}

LONG _wtol(const WCHAR* s) { return wcstol(s, nullptr, 10); }

uint64_t _wcstoui64(const WCHAR* s, WCHAR** end, int base) {
    ParsedInteger n = ParseInteger(s, end, base, UINT64_MAX, UINT64_MAX);
    return ToUnsigned(n, UINT64_MAX);
}
