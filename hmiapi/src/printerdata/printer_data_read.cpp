#include "printerdata/printer_data_read.h"

#include <new>

#include "common/hmi_string.h"

const WCHAR* const HMI_MEDIA_KEY = HMI_W("PrinterDriverData\\Media");

bool FormatMediumKey(WCHAR (&key)[HMI_KEY_NAME_CAPACITY], DWORD mediaNumber, const WCHAR* leaf) {
    return HMIFormatFixed(key, HMI_KEY_NAME_CAPACITY, HMI_W("%s\\%08X\\%s"), HMI_MEDIA_KEY, mediaNumber, leaf);
}

bool ReadPrinterDataFixed(HANDLE printer, const WCHAR* key, const WCHAR* valueName, void* buffer, DWORD size) {
    DWORD type = 0;
    DWORD needed = 0;
    return GetPrinterDataExW(printer, key, valueName, &type, static_cast<LPBYTE>(buffer), size, &needed) ==
           ERROR_SUCCESS;
}

std::unique_ptr<WCHAR[]> ReadPrinterDataText(HANDLE printer, const WCHAR* key, const WCHAR* valueName) {
    DWORD type = 0;
    DWORD needed = 0;
    if (GetPrinterDataExW(printer, key, valueName, &type, nullptr, 0, &needed) != ERROR_MORE_DATA || needed == 0) {
        return nullptr;
    }
    // Room for a terminator after any stored size, so that parsing never reads past the value.
    size_t units = (static_cast<size_t>(needed) + 1) / 2 + 1;
    std::unique_ptr<WCHAR[]> text(new (std::nothrow) WCHAR[units]());
    if (!text) return nullptr;
    if (GetPrinterDataExW(printer, key, valueName, &type, reinterpret_cast<LPBYTE>(text.get()), needed, &needed) !=
        ERROR_SUCCESS) {
        return nullptr;
    }
    return text;
}
