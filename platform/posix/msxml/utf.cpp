#include "posix/msxml/utf.h"

#include <cstring>
#include "posix/com/allocation.h"

namespace {

// Decodes one sequence; returns its length in bytes and the code point (U+FFFD when malformed).
size_t Decode(const unsigned char* s, size_t left, uint32_t* cp) {
    unsigned char b = s[0];
    size_t n = b < 0x80 ? 1 : (b >> 5) == 6 ? 2 : (b >> 4) == 14 ? 3 : (b >> 3) == 30 ? 4 : 0;
    if (n == 0 || n > left) {
        *cp = 0xFFFD;
        return 1;
    }
    uint32_t value = n == 1 ? b : b & (0x7F >> n);
    for (size_t i = 1; i < n; ++i) {
        if ((s[i] & 0xC0) != 0x80) {
            *cp = 0xFFFD;
            return i;
        }
        value = (value << 6) | (s[i] & 0x3F);
    }
    *cp = value > 0x10FFFF ? 0xFFFD : value;
    return n;
}

bool IsPair(const WCHAR* p) { return p[0] >= 0xD800 && p[0] <= 0xDBFF && p[1] >= 0xDC00 && p[1] <= 0xDFFF; }

}  // namespace

char* HMIUtf16ToUtf8(const WCHAR* text, size_t* length) {
    // One pass into room for the longest form: a unit makes at most three bytes (a pair, four for
    // two units; a lone surrogate, the three of U+FFFD).
    size_t units = 0;
    while (text[units]) ++units;
    if (units > (SIZE_MAX - 1) / 3) return nullptr;
    auto* out = static_cast<char*>(HMIComAlloc(3 * units + 1));
    if (!out) return nullptr;
    auto* o = reinterpret_cast<unsigned char*>(out);
    for (const WCHAR* p = text; *p; ++p) {
        // Runs of ASCII, four units at a time; the last units before the terminator go one by one.
        while (p + 4 <= text + units) {
            uint64_t block;
            std::memcpy(&block, p, sizeof block);
            if (block & 0xFF80FF80FF80FF80u) break;
            for (int k = 0; k < 4; ++k) o[k] = static_cast<unsigned char>(block >> (16 * k));
            o += 4;
            p += 4;
        }
        if (!*p) break;
        uint32_t c = *p;
        if (c < 0x80) {
            *o++ = static_cast<unsigned char>(c);
            continue;
        }
        if (IsPair(p)) c = 0x10000 + ((c - 0xD800) << 10) + (*++p - 0xDC00);
        else if ((c & 0xF800) == 0xD800) c = 0xFFFD;
        if (c < 0x800) {
            *o++ = static_cast<unsigned char>(0xC0 | (c >> 6));
            *o++ = static_cast<unsigned char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            *o++ = static_cast<unsigned char>(0xE0 | (c >> 12));
            *o++ = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
            *o++ = static_cast<unsigned char>(0x80 | (c & 0x3F));
        } else {
            *o++ = static_cast<unsigned char>(0xF0 | (c >> 18));
            *o++ = static_cast<unsigned char>(0x80 | ((c >> 12) & 0x3F));
            *o++ = static_cast<unsigned char>(0x80 | ((c >> 6) & 0x3F));
            *o++ = static_cast<unsigned char>(0x80 | (c & 0x3F));
        }
    }
    *o = 0;
    const size_t bytes = static_cast<size_t>(o - reinterpret_cast<unsigned char*>(out));
    if (length) *length = bytes;
    // The room that was not needed goes back; a refused shrink keeps the block as it is.
    void* fitted = bytes < 3 * units ? HMIComRealloc(out, bytes + 1) : nullptr;
    return fitted ? static_cast<char*>(fitted) : out;
}

size_t HMIUtf16Length(const unsigned char* text, size_t length) {
    size_t units = 0;
    for (size_t i = 0; i < length;) {
        if (text[i] < 0x80) {
            ++i, ++units;
            continue;
        }
        uint32_t cp;
        i += Decode(text + i, length - i, &cp);
        units += cp >= 0x10000 ? 2 : 1;
    }
    return units;
}

WCHAR* HMIUtf8ToUtf16(const unsigned char* text, size_t length, WCHAR* out) {
    for (size_t i = 0; i < length;) {
        if (text[i] < 0x80) {
            *out++ = text[i++];
            continue;
        }
        uint32_t cp;
        i += Decode(text + i, length - i, &cp);
        if (cp >= 0x10000) {
            *out++ = static_cast<WCHAR>(0xD800 + ((cp - 0x10000) >> 10));
            *out++ = static_cast<WCHAR>(0xDC00 + ((cp - 0x10000) & 0x3FF));
        } else {
            *out++ = static_cast<WCHAR>(cp);
        }
    }
    return out;
}

BSTR HMIBstrFromUtf8(const unsigned char* text) {
    size_t bytes = text ? std::strlen(reinterpret_cast<const char*>(text)) : 0;
    size_t units = HMIUtf16Length(text, bytes);
    if (units > UINT32_MAX / 4) return nullptr;
    BSTR result = SysAllocStringLen(nullptr, static_cast<uint32_t>(units));
    if (result) HMIUtf8ToUtf16(text, bytes, result);
    return result;
}
