#include "common/hmi_string.h"

bool HMIBoundedCopyFile(WCHAR* dst, size_t capacity, const WCHAR* src) noexcept {
    if (!dst || capacity == 0) return false;
    if (!src) {
        dst[0] = 0;
        return false;
    }
    size_t length = 0;
    while (length < capacity && src[length]) ++length;
    const bool fits = length < capacity;
    std::char_traits<WCHAR>::copy(dst, src, fits ? length + 1 : capacity);
    if (!fits) dst[0] = 0;
    return fits;
}
