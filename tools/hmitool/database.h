// A printer opened with its media database loaded through HMIOpen, as a driver component does it.
#ifndef HMITOOL_DATABASE_H
#define HMITOOL_DATABASE_H

#include <string>
#include <vector>

#include "printer.h"
#include "text.h"

namespace hmitool {

class Database {
public:
    Database() = default;
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    // Prints the reason to stderr and returns false when the printer or its database cannot be opened.
    bool Open(const std::string& printerName);

    HMIAccess* access() const { return access_; }
    HANDLE printer() const { return printer_.handle(); }
    std::vector<WString> MediaIds() const;

private:
    Printer printer_;
    HMIAccess* access_ = nullptr;
};

}  // namespace hmitool

#endif
