// Heap strings, the allocating formatter and the bounded copy.
#ifndef HMI_COMMON_STRING_H
#define HMI_COMMON_STRING_H

#include <cstddef>
#include <memory>
#include <string>

#include "platform/platform.h"

// Heap strings are new[]-allocated, zero-terminated and released with delete[].
using HMIHeapString = std::unique_ptr<WCHAR[]>;

inline size_t HMIStrLen(const WCHAR* s) { return std::char_traits<WCHAR>::length(s); }

// A heap copy of s with its terminator; null for a null or empty s, or when allocation fails.
WCHAR* HMIStrDup(const WCHAR* s) noexcept;

// Formats into a new heap string and returns its length; -1 (and *out null) when out or format is
// null, the result would be empty, or allocation or formatting fails. %s takes a wide string.
int HMIFormatString(WCHAR** out, const WCHAR* format, ...) noexcept;

// Formats into a fixed buffer of capacity units; false when the result (with terminator) does not fit.
bool HMIFormatFixed(WCHAR* buffer, size_t capacity, const WCHAR* format, ...) noexcept;

// Copies src with its terminator into dst of capacity units when a terminator lies within the first
// capacity units of src; otherwise dst reads as the empty string and the copy fails. A null src fails.
bool HMIBoundedCopy(WCHAR* dst, size_t capacity, const WCHAR* src) noexcept;

template <size_t N>
bool HMIBoundedCopy(WCHAR (&dst)[N], const WCHAR* src) noexcept {
    return HMIBoundedCopy(dst, N, src);
}

// The File readers' bounded copy: as HMIBoundedCopy when src fits; otherwise dst receives the first
// capacity units of src and then its first unit is zeroed, and the copy fails.
bool HMIBoundedCopyFile(WCHAR* dst, size_t capacity, const WCHAR* src) noexcept;

template <size_t N>
bool HMIBoundedCopyFile(WCHAR (&dst)[N], const WCHAR* src) noexcept {
    return HMIBoundedCopyFile(dst, N, src);
}

#endif
