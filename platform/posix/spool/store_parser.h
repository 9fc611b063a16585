// Reads a store file: a registry export of one printer's data (see store_writer.h for the output side).
#ifndef HMI_SPOOL_STORE_PARSER_H
#define HMI_SPOOL_STORE_PARSER_H

#include <cstddef>
#include <string>

#include "printer_store.h"

namespace hmispool {

struct ParseError {
    size_t line = 0;  // 1-based
    const char* message = "";
};

// Fills an empty store from the file's bytes (UTF-8 with an optional byte-order mark, or UTF-16LE
// with one), which it frees once decoded. On failure the store must be discarded; error tells the
// first malformed line.
bool ParseStore(std::string bytes, PrinterStore& store, ParseError& error);

}  // namespace hmispool

#endif
