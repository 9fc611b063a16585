// PPD keywords and translation strings from arbitrary text.
#ifndef MEDIA_EXPORT_PPD_TEXT_H
#define MEDIA_EXPORT_PPD_TEXT_H

#include <cstdint>
#include <string>

namespace mediaexport {

// The MediaType choice keyword of a media id: the id itself when it is 1 to 40 characters of ASCII
// letters, digits, '.', '_' and '-'; otherwise its letters, digits, '.', '_' and '-' (others become '_'),
// cut to 31 characters, then '_' and 8 hexadecimal digits of a hash of the whole id, so that two ids
// never share a keyword.
std::string PpdMediaKeyword(const std::string& id);

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
