#include <windows.h>
#include <winspool.h>

#include "printer_store.h"
#include "printerdata/printer_data_values.h"
#include "printerdata/printer_data_read.h"
#include "system_error.h"

namespace hmitool {
namespace {

void ClearKey(HANDLE printer, const WCHAR* key) {
    HMIPrinterDataValues values;
    if (!EnumPrinterDataValues(printer, key, &values)) return;
    for (DWORD i = 0; i < values.count; ++i) DeletePrinterDataExW(printer, key, values.entries()[i].pValueName);
}

// Removes the values of the database the printer holds: the media key's, and those of every listed
// medium's keys. (The keys stay, empty: Wine's spooler has no DeletePrinterKeyW.)
void ClearDatabase(HANDLE printer) {
    HMIPrinterDataValues values;
    if (!EnumPrinterDataValues(printer, HMI_MEDIA_KEY, &values)) return;
    for (DWORD i = 0; i < values.count; ++i) {
        const PRINTER_ENUM_VALUESW& value = values.entries()[i];
        const WString number = StoredText(value);
        if (HMIListIndexOf(value.pValueName) < 0 || number.empty()) continue;
        const WString medium = WString(HMI_MEDIA_KEY) + L"\\" + number;
        for (const WCHAR* leaf : {L"", L"\\HMI", L"\\HMN"}) ClearKey(printer, (medium + leaf).c_str());
    }
    ClearKey(printer, HMI_MEDIA_KEY);
}

// Every value of image, after the old database is gone. A value that cannot be set takes the whole
// database away again, so that the library finds none rather than part of one.
DWORD WriteImage(HANDLE printer, const StoreImage& image) {
    ClearDatabase(printer);
    for (const StoreKey& key : image) {
        for (const StoreValue& value : key.values) {
            const DWORD status = SetPrinterDataExW(printer, key.path.c_str(), value.name.c_str(), value.type,
                                                   const_cast<BYTE*>(value.data.data()),
                                                   static_cast<DWORD>(value.data.size()));
            if (status != ERROR_SUCCESS) {
                ClearDatabase(printer);
                return status;
            }
        }
    }
    return ERROR_SUCCESS;
}

}  // namespace

bool IsStoreFileName(const std::string& name) {
    return name.find_first_of("/\\") != std::string::npos ||
           (name.size() >= 4 && CompareStringOrdinal(Widen(name.substr(name.size() - 4)).c_str(), 4, L".reg", 4, TRUE) == CSTR_EQUAL);
}

bool WritePrinterStore(const std::string& printer, const StoreImage& image, const std::string&, std::string* error) {
    WString name = Widen(printer);
    PRINTER_DEFAULTSW access = {nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE handle = nullptr;
    if (!OpenPrinterW(&name[0], &handle, &access)) {
        *error = "cannot open printer '" + printer + "' for writing (" + SystemErrorText(GetLastError()) + ")";
        return false;
    }
    const DWORD status = WriteImage(handle, image);
    ClosePrinter(handle);
    if (status == ERROR_SUCCESS) return true;
    *error = "cannot write the media database of printer '" + printer + "' (" + SystemErrorText(status) + ")";
    return false;
}

}  // namespace hmitool
