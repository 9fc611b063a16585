// The spooler's printer-data functions with their Win32 signatures, served on Linux by libhmispool
// from store files (registry exports, one file per printer).
#ifndef HMI_POSIX_WINSPOOL_H
#define HMI_POSIX_WINSPOOL_H

#include <cstddef>
#include "posix/types.h"

#ifndef ERROR_INVALID_PRINTER_NAME
#define ERROR_INVALID_PRINTER_NAME 1801L
#endif
#ifndef ERROR_BAD_PATHNAME
#define ERROR_BAD_PATHNAME 161L
#endif
#ifndef ERROR_NOACCESS
#define ERROR_NOACCESS 998L
#endif

extern "C" {

typedef struct _PRINTER_ENUM_VALUESW {
    LPWSTR pValueName;
    DWORD cbValueName;  // bytes of the name including its terminator
    DWORD dwType;
    LPBYTE pData;
    DWORD cbData;
} PRINTER_ENUM_VALUESW, *PPRINTER_ENUM_VALUESW, *LPPRINTER_ENUM_VALUESW;

HMI_EXPORT BOOL OpenPrinterW(LPWSTR name, HANDLE* printer, void* defaults);
HMI_EXPORT BOOL ClosePrinter(HANDLE printer);
HMI_EXPORT DWORD GetPrinterDataExW(HANDLE printer, LPCWSTR key, LPCWSTR valueName, LPDWORD type, LPBYTE data,
                                   DWORD size, LPDWORD needed);
HMI_EXPORT DWORD EnumPrinterDataExW(HANDLE printer, LPCWSTR key, LPBYTE enumValues, DWORD enumBytes,
                                    LPDWORD neededBytes, LPDWORD returnedCount);
HMI_EXPORT DWORD SetPrinterDataExW(HANDLE printer, LPCWSTR key, LPCWSTR valueName, DWORD type, LPBYTE data,
                                   DWORD bytes);
HMI_EXPORT DWORD DeletePrinterDataExW(HANDLE printer, LPCWSTR key, LPCWSTR valueName);

// For tools: why the last OpenPrinterW on this thread failed, in UTF-8 with the file and line
// ("printer.reg:12: expected '=' after value name"); "" after a successful open.
HMI_EXPORT const char* HMISpoolLastOpenError(void);

}  // extern "C"

static_assert(sizeof(PRINTER_ENUM_VALUESW) == 32, "PRINTER_ENUM_VALUESW has the Windows x64 size");
static_assert(offsetof(PRINTER_ENUM_VALUESW, pValueName) == 0, "Windows x64 layout");
static_assert(offsetof(PRINTER_ENUM_VALUESW, cbValueName) == 8, "Windows x64 layout");
static_assert(offsetof(PRINTER_ENUM_VALUESW, dwType) == 12, "Windows x64 layout");
static_assert(offsetof(PRINTER_ENUM_VALUESW, pData) == 16, "Windows x64 layout");
static_assert(offsetof(PRINTER_ENUM_VALUESW, cbData) == 24, "Windows x64 layout");

#endif
