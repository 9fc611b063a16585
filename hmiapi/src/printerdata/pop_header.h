// HMIPopHeader: the paper-type database of one printer, loaded once from its printer data.
#ifndef HMI_PRINTERDATA_POP_HEADER_H
#define HMI_PRINTERDATA_POP_HEADER_H

#include "common/hmi_map.h"
#include "platform/platform.h"

using HMIMediaHeaderMap = HMIXMLMap<const WCHAR*, const _tagHMIMediaInfoHeader*, 0, HMIStrLess>;

class HMIPopHeader {
public:
    HMIPopHeader() = default;
    HMIPopHeader(const HMIPopHeader&) = delete;
    HMIPopHeader& operator=(const HMIPopHeader&) = delete;
    virtual ~HMIPopHeader();

    // Fills the object from the values under the media key; called once, on a fresh object. product_id
    // and pop-db-time are copied as stored, without a terminator when the stored text fills the field.
    bool Load(HANDLE printer);

    bool GetMediaInfoHeader(const WCHAR* mediaId, _tagHMIMediaInfoHeader* out) const;

    const _tagHMICommonInfo* CommonInfo() const { return commonInfo; }
    const _tagHMIAvailableMedia* AvailableMedia() const { return availableMedia; }
    const HMIMediaHeaderMap& HeaderMap() const { return headerMap; }

private:
    bool AllocateMediaList(uint64_t capacity);
    void LoadEntry(HANDLE printer, const WCHAR* numberText);

    _tagHMICommonInfo* commonInfo = nullptr;
    _tagHMIAvailableMedia* availableMedia = nullptr;  // one block: the record, then its id table
    HMIMediaHeaderMap headerMap;
};

#endif
