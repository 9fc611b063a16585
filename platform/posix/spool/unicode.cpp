#include "unicode.h"

#include <cstdint>
#include <locale.h>
#include <wctype.h>

namespace hmispool {

namespace {

bool IsContinuation(unsigned char b) { return (b & 0xC0) == 0x80; }

void AppendCodePoint(uint32_t cp, std::u16string& out) {
    if (cp < 0x10000) {
        out.push_back(static_cast<char16_t>(cp));
    } else {
        cp -= 0x10000;
        out.push_back(static_cast<char16_t>(0xD800 + (cp >> 10)));
        out.push_back(static_cast<char16_t>(0xDC00 + (cp & 0x3FF)));
    }
}

bool IsHigh(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsLow(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

}  // namespace

size_t AppendUtf16FromUtf8(std::string_view utf8, std::u16string& out) {
    out.reserve(out.size() + utf8.size());
    size_t i = 0;
    while (i < utf8.size()) {
        unsigned char b = static_cast<unsigned char>(utf8[i]);
        if (b < 0x80) {
            out.push_back(b);
            ++i;
            continue;
        }
        size_t extra;
        uint32_t cp, minimum;
        if ((b & 0xE0) == 0xC0) {
            extra = 1, cp = b & 0x1F, minimum = 0x80;
        } else if ((b & 0xF0) == 0xE0) {
            extra = 2, cp = b & 0x0F, minimum = 0x800;
        } else if ((b & 0xF8) == 0xF0) {
            extra = 3, cp = b & 0x07, minimum = 0x10000;
        } else {
            return i;
        }
        if (utf8.size() - i <= extra) return i;
        for (size_t k = 1; k <= extra; ++k) {
            unsigned char c = static_cast<unsigned char>(utf8[i + k]);
            if (!IsContinuation(c)) return i;
            cp = (cp << 6) | (c & 0x3F);
        }
        if (cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return i;
        AppendCodePoint(cp, out);
        i += extra + 1;
    }
    return kAllValid;
}

size_t FindUnpairedSurrogate(std::u16string_view text) {
    for (size_t i = 0; i < text.size(); ++i) {
        if (IsHigh(text[i]) && i + 1 < text.size() && IsLow(text[i + 1])) {
            ++i;
        } else if (IsHigh(text[i]) || IsLow(text[i])) {
            return i;
        }
    }
    return kAllValid;
}

bool AppendUtf8FromUtf16(std::u16string_view text, std::string& out) {
    for (size_t i = 0; i < text.size(); ++i) {
        uint32_t cp = text[i];
        if (IsHigh(text[i]) && i + 1 < text.size() && IsLow(text[i + 1])) {
            cp = 0x10000 + ((cp - 0xD800) << 10) + (text[++i] - 0xDC00);
        } else if (IsHigh(text[i]) || IsLow(text[i])) {
            return false;
        }
        if (cp < 0x80) {
            out.push_back(static_cast<char>(cp));
        } else if (cp < 0x800) {
            out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else if (cp < 0x10000) {
            out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else {
            out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        }
    }
    return true;
}

// glibc's C.UTF-8 locale carries Unicode's simple upper-case mappings; the registry folds each UTF-16
// unit on its own, so surrogates and mappings that would leave the BMP stay as they are.
char16_t FoldCase(char16_t c) {
    static const locale_t utf8 = newlocale(LC_CTYPE_MASK, "C.UTF-8", locale_t{});
    if (c < 0x80 || !utf8) return c >= u'a' && c <= u'z' ? c - 0x20 : c;
    if (c >= 0xD800 && c <= 0xDFFF) return c;
    const wint_t upper = towupper_l(c, utf8);
    return upper <= 0xFFFF ? static_cast<char16_t>(upper) : c;
}

std::u16string Folded(std::u16string_view text) {
    std::u16string folded(text);
    for (char16_t& c : folded) c = FoldCase(c);
    return folded;
}

}  // namespace hmispool
