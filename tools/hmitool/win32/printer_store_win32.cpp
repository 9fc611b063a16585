#include <windows.h>
#include <winspool.h>

#include "printer_store.h"

namespace hmitool {
namespace {

const WCHAR kMediaKey[] = L"PrinterDriverData\\Media";

std::string ErrorText(DWORD code) {
    WCHAR message[512] = {};
    FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0, message, 512, nullptr);
    std::string text = "error " + std::to_string(code) + ": " + Narrow(message);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    return text;
}

// Every value of image, after the old database is gone. A value that cannot be set takes the whole
// database away again, so that the library finds none rather than part of one.
DWORD WriteImage(HANDLE printer, const StoreImage& image) {
    DWORD status = DeletePrinterKeyW(printer, kMediaKey);
    if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) return status;
    for (const StoreKey& key : image) {
        for (const StoreValue& value : key.values) {
            status = SetPrinterDataExW(printer, key.path.c_str(), value.name.c_str(), value.type,
                                       const_cast<BYTE*>(value.data.data()), static_cast<DWORD>(value.data.size()));
            if (status != ERROR_SUCCESS) {
                DeletePrinterKeyW(printer, kMediaKey);
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
        *error = "cannot open printer '" + printer + "' for writing (" + ErrorText(GetLastError()) + ")";
        return false;
    }
    const DWORD status = WriteImage(handle, image);
    ClosePrinter(handle);
    if (status == ERROR_SUCCESS) return true;
    *error = "cannot write the media database of printer '" + printer + "' (" + ErrorText(status) + ")";
    return false;
}

}  // namespace hmitool
