// Values of a cascade request on the command line: a level's keyword, else a number (decimal or 0x
// hexadecimal, up to 32 bits) passed to the library as it is, whether its enumeration has it or not.
#ifndef HMITOOL_REQUEST_VALUES_H
#define HMITOOL_REQUEST_VALUES_H

#include <cstdint>
#include <string>

#include "record_fields.h"
#include "text.h"

namespace hmitool {

enum class NumberText { kNumber, kNotANumber, kTooLarge };
NumberText ParseNumber(const std::string& text, uint32_t* value);

// The keywords of a converter, comma-separated, for messages.
std::string KeywordList(const HMITagIDEntry* table, size_t count);

// A keyword takes precedence: print quality "1" is the keyword of value 0; 0x1 is the value 1.
template <typename E>
bool ParseValue(const std::string& text, const HMITagIDConverter<E>& words, E* value, std::string* error) {
    const E keyword = words.Convert(Widen(text).c_str());
    if (keyword != words.InvalidValue()) {
        *value = keyword;
        return true;
    }
    uint32_t number = 0;
    switch (ParseNumber(text, &number)) {
    case NumberText::kNumber:
        *value = static_cast<E>(number);
        return true;
    case NumberText::kTooLarge:
        *error = "number out of 32-bit range";
        return false;
    case NumberText::kNotANumber:
        break;
    }
    *error = "neither a keyword (" + KeywordList(words.Table(), words.EntryCount()) + ") nor a number";
    return false;
}

// A print-quality variant: rgb, cmyk_4DLUT, cmyk_1DLUT, index or its number 0 to 3.
bool ParseVariant(const std::string& text, DWORD* variant, std::string* error);

// The variant's keyword: its element name without "printquality_".
std::string VariantWord(DWORD variant);

}  // namespace hmitool

#endif
