#include "printerdata/printer_data_values.h"

#include <new>
#include <string>

bool EnumPrinterDataValues(HANDLE printer, const WCHAR* key, HMIPrinterDataValues* out) {
    if (!printer || !key || !out) return false;
    DWORD needed = 0;
    DWORD returned = 0;
    if (EnumPrinterDataExW(printer, key, nullptr, 0, &needed, &returned) != ERROR_MORE_DATA || needed == 0) {
        return false;
    }
    std::unique_ptr<BYTE[]> block(new (std::nothrow) BYTE[needed]());
    if (!block) return false;
    if (EnumPrinterDataExW(printer, key, block.get(), needed, &needed, &returned) != ERROR_SUCCESS) return false;
    out->count = returned;
    out->values = std::move(block);
    return true;
}

const PRINTER_ENUM_VALUESW* FindPrinterDataValue(const HMIPrinterDataValues& values, const WCHAR* name) {
    if (!name || !values.values) return nullptr;
    const auto length = std::char_traits<WCHAR>::length(name);
    for (DWORD i = 0; i < values.count; ++i) {
        const PRINTER_ENUM_VALUESW& entry = values.entries()[i];
        const WCHAR* entryName = entry.pValueName;
        if (entryName && std::char_traits<WCHAR>::length(entryName) == length &&
            std::char_traits<WCHAR>::compare(entryName, name, length) == 0) {
            return &entry;
        }
    }
    return nullptr;
}

int64_t HMIListIndexOf(const WCHAR* name) {
    if (!name) return -1;
    size_t length = 0;
    int64_t index = 0;
    for (; name[length]; ++length) {
        if (name[length] < '0' || name[length] > '9' || length >= 10) return -1;
        index = index * 10 + (name[length] - '0');
    }
    if (length < 3 || (length > 3 && name[0] == '0') || index > 0xFFFFFFFFll) return -1;
    return index;
}
