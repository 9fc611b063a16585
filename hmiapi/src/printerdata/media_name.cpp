#include "printerdata/media_name.h"

#include <algorithm>

#include "printerdata/printer_data_read.h"

namespace {

constexpr size_t kDirectChars = 1 << 15;  // offered as they are

}  // namespace

bool ReadMediaName(HANDLE printer, const HMIPopHeader& database, const WCHAR* mediaId, const WCHAR* language,
                   WCHAR* buffer, size_t bufferChars, size_t* requiredChars) {
    if (!printer || !mediaId || !language || !requiredChars) return false;
    const _tagHMIMediaInfoHeader* header = database.HeaderMap().Find(mediaId);
    if (!header) return false;
    *requiredChars = 0;

    WCHAR nameKey[HMI_KEY_NAME_CAPACITY];
    if (!FormatMediumKey(nameKey, header->media_number, HMI_W("HMN"))) return false;

    // The spooler takes a 32-bit byte count and may marshal all of the buffer it is offered: a large
    // buffer is offered only as large as the stored value, which a probe tells first.
    DWORD type = 0;
    DWORD needed = 0;
    DWORD bytes = static_cast<DWORD>(bufferChars * 2);
    if (!buffer) {
        bytes = 0;
    } else if (bufferChars > kDirectChars) {
        const DWORD probe = GetPrinterDataExW(printer, nameKey, language, &type, nullptr, 0, &needed);
        if (probe == ERROR_SUCCESS) return true;  // nothing stored, nothing to copy
        if (probe != ERROR_MORE_DATA) return false;
        bytes = std::max<DWORD>(needed, 2);
    }
    const DWORD result =
        GetPrinterDataExW(printer, nameKey, language, &type, reinterpret_cast<LPBYTE>(buffer), bytes, &needed);
    if (result == ERROR_SUCCESS) return true;
    if (result == ERROR_MORE_DATA) *requiredChars = needed / 2 + 1;
    return false;
}
