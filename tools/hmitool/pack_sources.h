// Readable sources (database.xml, names/ID.xml, media/ID.xml) made into the printer data a driver's
// setup writes, after checking that the library reads every part of them.
#ifndef HMITOOL_PACK_SOURCES_H
#define HMITOOL_PACK_SOURCES_H

#include <string>
#include <vector>

#include "store_image.h"

namespace hmitool {

struct PackSettings {
    size_t chunkBytes = 4096;    // bytes of a document chunk
    bool keepRejected = false;   // a document the parser rejects is a warning, not an error
};

struct PackResult {
    StoreImage image;                   // complete only when errors is empty
    std::vector<std::string> errors;    // each "FILE: reason"
    std::vector<std::string> warnings;
    size_t media = 0, chunks = 0;
};

PackResult PackSources(const std::string& directory, const PackSettings& settings);

// A document's bytes as the UTF-16LE text the library parses from its chunks: UTF-8 (with or without
// byte-order mark) or UTF-16LE with one; a declared encoding becomes UTF-16. False with error set for
// other encodings and malformed text.
bool DocumentUtf16(const std::string& bytes, std::vector<uint8_t>* utf16, std::string* error);

}  // namespace hmitool

#endif
