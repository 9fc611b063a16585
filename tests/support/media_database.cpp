#include "support/media_database.h"

#include <algorithm>
#include <cstdio>

namespace hmitest {

const WCHAR* const kMediaKey = HMI_W("PrinterDriverData\\Media");

WString W(const std::string& ascii) { return WString(ascii.begin(), ascii.end()); }

WString MediumKey(DWORD mediaNumber, const char* leaf) {
    char text[64];
    std::snprintf(text, sizeof text, "\\%08X\\%s", static_cast<unsigned>(mediaNumber), leaf);
    return kMediaKey + W(text);
}

bool WriteDatabase(TestPrinter& printer, const std::vector<MediumEntry>& media, long listCount) {
    bool ok = printer.SetText(kMediaKey, HMI_W("db_format_ver"), HMI_W("2.10")) &&
              printer.SetText(kMediaKey, HMI_W("product_id"), HMI_W("XR-2400")) &&
              printer.SetText(kMediaKey, HMI_W("pop-db-time"), HMI_W("2026-11-23 09:30:00")) &&
              printer.SetDword(kMediaKey, HMI_W("papertype_info_list"),
                               static_cast<DWORD>(listCount < 0 ? media.size() : listCount));
    for (size_t i = 0; ok && i < media.size(); ++i) {
        char name[24];
        std::snprintf(name, sizeof name, "%03zu", i);
        const MediumEntry& m = media[i];
        const WString subkey = kMediaKey + W("\\" + m.number);
        ok = printer.SetText(kMediaKey, W(name).c_str(), W(m.number).c_str()) &&
             printer.SetText(subkey.c_str(), HMI_W("id"), W(m.id).c_str()) &&
             printer.SetDword(subkey.c_str(), HMI_W("valid"), m.valid) &&
             printer.SetDword(subkey.c_str(), HMI_W("visible"), m.visible) &&
             printer.SetText(subkey.c_str(), HMI_W("checksum"), W(m.checksum).c_str());
    }
    return ok;
}

bool WriteMediaDocument(TestPrinter& printer, DWORD mediaNumber, const WString& document, size_t chunkUnits) {
    const WString key = MediumKey(mediaNumber, "HMI");
    DWORD chunks = 0;
    bool ok = true;
    for (size_t at = 0; ok && at < document.size(); at += chunkUnits, ++chunks) {
        char name[16];
        std::snprintf(name, sizeof name, "%03u", static_cast<unsigned>(chunks));
        const size_t units = std::min(chunkUnits, document.size() - at);
        ok = printer.Set(key.c_str(), W(name).c_str(), REG_BINARY, document.data() + at,
                         static_cast<DWORD>(units * sizeof(WCHAR)));
    }
    return ok && printer.SetDword(key.c_str(), HMI_W(""), chunks);
}

}  // namespace hmitest
