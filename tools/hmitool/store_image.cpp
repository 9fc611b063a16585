#include "store_image.h"

#include <string>

namespace hmitool {

void StoreKey::Text(const WString& name, const WString& text) {
    const std::string bytes = Utf16LeBytes(text + WCHAR(0));  // with its terminator, as the spooler stores it
    values.push_back({name, kStoreText, std::vector<uint8_t>(bytes.begin(), bytes.end())});
}

void StoreKey::Dword(const WString& name, uint32_t number) {
    values.push_back({name, kStoreDword,
                      {static_cast<uint8_t>(number), static_cast<uint8_t>(number >> 8),
                       static_cast<uint8_t>(number >> 16), static_cast<uint8_t>(number >> 24)}});
}

void StoreKey::Binary(const WString& name, std::vector<uint8_t> data) {
    values.push_back({name, kStoreBinary, std::move(data)});
}

WString StoredText(const PRINTER_ENUM_VALUESW& value) {
    const WString text = FromUtf16Le(value.pData, value.cbData / sizeof(WCHAR));
    return text.substr(0, text.find(WCHAR(0)));
}

WString ListValueName(size_t index) {
    const std::string digits = std::to_string(index);
    return Widen(std::string(digits.size() < 3 ? 3 - digits.size() : 0, '0') + digits);
}

}  // namespace hmitool
