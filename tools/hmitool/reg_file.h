// A store image as regedit writes a registry export: UTF-16LE with a byte-order mark, CRLF line ends,
// binary values in hex lists wrapped at 80 columns. regedit /s imports it on Windows; the Linux store
// reads it as a printer.
#ifndef HMITOOL_REG_FILE_H
#define HMITOOL_REG_FILE_H

#include <string>

#include "store_image.h"

namespace hmitool {

// keyPrefix is put before every key path: empty for paths relative to the printer, or a printer's
// registry key ending in a backslash. comment is a line of its own below the header, none when empty.
std::string RegFileBytes(const StoreImage& image, const WString& keyPrefix, const std::string& comment);

// The registry key of the spooler printer name, below which its printer data lies, with a final backslash.
WString PrinterRegistryKey(const std::string& printerName);

// Writes bytes to path through a temporary file beside it, renamed over path only once it is complete:
// on failure path is left as it was and error says why.
bool WriteFileReplacing(const std::string& path, const std::string& bytes, std::string* error);

}  // namespace hmitool

#endif
