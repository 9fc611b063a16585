// Answers of variable size read as a driver reads them: ask for the size, then read into a buffer of it.
#ifndef HMITOOL_SIZED_READ_H
#define HMITOOL_SIZED_READ_H

#include <cstdint>
#include <vector>

#include "text.h"
#include "xrvhmi.h"

namespace hmitool {

// read(buffer, chars, &requiredChars) is an export that reports the size only for a missing buffer.
template <typename Read>
bool ReadSizedText(Read read, WString* text) {
    size_t required = 0;
    if (read(nullptr, 0, &required) || required == 0) return false;
    std::vector<WCHAR> buffer(required + 1, 0);
    if (!read(buffer.data(), required, &required)) return false;
    *text = buffer.data();
    return true;
}

// read(record, bytes, &requiredBytes) likewise; the record lives in block, which is aligned for it.
template <typename Record, typename Read>
const Record* ReadSizedRecord(std::vector<uint64_t>* block, Read read) {
    size_t required = 0;
    if (read(nullptr, 0, &required) || required < sizeof(Record)) return nullptr;
    block->assign((required + 7) / 8, 0);
    auto* record = reinterpret_cast<Record*>(block->data());
    return read(record, required, &required) ? record : nullptr;
}

// The ids of a media list read by read.
template <typename Read>
std::vector<WString> ReadMediaIds(Read read) {
    std::vector<WString> ids;
    std::vector<uint64_t> block;
    if (const auto* media = ReadSizedRecord<_tagHMIAvailableMedia>(&block, read)) {
        for (uint64_t i = 0; i < media->count; ++i) ids.emplace_back(media->ids[i]);
    }
    return ids;
}

}  // namespace hmitool

#endif
