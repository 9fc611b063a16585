// Linux: the printer is a store file of libhmispool in a private temporary directory.
#include "support/printer_backend.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace hmitest {
namespace backend {

namespace {

// Temporary paths are ASCII here; anything else is refused rather than mistranslated.
bool Widen(const std::string& text, std::basic_string<WCHAR>& wide) {
    wide.clear();
    for (char c : text) {
        if (static_cast<unsigned char>(c) >= 0x80) return false;
        wide.push_back(static_cast<WCHAR>(c));
    }
    return true;
}

std::string Narrow(const WCHAR* wide) {
    std::string text;
    for (; *wide; ++wide) text.push_back(static_cast<char>(*wide));
    return text;
}

}  // namespace

bool CreatePrinter(std::basic_string<WCHAR>& name) {
    const char* temp = std::getenv("TMPDIR");
    std::string directory = std::string(temp && *temp ? temp : "/tmp") + "/hmi-printer-XXXXXX";
    if (!::mkdtemp(directory.data())) return false;
    std::string path = directory + "/printer.reg";
    std::FILE* file = std::fopen(path.c_str(), "wb");
    bool written = file && std::fputs("Windows Registry Editor Version 5.00\n", file) >= 0;
    if (file && std::fclose(file) != 0) written = false;
    if (written && Widen(path, name)) return true;
    std::error_code ignored;
    std::filesystem::remove_all(directory, ignored);
    return false;
}

HANDLE OpenTestPrinter(const WCHAR* name) {
    HANDLE handle = nullptr;
    return OpenPrinterW(const_cast<WCHAR*>(name), &handle, nullptr) ? handle : nullptr;
}

void DestroyPrinter(HANDLE handle, const WCHAR* name) {
    if (handle) ClosePrinter(handle);
    std::error_code ignored;
    std::filesystem::remove_all(std::filesystem::path(Narrow(name)).parent_path(), ignored);
}

DWORD DeleteValue(HANDLE handle, const WCHAR*, const WCHAR* key, const WCHAR* value) {
    return DeletePrinterDataExW(handle, key, value);
}

}  // namespace backend
}  // namespace hmitest
