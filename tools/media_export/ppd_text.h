// PPD keywords and translation strings from arbitrary text.
#ifndef MEDIA_EXPORT_PPD_TEXT_H
#define MEDIA_EXPORT_PPD_TEXT_H

#include <cstdint>
#include <string>

namespace mediaexport {

// FNV-1a of the bytes, for derived keywords.
uint32_t TextHash(const std::string& text);

// A translation string (the text after '/'): UTF-8 of at most 80 bytes once decoded, whole characters
// only; ':', '<', '>' and control characters as <hex>; a byte that starts no valid character is '?'.
std::string PpdTranslation(const std::string& utf8);

// Whether the text is 7-bit: the main (unlocalised) strings must be, for cupstestppd.
bool IsAscii(const std::string& text);

// A quoted value's inside: printable ASCII without '"'.
std::string PpdQuotedAscii(const std::string& text);

}  // namespace mediaexport

#endif
