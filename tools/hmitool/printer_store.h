// Writing a store image into a printer: on Windows a spooler printer through SetPrinterDataExW, on
// Linux the store file that OpenPrinterW reads for the printer's name.
#ifndef HMITOOL_PRINTER_STORE_H
#define HMITOOL_PRINTER_STORE_H

#include <string>

#include "store_image.h"

namespace hmitool {

// Whether a STORE argument names a store file (a path, or a name ending in .reg) rather than a printer.
bool IsStoreFileName(const std::string& name);

// Replaces the printer's media database with image; false with error set when it cannot.
bool WritePrinterStore(const std::string& printer, const StoreImage& image, const std::string& comment,
                       std::string* error);

}  // namespace hmitool

#endif
