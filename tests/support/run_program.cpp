#include "support/run_program.h"

namespace hmitest {

std::string Utf8(const std::basic_string<WCHAR>& text) {
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t c = static_cast<char16_t>(text[i]);
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size()) c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
        const int extra = c < 0x80 ? 0 : c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
        out += static_cast<char>(extra == 0 ? c : (0xF0 << (3 - extra)) | (c >> (6 * extra)));
        for (int k = extra - 1; k >= 0; --k) out += static_cast<char>(0x80 | ((c >> (6 * k)) & 0x3F));
    }
    return out;
}

}  // namespace hmitest
