// A throwaway printer whose data tests write with SetPrinterDataExW: on Linux a store file in a private
// temporary directory, on Windows (Wine) a printer added to the spooler. The destructor removes it.
#ifndef HMI_TEST_PRINTER_FIXTURE_H
#define HMI_TEST_PRINTER_FIXTURE_H

#include <string>

#include "platform/platform.h"

namespace hmitest {

class TestPrinter {
public:
    // label is part of a Windows printer's name (any characters); a Linux store file is named by its path.
    explicit TestPrinter(const WCHAR* label = HMI_W(""));
    ~TestPrinter();
    TestPrinter(const TestPrinter&) = delete;
    TestPrinter& operator=(const TestPrinter&) = delete;

    bool ok() const { return handle_ != nullptr; }  // the printer exists and handle() is open
    HANDLE handle() const { return handle_; }
    const std::basic_string<WCHAR>& name() const { return name_; }
    bool Set(const WCHAR* key, const WCHAR* value, DWORD type, const void* data, DWORD bytes);  // exactly these bytes
    bool SetText(const WCHAR* key, const WCHAR* value, const WCHAR* text);  // REG_SZ with its terminator
    bool SetDword(const WCHAR* key, const WCHAR* value, DWORD number);
    bool Remove(const WCHAR* key, const WCHAR* value);
    HANDLE Reopen();  // closes the handle and opens the printer again; null when that fails

private:
    std::basic_string<WCHAR> name_;
    bool created_ = false;
    HANDLE handle_ = nullptr;
};

// What TestPrinter does differently per platform (support/posix/, support/win32/).
namespace backend {
bool CreatePrinter(std::basic_string<WCHAR>& name, const WCHAR* label);  // a printer without data
HANDLE OpenTestPrinter(const WCHAR* name);  // with the right to change its data; null on failure
void DestroyPrinter(HANDLE handle, const WCHAR* name);  // closes the handle (when not null) and removes it
DWORD DeleteValue(HANDLE handle, const WCHAR* name, const WCHAR* key, const WCHAR* value);
}  // namespace backend

}  // namespace hmitest

#endif
