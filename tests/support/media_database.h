// Writes a paper-type database into a test printer, the way a driver's setup stores it.
#ifndef HMI_TEST_MEDIA_DATABASE_H
#define HMI_TEST_MEDIA_DATABASE_H

#include <cstring>
#include <string>
#include <vector>

#include "platform/platform.h"
#include "support/printer_fixture.h"

namespace hmitest {

using WString = std::basic_string<WCHAR>;

// ASCII text as UTF-16.
WString W(const std::string& ascii);

extern const WCHAR* const kMediaKey;

struct MediumEntry {
    std::string number;  // the list entry's text, e.g. "0000001A"
    std::string id;
    DWORD valid = 1;
    DWORD visible = 1;
    std::string checksum = "00112233445566778899AABBCCDDEEFF";
};

// The common values (version "2.10", product "XR-2400", time "2026-11-23 09:30:00"), the list count
// (the number of entries unless given) and every entry with its subkey.
bool WriteDatabase(TestPrinter& printer, const std::vector<MediumEntry>& media, long listCount = -1);

// The medium's media-information document as chunks of chunkUnits UTF-16 units under its HMI key.
bool WriteMediaDocument(TestPrinter& printer, DWORD mediaNumber, const WString& document, size_t chunkUnits);

WString MediumKey(DWORD mediaNumber, const char* leaf);  // "PrinterDriverData\Media\%08X\<leaf>"

// A record of 0xCD bytes, so that a call that writes nothing can be told from one that does.
template <typename R>
R Poisoned() {
    R r;
    std::memset(&r, 0xCD, sizeof r);
    return r;
}
template <typename R>
bool SameBytes(const R& a, const R& b) { return std::memcmp(&a, &b, sizeof a) == 0; }

}  // namespace hmitest

#endif
