// Writes a store back as a UTF-8 registry export with the 5.00 header, in the form ParseStore reads.
#ifndef HMI_SPOOL_STORE_WRITER_H
#define HMI_SPOOL_STORE_WRITER_H

#include <string>

#include "printer_store.h"

namespace hmispool {

// Keys in path order, the root as "[]" and only when it has values; a path that would read as a
// deletion ("-...") or as a real registry's ("HKEY_...") is written below an absolute printer key. REG_SZ data that is a
// terminated single-line text goes out as "text", a 4-byte REG_DWORD as dword:, the rest as hex
// lists wrapped with continuation lines. False when a name is not valid UTF-16.
bool FormatStore(const PrinterStore& store, std::string& out);

// Whether a key path or value name can be written: valid UTF-16 without line breaks.
bool IsWritableName(std::u16string_view name);

}  // namespace hmispool

#endif
