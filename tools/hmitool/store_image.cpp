#include "store_image.h"

namespace hmitool {

void StoreKey::Text(const WString& name, const WString& text) {
    std::vector<uint8_t> data;
    for (size_t i = 0; i <= text.size(); ++i) {
        const auto unit = static_cast<uint16_t>(i < text.size() ? text[i] : 0);
        data.push_back(static_cast<uint8_t>(unit & 0xFF));
        data.push_back(static_cast<uint8_t>(unit >> 8));
    }
    values.push_back({name, kStoreText, std::move(data)});
}

void StoreKey::Dword(const WString& name, uint32_t number) {
    values.push_back({name, kStoreDword,
                      {static_cast<uint8_t>(number), static_cast<uint8_t>(number >> 8),
                       static_cast<uint8_t>(number >> 16), static_cast<uint8_t>(number >> 24)}});
}

void StoreKey::Binary(const WString& name, std::vector<uint8_t> data) {
    values.push_back({name, kStoreBinary, std::move(data)});
}

}  // namespace hmitool
