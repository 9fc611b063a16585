// A document file as UTF-8 for the parser. libxml2 2.9 crashes when it runs out of memory while it
// switches to another encoding, so files are decoded here (iconv) and parsed as UTF-8 only.
#ifndef HMI_POSIX_MSXML_FILE_TEXT_H
#define HMI_POSIX_MSXML_FILE_TEXT_H

#include <cstddef>

// Largest file loaded; MSXML has no such limit, but a driver's documents are a few hundred KB.
constexpr size_t kMaxDocumentFileBytes = 256u << 20;

// The file's text in UTF-8 (zero-terminated, on the substitute's allocator, freed with HMIComFree):
// the encoding from a byte-order mark, else from the XML declaration, else UTF-8. Null with *reason
// set when the file cannot be read (missing, not a regular file, too large), names an encoding
// iconv does not know, does not decode, or memory runs out.
char* HMIReadFileAsUtf8(const char* path, size_t* length, const char** reason);

#endif
