// Enumeration of all values of one printer-data key.
#ifndef HMI_PRINTERDATA_VALUES_H
#define HMI_PRINTERDATA_VALUES_H

#include <cstdint>
#include <memory>

#include "platform/platform.h"

struct HMIPrinterDataValues {
    DWORD count = 0;
    // The spooler's block: the entries, then their names and data. Entries point into it.
    std::unique_ptr<BYTE[]> values;

    const PRINTER_ENUM_VALUESW* entries() const {
        return reinterpret_cast<const PRINTER_ENUM_VALUESW*>(values.get());
    }
};

// Fails for a null argument, a spooler error, or a key without values.
bool EnumPrinterDataValues(HANDLE printer, const WCHAR* key, HMIPrinterDataValues* out);

// The index that a value name of a numbered list stands for when it is exactly the "%03d" form of that
// index (three digits at least, no other leading zero, at most 0xFFFFFFFF), else -1.
int64_t HMIListIndexOf(const WCHAR* name);

// The first entry whose name equals name code unit for code unit, or null.
const PRINTER_ENUM_VALUESW* FindPrinterDataValue(const HMIPrinterDataValues& values, const WCHAR* name);

#endif
