// Reads of single printer-data values.
#ifndef HMI_PRINTERDATA_READ_H
#define HMI_PRINTERDATA_READ_H

#include <cstddef>
#include <memory>

#include "platform/platform.h"

// The media key below the printer's driver data.
extern const WCHAR* const HMI_MEDIA_KEY;

// The name of a medium's key below the media key, "<media key>\%08X\<leaf>" (leaf "HMI" or "HMN").
constexpr size_t HMI_KEY_NAME_CAPACITY = 260;
bool FormatMediumKey(WCHAR (&key)[HMI_KEY_NAME_CAPACITY], DWORD mediaNumber, const WCHAR* leaf);

// One read into the caller's buffer of exactly size bytes; true only when the value fits.
bool ReadPrinterDataFixed(HANDLE printer, const WCHAR* key, const WCHAR* valueName, void* buffer, DWORD size);

// A value of any non-zero size as zero-terminated text: the stored bytes followed by at least one zero
// unit, whatever the stored type. Null when the value is missing, empty, or allocation fails.
std::unique_ptr<WCHAR[]> ReadPrinterDataText(HANDLE printer, const WCHAR* key, const WCHAR* valueName);

#endif
