/* libhmispool: the spooler's printer-data functions with their Win32 signatures, served on Linux from
 * store files (registry exports, one file per printer). C and C++.
 *
 * OpenPrinterW(name): a name containing '/' or ending in ".reg" is the path of a store file; any other
 * name is "<name>.reg" in $HMI_PRINTER_STORE (default $XDG_DATA_HOME/xrvhmi/printers). The whole file
 * is read at open; a malformed file fails the open and HMISpoolLastOpenError says why. Changes made
 * with SetPrinterDataExW and DeletePrinterDataExW are written back, atomically, when the handle closes.
 * The reads answer as the Windows spooler does: 0, ERROR_MORE_DATA (234) with the needed size,
 * ERROR_FILE_NOT_FOUND (2), ERROR_INVALID_HANDLE (6) or ERROR_INVALID_PARAMETER (87). */
#ifndef HMISPOOL_H
#define HMISPOOL_H

#include "xrvhmi.h" /* WCHAR, BOOL, DWORD, HANDLE */

#ifdef __cplusplus
extern "C" {
#endif

/* One entry of EnumPrinterDataExW's block, with the Windows x64 layout; names and data follow the
 * entries in the same block. */
typedef struct _PRINTER_ENUM_VALUESW {
    WCHAR* pValueName;
    DWORD cbValueName; /* bytes of the name including its terminator */
    DWORD dwType;
    uint8_t* pData;
    DWORD cbData;
} PRINTER_ENUM_VALUESW, *PPRINTER_ENUM_VALUESW, *LPPRINTER_ENUM_VALUESW;

HMI_EXPORT BOOL OpenPrinterW(WCHAR* name, HANDLE* printer, void* defaults);
HMI_EXPORT BOOL ClosePrinter(HANDLE printer);
HMI_EXPORT DWORD GetPrinterDataExW(HANDLE printer, const WCHAR* key, const WCHAR* valueName, DWORD* type,
                                   uint8_t* data, DWORD size, DWORD* needed);
HMI_EXPORT DWORD EnumPrinterDataExW(HANDLE printer, const WCHAR* key, uint8_t* enumValues, DWORD enumBytes,
                                    DWORD* neededBytes, DWORD* returnedCount);
/* The names of key's direct subkeys, each with its terminator, then an empty one ("" alone when it has
 * none); ERROR_MORE_DATA with the size in bytes when subkeys is null or too small. */
HMI_EXPORT DWORD EnumPrinterKeyW(HANDLE printer, const WCHAR* key, WCHAR* subkeys, DWORD subkeyBytes,
                                 DWORD* neededBytes);
HMI_EXPORT DWORD SetPrinterDataExW(HANDLE printer, const WCHAR* key, const WCHAR* valueName, DWORD type,
                                   uint8_t* data, DWORD bytes);
HMI_EXPORT DWORD DeletePrinterDataExW(HANDLE printer, const WCHAR* key, const WCHAR* valueName);

/* Why the last OpenPrinterW on this thread failed, in UTF-8 with the file and line
 * ("printer.reg:12: expected '=' after value name"); "" after a successful open. */
HMI_EXPORT const char* HMISpoolLastOpenError(void);

#ifdef __cplusplus
}
#endif

#endif
