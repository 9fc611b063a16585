// Linux only: helpers of the libhmispool tests.
#ifndef HMI_TEST_SPOOL_SUPPORT_H
#define HMI_TEST_SPOOL_SUPPORT_H

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "posix/spool/winspool.h"

namespace spooltest {

using Text = std::u16string;
using Bytes = std::vector<BYTE>;

inline const std::string kHeader = "Windows Registry Editor Version 5.00\n";

// A private temporary directory, removed with everything in it.
struct TempDir {
    std::string path = (std::filesystem::temp_directory_path() / "hmispool-test-XXXXXX").string();
    TempDir() { EXPECT_NE(::mkdtemp(path.data()), nullptr); }
    ~TempDir() { std::error_code ignored; std::filesystem::remove_all(path, ignored); }
    std::string File(const std::string& name) const { return path + "/" + name; }
};

inline void WriteFile(const std::string& to, const std::string& text) { std::ofstream(to, std::ios::binary) << text; }
inline std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// OpenPrinterW of a path or printer name; null on failure (HMISpoolLastOpenError tells why).
inline HANDLE Open(const std::string& path) {
    Text name(path.begin(), path.end());
    HANDLE printer = nullptr;
    return OpenPrinterW(name.data(), &printer, nullptr) ? printer : nullptr;
}

inline DWORD Set(HANDLE printer, const Text& key, const Text& name, DWORD type, const Bytes& data) {
    return SetPrinterDataExW(printer, key.c_str(), name.c_str(), type, const_cast<BYTE*>(data.data()),
                             static_cast<DWORD>(data.size()));
}

// GetPrinterDataExW with the two-call protocol; result is the final answer.
inline DWORD Read(HANDLE printer, const Text& key, const Text& name, Bytes& data, DWORD* type = nullptr) {
    DWORD needed = 0;
    DWORD result = GetPrinterDataExW(printer, key.c_str(), name.c_str(), type, nullptr, 0, &needed);
    if (result != ERROR_MORE_DATA) return result;
    data.assign(needed + 1, 0);  // never a null buffer, which only asks for the size
    result = GetPrinterDataExW(printer, key.c_str(), name.c_str(), type, data.data(), needed, &needed);
    data.resize(needed);
    return result;
}

inline Bytes TextBytes(const Text& text) {  // UTF-16LE with terminator
    Bytes bytes;
    for (char16_t c : text + u'\0') bytes.insert(bytes.end(), {static_cast<BYTE>(c), static_cast<BYTE>(c >> 8)});
    return bytes;
}
inline Bytes DwordBytes(DWORD n) { return {BYTE(n), BYTE(n >> 8), BYTE(n >> 16), BYTE(n >> 24)}; }

}  // namespace spooltest

#endif
