// A throwaway printer whose data tests write with SetPrinterDataExW: on Linux a store file in a
// private temporary directory, on Windows (Wine) a printer added to the spooler. Both are removed
// by the destructor.
#ifndef HMI_TEST_PRINTER_FIXTURE_H
#define HMI_TEST_PRINTER_FIXTURE_H

#include <string>

#include "platform/platform.h"

namespace hmitest {

class TestPrinter {
public:
    TestPrinter();
    ~TestPrinter();
    TestPrinter(const TestPrinter&) = delete;
    TestPrinter& operator=(const TestPrinter&) = delete;

    // Whether the printer exists and handle() is open.
    bool ok() const { return handle_ != nullptr; }
    HANDLE handle() const { return handle_; }
    // What OpenPrinterW takes to open this printer.
    const WCHAR* name() const { return name_.c_str(); }

    // Stores exactly the bytes given, on both platforms.
    bool Set(const WCHAR* key, const WCHAR* value, DWORD type, const void* data, DWORD bytes);
    bool SetText(const WCHAR* key, const WCHAR* value, const WCHAR* text);  // REG_SZ with its terminator
    bool SetDword(const WCHAR* key, const WCHAR* value, DWORD number);
    bool Remove(const WCHAR* key, const WCHAR* value);
    // Closes the handle and opens the printer again; null when that fails.
    HANDLE Reopen();

private:
    std::basic_string<WCHAR> name_;
    bool created_ = false;
    HANDLE handle_ = nullptr;
};

}  // namespace hmitest

#endif
