#include "enum_block.h"

#include <cstring>

#include "posix/spool/winspool.h"

namespace hmispool {

namespace {

uint64_t AlignUp(uint64_t offset, uint64_t alignment) { return (offset + alignment - 1) & ~(alignment - 1); }

uint64_t NameBytes(const StoredValue& value) { return (static_cast<uint64_t>(value.name.size()) + 1) * sizeof(WCHAR); }

// Walks the layout, calling place(value, nameOffset, dataOffset) per value; returns the end.
template <typename Place>
uint64_t Layout(const StoreKey& key, Place place) {
    uint64_t offset = static_cast<uint64_t>(key.values().size()) * sizeof(PRINTER_ENUM_VALUESW);
    for (const StoredValue& value : key.values()) {
        uint64_t name = AlignUp(offset, alignof(WCHAR));
        uint64_t data = AlignUp(name + NameBytes(value), 8);
        place(value, name, data);
        offset = data + value.data.size();
    }
    return offset;
}

}  // namespace

uint64_t EnumBlockSize(const StoreKey& key) {
    return Layout(key, [](const StoredValue&, uint64_t, uint64_t) {});
}

void FillEnumBlock(const StoreKey& key, BYTE* block) {
    auto* entry = reinterpret_cast<PRINTER_ENUM_VALUESW*>(block);
    Layout(key, [&](const StoredValue& value, uint64_t name, uint64_t data) {
        entry->pValueName = reinterpret_cast<LPWSTR>(block + name);
        entry->cbValueName = static_cast<DWORD>(NameBytes(value));
        entry->dwType = value.type;
        entry->pData = block + data;
        entry->cbData = static_cast<DWORD>(value.data.size());
        std::memcpy(block + name, value.name.c_str(), NameBytes(value));
        if (!value.data.empty()) std::memcpy(block + data, value.data.data(), value.data.size());
        ++entry;
    });
}

}  // namespace hmispool
