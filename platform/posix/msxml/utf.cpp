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
    // Branch-free count; surrogates count two bytes each, so a pair gets its four and a lone one
    // (which becomes the three bytes of U+FFFD) is topped up below.
    size_t bytes = 0, units = 0, surrogates = 0;
    for (; text[units]; ++units) {
        uint32_t c = text[units];
        bytes += 1 + (c >= 0x80) + (c >= 0x800);
        surrogates += (c & 0xF800) == 0xD800;
    }
    bytes -= surrogates;
    if (surrogates) {
        for (size_t i = 0; i < units; ++i) {
            if (IsPair(text + i)) ++i;
            else if ((text[i] & 0xF800) == 0xD800) bytes += 1;
        }
    }
    auto* out = static_cast<char*>(HMIComAlloc(bytes + 1));
    if (!out) return nullptr;
    auto* o = reinterpret_cast<unsigned char*>(out);
    for (const WCHAR* p = text; *p; ++p) {
        // Runs of ASCII, four units at a time (the text's terminator is not ASCII-free-of-zero, so
        // a block holding it is left to the unit loop).
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
    if (length) *length = bytes;
    return out;
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
