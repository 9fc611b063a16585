// An open spooler printer (Windows) or printer-data store (Linux), closed on destruction.
#ifndef HMITOOL_PRINTER_H
#define HMITOOL_PRINTER_H

#include <string>

#include "platform/platform.h"

namespace hmitool {

class Printer {
public:
    Printer() = default;
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;
    ~Printer();

    // A printer name on Windows; a store file or store name on Linux. On failure, error says why.
    bool Open(const std::string& name, std::string* error);
    HANDLE handle() const { return handle_; }

private:
    HANDLE handle_ = nullptr;
};

}  // namespace hmitool

#endif
