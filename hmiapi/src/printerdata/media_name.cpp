#include "printerdata/media_name.h"

#include <algorithm>

#include "printerdata/printer_data_read.h"

bool ReadMediaName(HANDLE printer, const HMIPopHeader& database, const WCHAR* mediaId, const WCHAR* language,
                   WCHAR* buffer, size_t bufferChars, size_t* requiredChars) {
    if (!printer || !mediaId || !language || !requiredChars) return false;
    const _tagHMIMediaInfoHeader* header = database.HeaderMap().Find(mediaId);
    if (!header) return false;
    *requiredChars = 0;

    WCHAR nameKey[HMI_KEY_NAME_CAPACITY];
    if (!FormatMediumKey(nameKey, header->media_number, HMI_W("HMN"))) return false;

    DWORD type = 0;
    DWORD needed = 0;
    // The spooler takes a 32-bit byte count, so a larger buffer is offered as the largest even count; a
    // null buffer is always a size probe.
    const DWORD bytes = buffer ? static_cast<DWORD>(std::min<size_t>(bufferChars, 0x7FFFFFFF) * 2) : 0;
    const DWORD result =
        GetPrinterDataExW(printer, nameKey, language, &type, reinterpret_cast<LPBYTE>(buffer), bytes, &needed);
    if (result == ERROR_SUCCESS) return true;
    if (result == ERROR_MORE_DATA) *requiredChars = needed / 2 + 1;
    return false;
}
