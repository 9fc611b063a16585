// IPP keywords of the library's values, and of media ids as media-type keywords.
#ifndef MEDIA_EXPORT_IPP_KEYWORDS_H
#define MEDIA_EXPORT_IPP_KEYWORDS_H

#include <string>

namespace mediaexport {

// Keywords of tagHMI_COLORMODE (print-color-mode), _tagHMI_INPUTBIN (media-source),
// tagHMI_PRINTPURPOSE (xrvhmi-print-purpose) and tagHMI_CARTRIDGE (xrvhmi-cartridge) values; null for
// a value outside the vocabulary.
const char* IppColorMode(int colorMode);
const char* IppMediaSource(int inputSlot);
const char* IppPurpose(int purpose);
const char* IppCartridge(int cartridge);

// Lowercase letters, digits, '-', '_' and '.', starting with a letter, at most 255 bytes.
bool IsIppKeyword(const std::string& word);

// The media-type an id asks for before any clash is settled: the PWG keyword of a few whole ids
// (PlainPaper -> stationery), else the id's words in lowercase joined by '-' ("PhotoGlossyPro" ->
// "photo-glossy-pro"). Words end at a change from lowercase or a digit to uppercase, before the last of
// a run of capitals followed by lowercase ("CDLabel" -> "cd-label"), and at any other ASCII character;
// bytes outside ASCII are dropped. At most 64 characters. It may be empty or start with a digit.
std::string PlainMediaType(const std::string& id);

}  // namespace mediaexport

#endif
