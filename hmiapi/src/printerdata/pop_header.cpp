#include "printerdata/pop_header.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <utility>
#include <vector>

#include "common/hmi_decimal.h"
#include "common/hmi_string.h"
#include "printerdata/printer_data_read.h"
#include "printerdata/printer_data_values.h"

namespace {

constexpr DWORD kNumberTextBytes = 18;  // WCHAR[9] as stored by the driver setup

// The list entries present under the media key, in index order. The stored count is not trusted to
// size anything: only values that exist can become entries.
bool FindListEntries(const HMIPrinterDataValues& values, DWORD entryCount,
                     std::vector<std::pair<int64_t, const PRINTER_ENUM_VALUESW*>>* out) {
    try {
        for (DWORD i = 0; i < values.count; ++i) {
            int64_t index = HMIListIndexOf(values.entries()[i].pValueName);
            if (index >= 0 && index < entryCount) out->emplace_back(index, &values.entries()[i]);
        }
    } catch (const std::bad_alloc&) {
        return false;
    }
    std::sort(out->begin(), out->end(),
              [](const auto& a, const auto& b) { return a.first < b.first; });
    return true;
}

}  // namespace

HMIPopHeader::~HMIPopHeader() {
    for (auto& entry : headerMap) delete entry.second;
    delete[] reinterpret_cast<std::byte*>(availableMedia);
    delete commonInfo;
    headerMap.clear();
}

bool HMIPopHeader::AllocateMediaList(uint64_t capacity) {
    std::byte* block = new (std::nothrow) std::byte[HMI_AVAILABLE_MEDIA_BYTES(capacity)]();
    if (!block) return false;
    availableMedia = reinterpret_cast<_tagHMIAvailableMedia*>(block);
    availableMedia->ids = reinterpret_cast<WCHAR(*)[65]>(block + sizeof(_tagHMIAvailableMedia));
    return true;
}

bool HMIPopHeader::Load(HANDLE printer) {
    if (!printer) return false;
    commonInfo = new (std::nothrow) _tagHMICommonInfo();
    if (!commonInfo) return false;

    std::unique_ptr<WCHAR[]> version = ReadPrinterDataText(printer, HMI_MEDIA_KEY, HMI_W("db_format_ver"));
    if (!version) return false;
    commonInfo->db_format_ver = HMIDecimalToFloat(version.get());

    DWORD entryCount = 0;
    if (!ReadPrinterDataFixed(printer, HMI_MEDIA_KEY, HMI_W("product_id"), commonInfo->product_id,
                              sizeof commonInfo->product_id) ||
        !ReadPrinterDataFixed(printer, HMI_MEDIA_KEY, HMI_W("pop-db-time"), commonInfo->pop_db_time,
                              sizeof commonInfo->pop_db_time) ||
        !ReadPrinterDataFixed(printer, HMI_MEDIA_KEY, HMI_W("papertype_info_list"), &entryCount,
                              sizeof entryCount)) {
        return false;
    }

    HMIPrinterDataValues values;
    std::vector<std::pair<int64_t, const PRINTER_ENUM_VALUESW*>> entries;
    if (entryCount > 0 && (!EnumPrinterDataValues(printer, HMI_MEDIA_KEY, &values) ||
                           !FindListEntries(values, entryCount, &entries))) {
        return false;
    }
    if (!AllocateMediaList(entries.size())) return false;

    for (const auto& entry : entries) {
        if (entry.second->cbData > kNumberTextBytes) continue;
        WCHAR numberText[kNumberTextBytes / 2 + 1] = {};  // one unit more: always terminated
        std::memcpy(numberText, entry.second->pData, entry.second->cbData);
        LoadEntry(printer, numberText);
    }
    return true;
}

void HMIPopHeader::LoadEntry(HANDLE printer, const WCHAR* numberText) {
    errno = 0;
    const ULONG number = wcstoul(numberText, nullptr, 16);
    if (errno == ERANGE) return;

    WCHAR* subkeyText = nullptr;
    if (HMIFormatString(&subkeyText, HMI_W("%s\\%s"), HMI_MEDIA_KEY, numberText) < 0) return;
    HMIHeapString subkey(subkeyText);

    WCHAR id[65] = {};
    DWORD valid = 0;
    DWORD visible = 0;
    WCHAR checksum[33] = {};
    if (!ReadPrinterDataFixed(printer, subkey.get(), HMI_W("id"), id, sizeof id) ||
        !ReadPrinterDataFixed(printer, subkey.get(), HMI_W("valid"), &valid, sizeof valid) ||
        !ReadPrinterDataFixed(printer, subkey.get(), HMI_W("visible"), &visible, sizeof visible) ||
        !ReadPrinterDataFixed(printer, subkey.get(), HMI_W("checksum"), checksum, sizeof checksum)) {
        return;
    }

    std::unique_ptr<_tagHMIMediaInfoHeader> header(new (std::nothrow) _tagHMIMediaInfoHeader());
    if (!header) return;
    HMIBoundedCopy(header->id, id);
    HMIBoundedCopy(header->checksum, checksum);
    header->valid = valid != 0;
    header->visible = visible != 0;
    header->media_number = number;

    const size_t known = headerMap.size();
    if (!headerMap.Insert(header->id, header.get())) return;
    // An id already present keeps its first header; this one is only listed.
    if (headerMap.size() > known) header.release();
    HMIBoundedCopy(availableMedia->ids[availableMedia->count], 65, id);
    ++availableMedia->count;
}

bool HMIPopHeader::GetMediaInfoHeader(const WCHAR* mediaId, _tagHMIMediaInfoHeader* out) const {
    if (!mediaId || !out) return false;
    const _tagHMIMediaInfoHeader* header = headerMap.Find(mediaId);
    if (!header) return false;
    std::memcpy(out, header, sizeof *out);
    return true;
}
