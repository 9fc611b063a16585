// Linux: the printer is a store file of libhmispool in a private temporary directory.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "support/printer_fixture.h"

namespace hmitest {
namespace backend {

bool CreatePrinter(std::basic_string<WCHAR>& name, const WCHAR*) {
    const char* temp = std::getenv("TMPDIR");
    std::string directory = std::string(temp && *temp ? temp : "/tmp") + "/hmi-printer-XXXXXX";
    if (!::mkdtemp(directory.data())) return false;
    const std::string path = directory + "/printer.reg";  // ASCII, so widened unit by unit
    name.assign(path.begin(), path.end());
    return bool(std::ofstream(path, std::ios::binary) << "Windows Registry Editor Version 5.00\n");
}

HANDLE OpenTestPrinter(const WCHAR* name) {
    HANDLE handle = nullptr;
    return OpenPrinterW(const_cast<WCHAR*>(name), &handle, nullptr) ? handle : nullptr;
}

void DestroyPrinter(HANDLE handle, const WCHAR* name) {
    if (handle) ClosePrinter(handle);
    std::error_code ignored;
    std::filesystem::remove_all(std::filesystem::path(std::u16string(name)).parent_path(), ignored);
}

DWORD DeleteValue(HANDLE handle, const WCHAR*, const WCHAR* key, const WCHAR* value) {
    return DeletePrinterDataExW(handle, key, value);
}

}  // namespace backend
}  // namespace hmitest
