// Open printers and the registry of live handles: a handle is the address of an OpenPrinter, and
// only addresses in the registry are honoured, so a stale or made-up handle is refused, not used.
#ifndef HMI_SPOOL_PRINTER_HANDLES_H
#define HMI_SPOOL_PRINTER_HANDLES_H

#include <memory>
#include <mutex>
#include <string>

#include "printer_store.h"

namespace hmispool {

struct OpenPrinter {
    std::string path;  // store file
    std::mutex lock;   // guards store and changed
    PrinterStore store;
    bool changed = false;
};

// The printer's handle; throws std::bad_alloc.
void* RegisterPrinter(std::shared_ptr<OpenPrinter> printer);
// The printer of a live handle, or null.
std::shared_ptr<OpenPrinter> FindPrinter(void* handle);
// Takes the printer out of the registry; null when the handle is not live.
std::shared_ptr<OpenPrinter> UnregisterPrinter(void* handle);

}  // namespace hmispool

#endif
