// The printer data a driver's setup writes for a media database: keys below the printer, each with its
// values in the order they are written.
#ifndef HMITOOL_STORE_IMAGE_H
#define HMITOOL_STORE_IMAGE_H

#include <cstdint>
#include <vector>

#include "text.h"

namespace hmitool {

enum StoreValueType : DWORD { kStoreText = 1, kStoreBinary = 3, kStoreDword = 4 };

struct StoreValue {
    WString name;  // empty: the key's default value
    StoreValueType type;
    std::vector<uint8_t> data;  // as the spooler stores it: a text with its terminator, in UTF-16LE
};

struct StoreKey {
    WString path;  // relative to the printer, e.g. PrinterDriverData\Media\0000001A\HMN
    std::vector<StoreValue> values;

    void Text(const WString& name, const WString& text);
    void Dword(const WString& name, uint32_t number);
    void Binary(const WString& name, std::vector<uint8_t> data);
};

using StoreImage = std::vector<StoreKey>;

// A stored value's bytes as text, up to its first zero unit, whatever its type: as the library reads it.
WString StoredText(const PRINTER_ENUM_VALUESW& value);

// The value name of a numbered list's entry (list entries, document chunks): "%03d".
WString ListValueName(size_t index);

}  // namespace hmitool

#endif
