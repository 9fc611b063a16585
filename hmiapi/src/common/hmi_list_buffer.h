// The size rule of the variable-size results: a caller's buffer holds the list only when it is given
// and at least the required size; otherwise the required size is reported when asked for.
#ifndef HMI_COMMON_LIST_BUFFER_H
#define HMI_COMMON_LIST_BUFFER_H

#include <cstddef>
#include <cstdint>

inline bool HMIListBufferFits(const void* buffer, size_t bufferBytes, uint64_t required, size_t* requiredBytes) {
    if (buffer && bufferBytes >= required) return true;
    if (requiredBytes) *requiredBytes = required;
    return false;
}

#endif
