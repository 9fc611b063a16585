// UTF-8 and UTF-16 conversions and the case folding of key and value names.
#ifndef HMI_SPOOL_UNICODE_H
#define HMI_SPOOL_UNICODE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace hmispool {

constexpr size_t kAllValid = std::string_view::npos;

// Appends the UTF-16 form of strict UTF-8 (no overlong forms, surrogates or code points past
// U+10FFFF); returns the offset of the first invalid byte, or kAllValid.
size_t AppendUtf16FromUtf8(std::string_view utf8, std::u16string& out);

// Offset of the first unpaired surrogate, or kAllValid.
size_t FindUnpairedSurrogate(std::u16string_view text);

// Appends the UTF-8 form; false (out partly appended) when text holds an unpaired surrogate.
bool AppendUtf8FromUtf16(std::u16string_view text, std::string& out);

// Upper-case folding as the registry compares names: Unicode's simple upper-case mapping of each unit.
char16_t FoldCase(char16_t c);
std::u16string Folded(std::u16string_view text);

}  // namespace hmispool

#endif
