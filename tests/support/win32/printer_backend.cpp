// Windows (and Wine): a printer added to the spooler with a driver of ours, deleted at the end.
#include "support/printer_fixture.h"

#include <atomic>

namespace hmitest {
namespace backend {
namespace {

WCHAR kDriverName[] = L"XRVHMI Test Driver";

// Once per process; adding a driver that is already installed succeeds as well.
bool InstallDriver() {
    static const bool installed = [] {
        WCHAR driverFile[] = L"wineps.drv", dataFile[] = L"generic.ppd";
        DRIVER_INFO_3W info = {};
        info.cVersion = 3;
        info.pName = kDriverName;
        info.pDriverPath = info.pConfigFile = driverFile;
        info.pDataFile = dataFile;
        return AddPrinterDriverExW(nullptr, 3, reinterpret_cast<LPBYTE>(&info), APD_COPY_NEW_FILES) != FALSE;
    }();
    return installed;
}

bool AddTestPrinter(std::wstring& name) {
    WCHAR port[] = L"FILE:", processor[] = L"WinPrint", datatype[] = L"RAW";  // without RAW: error 1801 on open
    PRINTER_INFO_2W info = {};
    info.pPrinterName = &name[0];
    info.pPortName = port;
    info.pDriverName = kDriverName;
    info.pPrintProcessor = processor;
    info.pDatatype = datatype;
    HANDLE added = AddPrinterW(nullptr, 2, reinterpret_cast<LPBYTE>(&info));
    return added && (ClosePrinter(added), true);
}

}  // namespace

bool CreatePrinter(std::wstring& name, const WCHAR* label) {
    static std::atomic<unsigned> counter{0};
    if (!InstallDriver()) return false;
    name = L"XRVHMI Test Printer " + std::wstring(label) + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++counter);
    if (AddTestPrinter(name)) return true;
    // A printer left behind by an earlier process with the same id.
    if (GetLastError() != ERROR_PRINTER_ALREADY_EXISTS) return false;
    DestroyPrinter(nullptr, name.c_str());
    return AddTestPrinter(name);
}

HANDLE OpenTestPrinter(const WCHAR* name) {
    PRINTER_DEFAULTSW defaults = {};
    defaults.DesiredAccess = PRINTER_ALL_ACCESS;
    HANDLE handle = nullptr;
    return OpenPrinterW(const_cast<LPWSTR>(name), &handle, &defaults) ? handle : nullptr;
}

void DestroyPrinter(HANDLE handle, const WCHAR* name) {
    if (!handle) handle = OpenTestPrinter(name);
    if (!handle) return;
    DeletePrinter(handle);
    ClosePrinter(handle);
}

DWORD DeleteValue(HANDLE handle, const WCHAR* name, const WCHAR* key, const WCHAR* value) {
    DWORD result = DeletePrinterDataExW(handle, key, value);
    if (result != ERROR_INVALID_PARAMETER) return result;
    // Wine's spooler answers every DeletePrinterDataExW with ERROR_INVALID_PARAMETER; its printer
    // data lives in the registry, where the value can be deleted directly.
    std::wstring path = std::wstring(L"System\\CurrentControlSet\\Control\\Print\\Printers\\") + name + L"\\" + key;
    return static_cast<DWORD>(RegDeleteKeyValueW(HKEY_LOCAL_MACHINE, path.c_str(), value));
}

}  // namespace backend
}  // namespace hmitest
