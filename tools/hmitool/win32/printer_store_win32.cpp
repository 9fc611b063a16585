#include <windows.h>
#include <winspool.h>

#include <string>
#include <utility>
#include <vector>

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

// The values of a key: names and, for texts, the text. Empty when the key is missing.
std::vector<std::pair<std::wstring, std::wstring>> Values(HANDLE printer, const std::wstring& key) {
    std::vector<std::pair<std::wstring, std::wstring>> values;
    DWORD needed = 0, count = 0;
    if (EnumPrinterDataExW(printer, key.c_str(), nullptr, 0, &needed, &count) != ERROR_MORE_DATA) return values;
    std::vector<BYTE> block(needed);
    if (EnumPrinterDataExW(printer, key.c_str(), block.data(), needed, &needed, &count) != ERROR_SUCCESS) return values;
    const auto* entries = reinterpret_cast<const PRINTER_ENUM_VALUESW*>(block.data());
    for (DWORD i = 0; i < count; ++i) {
        const auto* text = reinterpret_cast<const WCHAR*>(entries[i].pData);
        values.emplace_back(entries[i].pValueName,
                            entries[i].dwType == REG_SZ ? std::wstring(text, wcsnlen(text, entries[i].cbData / 2)) : L"");
    }
    return values;
}

void ClearKey(HANDLE printer, const std::wstring& key) {
    for (const auto& value : Values(printer, key)) DeletePrinterDataExW(printer, key.c_str(), value.first.c_str());
}

// Removes the values of the database the printer holds: the media key's, and those of every listed
// medium's keys. (The keys stay, empty: Wine's spooler has no DeletePrinterKeyW.)
void ClearDatabase(HANDLE printer) {
    for (const auto& value : Values(printer, kMediaKey)) {
        const bool listed = value.first.size() >= 3 && value.first.find_first_not_of(L"0123456789") == std::wstring::npos;
        if (!listed || value.second.empty()) continue;
        const std::wstring medium = std::wstring(kMediaKey) + L"\\" + value.second;
        for (const WCHAR* leaf : {L"", L"\\HMI", L"\\HMN"}) ClearKey(printer, medium + leaf);
    }
    ClearKey(printer, kMediaKey);
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
