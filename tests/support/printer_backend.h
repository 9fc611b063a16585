// What TestPrinter does differently per platform (support/posix/, support/win32/).
#ifndef HMI_TEST_PRINTER_BACKEND_H
#define HMI_TEST_PRINTER_BACKEND_H

#include <string>

#include "platform/platform.h"

namespace hmitest {
namespace backend {

// Makes a printer without data and stores its name.
bool CreatePrinter(std::basic_string<WCHAR>& name);
// Opens it with the right to change its data; null on failure.
HANDLE OpenTestPrinter(const WCHAR* name);
// Closes the handle (when not null) and removes the printer.
void DestroyPrinter(HANDLE handle, const WCHAR* name);
// DeletePrinterDataExW's answer, or the equivalent where the spooler lacks it.
DWORD DeleteValue(HANDLE handle, const WCHAR* name, const WCHAR* key, const WCHAR* value);

}  // namespace backend
}  // namespace hmitest

#endif
