#include "request_values.h"

#include <cstring>

namespace hmitool {
namespace {

const char kVariantPrefix[] = "printquality_";

int DigitValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    return (c | 0x20) - 'a' + 10;
}

}  // namespace

NumberText ParseNumber(const std::string& text, uint32_t* value) {
    const bool hex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    const std::string digits = text.substr(hex ? 2 : 0);
    const char* const allowed = hex ? "0123456789abcdefABCDEF" : "0123456789";
    if (digits.empty() || digits.find_first_not_of(allowed) != std::string::npos) return NumberText::kNotANumber;
    uint64_t number = 0;
    for (char c : digits) {
        number = number * (hex ? 16 : 10) + DigitValue(c);
        if (number > UINT32_MAX) return NumberText::kTooLarge;
    }
    *value = static_cast<uint32_t>(number);
    return NumberText::kNumber;
}

std::string KeywordList(const HMITagIDEntry* table, size_t count) {
    std::string list;
    for (size_t i = 0; i < count; ++i) list += (i ? ", " : "") + Narrow(table[i].keyword);
    return list;
}

std::string VariantWord(DWORD variant) { return kQualityVariants[variant] + std::strlen(kVariantPrefix); }

bool ParseVariant(const std::string& text, DWORD* variant, std::string* error) {
    uint32_t number = 0;
    if (ParseNumber(text, &number) == NumberText::kNumber && number < 4) {
        *variant = number;
        return true;
    }
    for (DWORD v = 0; v < 4; ++v) {
        if (text == VariantWord(v)) {
            *variant = v;
            return true;
        }
    }
    *error = "not a variant (rgb, cmyk_4DLUT, cmyk_1DLUT, index or 0 to 3)";
    return false;
}

}  // namespace hmitool
