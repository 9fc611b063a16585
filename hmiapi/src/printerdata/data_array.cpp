#include "printerdata/data_array.h"

#include <memory>
#include <new>

HMIDataArrayList::~HMIDataArrayList() {
    for (HMIDataArray* element : *this) delete element;
}

bool HMIDataArrayList::Add(const BYTE* data, uint64_t size) noexcept {
    std::unique_ptr<HMIDataArray> element(new (std::nothrow) HMIDataArray(data, size));
    if (!element) return false;
    try {
        push_back(element.get());
    } catch (const std::bad_alloc&) {
        return false;
    }
    element.release();
    return true;
}
