// Views of the chunks of a media-information document inside an enumeration block.
#ifndef HMI_PRINTERDATA_DATA_ARRAY_H
#define HMI_PRINTERDATA_DATA_ARRAY_H

#include <cstdint>
#include <vector>

#include "platform/platform.h"

class HMIDataArray {
public:
    HMIDataArray(const BYTE* bytes, uint64_t byteCount) : data(bytes), size(byteCount) {}
    virtual ~HMIDataArray() = default;

    const BYTE* data;  // not owned
    uint64_t size;
};

// Owns its elements, not the bytes they point at.
class HMIDataArrayList : public std::vector<HMIDataArray*> {
public:
    HMIDataArrayList() = default;
    HMIDataArrayList(const HMIDataArrayList&) = delete;
    HMIDataArrayList& operator=(const HMIDataArrayList&) = delete;
    virtual ~HMIDataArrayList();

    bool Add(const BYTE* data, uint64_t size) noexcept;
};

#endif
