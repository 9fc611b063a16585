// Linux only (the store substitute exists only on Linux): helpers of the libhmispool tests.
#ifndef HMI_TEST_SPOOL_SUPPORT_H
#define HMI_TEST_SPOOL_SUPPORT_H

#include <string>
#include <vector>

#include "posix/spool/winspool.h"

namespace spooltest {

using Text = std::u16string;
using Bytes = std::vector<BYTE>;

inline const std::string kHeader = "Windows Registry Editor Version 5.00\n";

// A private temporary directory, removed with everything in it.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    const std::string& path() const { return path_; }
    std::string File(const std::string& name) const { return path_ + "/" + name; }
    std::vector<std::string> Entries() const;  // names, sorted

private:
    std::string path_;
};

void WriteFile(const std::string& path, const std::string& bytes);
std::string ReadFile(const std::string& path);
Text Widen(const std::string& ascii);

// OpenPrinterW of a path; null on failure (HMISpoolLastOpenError tells why).
HANDLE Open(const std::string& path);

struct Value {
    Text name;
    DWORD type;
    Bytes data;
    bool operator==(const Value& o) const { return name == o.name && type == o.type && data == o.data; }
};

// GetPrinterDataExW into an exactly sized buffer; result is its answer.
DWORD Read(HANDLE printer, const Text& key, const Text& name, Value& value);
// EnumPrinterDataExW of a key with the two-call protocol; result is the final answer.
DWORD Enumerate(HANDLE printer, const Text& key, std::vector<Value>& values);

Bytes TextBytes(const Text& text);  // UTF-16LE with terminator
Bytes DwordBytes(DWORD number);

}  // namespace spooltest

#endif
