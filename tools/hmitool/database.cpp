#include "database.h"

#include <cstdio>

#include "sized_read.h"

namespace hmitool {

Database::~Database() { HMIClose(access_); }

bool Database::Open(const std::string& printerName) {
    std::string error;
    if (!printer_.Open(printerName, &error)) {
        std::fprintf(stderr, "hmitool: %s\n", error.c_str());
        return false;
    }
    access_ = HMIOpen(printer_.handle());
    if (!access_) {
        std::fprintf(stderr,
                     "hmitool: the media database of '%s' cannot be loaded (PrinterDriverData\\Media lacks "
                     "db_format_ver, product_id, pop-db-time or papertype_info_list, or one is oversized)\n",
                     printerName.c_str());
        return false;
    }
    return true;
}

std::vector<WString> Database::MediaIds() const {
    return ReadMediaIds([this](_tagHMIAvailableMedia* buffer, size_t bytes, size_t* required) {
        return HMIGetAvailableMedia(access_, buffer, bytes, required);
    });
}

}  // namespace hmitool
