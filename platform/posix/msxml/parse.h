// Loading with MSXML's defaults: no DTD under 6.0, nothing external, bounded depth, white space
// dropped at load with marks left for the text property.
#ifndef HMI_POSIX_MSXML_PARSE_H
#define HMI_POSIX_MSXML_PARSE_H

#include <cstddef>
#include <libxml/tree.h>
#include "posix/msxml/dom_tree.h"

// Element depth beyond which a document is refused (MSXML 6.0's MaxElementDepth; also the 3.0
// emulation's bound, as libxml2 refuses deeper documents without XML_PARSE_HUGE).
constexpr int kMaxElementDepth = 256;

// Why a load failed: libxml2's first error, or the substitute's own refusal, with where it happened
// (line and column 1-based, 0 when unknown). A fixed buffer, so that recording it cannot fail.
struct ParseFailure {
    bool failed = false;
    long line = 0, column = 0;
    char reason[160] = {};
};

// UTF-8 text, any encoding declaration ignored; null when not loaded, with *failure filled.
xmlDocPtr HMIParseText(const char* text, size_t length, DomVersion version, ParseFailure* failure);
// A local path or file:// URL, encoding from BOM or declaration (see file_text.h); null when not loaded.
xmlDocPtr HMIParseFile(const char* location, DomVersion version, ParseFailure* failure, size_t* textBytes);

#endif
