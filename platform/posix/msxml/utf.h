// UTF-16 (BSTR side) and UTF-8 (libxml2 side) conversions on the substitute's allocator.
#ifndef HMI_POSIX_MSXML_UTF_H
#define HMI_POSIX_MSXML_UTF_H

#include <cstddef>
#include "posix/com/com.h"

// A zero-terminated UTF-8 copy of the zero-terminated UTF-16 text (a lone surrogate becomes U+FFFD),
// freed with HMIComFree; null when memory runs out. *length, when given, receives the byte count.
char* HMIUtf16ToUtf8(const WCHAR* text, size_t* length);

// Number of UTF-16 units that the UTF-8 bytes need; invalid sequences count as U+FFFD.
size_t HMIUtf16Length(const unsigned char* text, size_t length);

// Writes the UTF-16 form of the UTF-8 bytes to out (HMIUtf16Length units) and returns the end.
WCHAR* HMIUtf8ToUtf16(const unsigned char* text, size_t length, WCHAR* out);

// A BSTR holding the UTF-8 text (null text gives an empty BSTR); null when memory runs out.
BSTR HMIBstrFromUtf8(const unsigned char* text);

#endif
