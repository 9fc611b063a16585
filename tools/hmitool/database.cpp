#include "database.h"

#include <cstdio>
#include <memory>

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
    std::vector<WString> ids;
    size_t required = 0;
    if (HMIGetAvailableMedia(access_, nullptr, 0, &required) || required < sizeof(_tagHMIAvailableMedia)) return ids;
    std::unique_ptr<uint64_t[]> block(new uint64_t[(required + 7) / 8]);
    auto* media = reinterpret_cast<_tagHMIAvailableMedia*>(block.get());
    if (!HMIGetAvailableMedia(access_, media, required, &required)) return ids;
    for (uint64_t i = 0; i < media->count; ++i) ids.emplace_back(media->ids[i]);
    return ids;
}

}  // namespace hmitool
