#include "posix/msxml/utf.h"

#include <cstring>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif
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

// Copies the run of ASCII units that starts at p, as bytes, eight units at a time while the vector
// unit allows; returns where the run's copy stopped (the units left go one by one).
const WCHAR* CopyAsciiBlocks(const WCHAR* p, const WCHAR* end, unsigned char** o) {
#if defined(__SSE2__)
    const __m128i high = _mm_set1_epi16(static_cast<short>(0xFF80));
    while (p + 8 <= end) {
        const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
        if (_mm_movemask_epi8(_mm_cmpeq_epi16(_mm_and_si128(units, high), _mm_setzero_si128())) != 0xFFFF) break;
        _mm_storel_epi64(reinterpret_cast<__m128i*>(*o), _mm_packus_epi16(units, units));
        *o += 8;
        p += 8;
    }
#endif
    while (p + 4 <= end) {
        uint64_t block;
        std::memcpy(&block, p, sizeof block);
        if (block & 0xFF80FF80FF80FF80u) break;
        for (int k = 0; k < 4; ++k) (*o)[k] = static_cast<unsigned char>(block >> (16 * k));
        *o += 4;
        p += 4;
    }
    return p;
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
        p = CopyAsciiBlocks(p, text + units, &o);
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
    // A byte makes at most one unit, so the byte count is room enough; the length is then cut to the
    // units made.
    size_t bytes = text ? std::strlen(reinterpret_cast<const char*>(text)) : 0;
    if (bytes > UINT32_MAX / 4) return nullptr;
    BSTR result = HMIBstrWithRoom(static_cast<uint32_t>(bytes));
    if (result) HMIBstrCut(result, static_cast<uint32_t>(HMIUtf8ToUtf16(text, bytes, result) - result));
    return result;
}
