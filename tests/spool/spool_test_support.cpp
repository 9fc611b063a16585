// Linux only (the store substitute exists only on Linux): helpers of the libhmispool tests.
#include "spool/spool_test_support.h"

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace spooltest {

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "hmispool-test-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    path_ = pattern;
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::vector<std::string> TempDir::Entries() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path_)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

void WriteFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string ReadFile(const std::string& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

Text Widen(const std::string& ascii) { return Text(ascii.begin(), ascii.end()); }

HANDLE Open(const std::string& path) {
    Text name = Widen(path);
    HANDLE printer = nullptr;
    return OpenPrinterW(name.data(), &printer, nullptr) ? printer : nullptr;
}

DWORD Read(HANDLE printer, const Text& key, const Text& name, Value& value) {
    DWORD needed = 0;
    DWORD result = GetPrinterDataExW(printer, key.c_str(), name.c_str(), &value.type, nullptr, 0, &needed);
    if (result != ERROR_MORE_DATA) return result;
    value.name = name;
    Bytes buffer(needed + 1);  // never a null buffer, which would only ask for the size again
    result = GetPrinterDataExW(printer, key.c_str(), name.c_str(), &value.type, buffer.data(), needed, &needed);
    value.data.assign(buffer.begin(), buffer.begin() + needed);
    return result;
}

DWORD Enumerate(HANDLE printer, const Text& key, std::vector<Value>& values) {
    values.clear();
    DWORD needed = 0, count = 0;
    DWORD result = EnumPrinterDataExW(printer, key.c_str(), nullptr, 0, &needed, &count);
    if (result != ERROR_MORE_DATA) return result;
    std::vector<BYTE> block(needed);
    result = EnumPrinterDataExW(printer, key.c_str(), block.data(), needed, &needed, &count);
    auto* entries = reinterpret_cast<const PRINTER_ENUM_VALUESW*>(block.data());
    for (DWORD i = 0; result == ERROR_SUCCESS && i < count; ++i) {
        values.push_back({entries[i].pValueName, entries[i].dwType,
                          Bytes(entries[i].pData, entries[i].pData + entries[i].cbData)});
    }
    return result;
}

Bytes TextBytes(const Text& text) {
    Bytes bytes;
    for (char16_t c : text) {
        bytes.push_back(static_cast<BYTE>(c));
        bytes.push_back(static_cast<BYTE>(c >> 8));
    }
    bytes.insert(bytes.end(), 2, 0);
    return bytes;
}

Bytes DwordBytes(DWORD number) {
    return {static_cast<BYTE>(number), static_cast<BYTE>(number >> 8), static_cast<BYTE>(number >> 16),
            static_cast<BYTE>(number >> 24)};
}

}  // namespace spooltest
