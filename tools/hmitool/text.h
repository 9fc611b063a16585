// Conversions between the tool's UTF-8 command line and output and the library's UTF-16.
#ifndef HMITOOL_TEXT_H
#define HMITOOL_TEXT_H

#include <cstdint>
#include <string>

#include "platform/platform.h"

namespace hmitool {

using WString = std::basic_string<WCHAR>;

WString Widen(const std::string& utf8);
// Reads at most maxUnits units (a fixed field may lack its terminator).
std::string Narrow(const WCHAR* utf16, size_t maxUnits = static_cast<size_t>(-1));
// Whether utf8 is well-formed UTF-8: shortest forms, no surrogates, nothing above U+10FFFF.
bool IsUtf8(const std::string& utf8);
// Upper case for the ASCII letters only, as ids and numbers compare in printer-data keys.
WString AsciiUpper(WString text);

// UTF-16 as little-endian bytes, as printer data and .reg files hold it, and back (units of them).
std::string Utf16LeBytes(const WString& text);
WString FromUtf16Le(const uint8_t* bytes, size_t units);

// A media number as printer-data keys spell it: eight upper-case hex digits.
std::string Hex8(DWORD number);

}  // namespace hmitool

#endif
