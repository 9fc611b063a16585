#include "text.h"

#include <cstdio>

namespace hmitool {

WString Widen(const std::string& utf8) {
    WString out;
    for (size_t i = 0; i < utf8.size();) {
        unsigned char c = static_cast<unsigned char>(utf8[i]);
        size_t extra = c >= 0xF0 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : 0;
        char32_t cp = extra == 0 ? c : extra == 1 ? (c & 0x1F) : extra == 2 ? (c & 0x0F) : (c & 0x07);
        if (i + extra >= utf8.size()) extra = utf8.size() - 1 - i;  // truncated sequence
        for (size_t k = 1; k <= extra; ++k) cp = (cp << 6) | (static_cast<unsigned char>(utf8[i + k]) & 0x3F);
        i += extra + 1;
        if (cp >= 0x10000) {
            cp -= 0x10000;
            out.push_back(static_cast<WCHAR>(0xD800 + (cp >> 10)));
            out.push_back(static_cast<WCHAR>(0xDC00 + (cp & 0x3FF)));
        } else {
            out.push_back(static_cast<WCHAR>(cp));
        }
    }
    return out;
}

WString AsciiUpper(WString text) {
    for (WCHAR& c : text) c = (c >= 'a' && c <= 'z') ? static_cast<WCHAR>(c - 'a' + 'A') : c;
    return text;
}

std::string Utf16LeBytes(const WString& text) {
    std::string bytes;
    bytes.reserve(2 * text.size());
    for (WCHAR unit : text) {
        bytes += static_cast<char>(static_cast<uint16_t>(unit) & 0xFF);
        bytes += static_cast<char>(static_cast<uint16_t>(unit) >> 8);
    }
    return bytes;
}

WString FromUtf16Le(const uint8_t* bytes, size_t units) {
    WString text(units, 0);
    for (size_t i = 0; i < units; ++i) text[i] = static_cast<WCHAR>(bytes[2 * i] | bytes[2 * i + 1] << 8);
    return text;
}

std::string Hex8(DWORD number) {
    char text[9];
    std::snprintf(text, sizeof text, "%08X", static_cast<unsigned>(number));
    return text;
}

bool IsUtf8(const std::string& utf8) {
    for (size_t i = 0; i < utf8.size();) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        const size_t extra = c < 0x80 ? 0 : c >= 0xC2 && c < 0xE0 ? 1 : c >= 0xE0 && c < 0xF0 ? 2 : c >= 0xF0 && c < 0xF5 ? 3 : 9;
        if (extra == 9 || i + extra >= utf8.size() + (extra ? 0 : 1)) return false;
        char32_t cp = extra == 0 ? c : c & (0x3F >> extra);
        for (size_t k = 1; k <= extra; ++k) {
            const auto next = static_cast<unsigned char>(utf8[i + k]);
            if ((next & 0xC0) != 0x80) return false;
            cp = cp << 6 | (next & 0x3F);
        }
        const char32_t shortest[] = {0, 0x80, 0x800, 0x10000};
        if (cp < shortest[extra] || cp > 0x10FFFF || (cp >= 0xD800 && cp < 0xE000)) return false;
        i += extra + 1;
    }
    return true;
}

std::string Narrow(const WCHAR* utf16, size_t maxUnits) {
    std::string out;
    if (!utf16) return out;
    for (size_t i = 0; i < maxUnits && utf16[i]; ++i) {
        char32_t cp = static_cast<char16_t>(utf16[i]);
        if (cp >= 0xD800 && cp < 0xDC00 && i + 1 < maxUnits && utf16[i + 1] >= 0xDC00 && utf16[i + 1] < 0xE000) {
            cp = 0x10000 + ((cp - 0xD800) << 10) + (static_cast<char16_t>(utf16[++i]) - 0xDC00);
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
    return out;
}

}  // namespace hmitool
