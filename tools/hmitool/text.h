// Conversions between the tool's UTF-8 command line and output and the library's UTF-16.
#ifndef HMITOOL_TEXT_H
#define HMITOOL_TEXT_H

#include <string>

#include "platform/platform.h"

namespace hmitool {

using WString = std::basic_string<WCHAR>;

WString Widen(const std::string& utf8);
// Reads at most maxUnits units (a fixed field may lack its terminator).
// Whether utf8 is well-formed UTF-8: shortest forms, no surrogates, nothing above U+10FFFF.
bool IsUtf8(const std::string& utf8);
// Upper case for the ASCII letters only, as ids and numbers compare in printer-data keys.
WString AsciiUpper(WString text);
std::string Narrow(const WCHAR* utf16, size_t maxUnits = static_cast<size_t>(-1));

}  // namespace hmitool

#endif
