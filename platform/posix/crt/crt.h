// The runtime library's text functions on UTF-16 strings, with the Microsoft CRT's semantics.
// They overload the C library's wchar_t functions (wchar_t is 4 bytes here, WCHAR is char16_t).
#ifndef HMI_POSIX_CRT_H
#define HMI_POSIX_CRT_H

#include <cstdarg>
#include <cstddef>
#include <cstdint>
// Before the overloads below, so that the standard library's using-declarations see only its own.
#include <cstdlib>
#include <cwchar>
#include <string>

#include "posix/types.h"

// 32-bit integers: white space, sign, "0x" for base 16 and 0, digits of the base. A minus negates the
// result; overflow gives 0xFFFFFFFF (wcstoul) or LONG_MAX/LONG_MIN (wcstol) and ERANGE; no digits give 0
// with *end at s.
ULONG wcstoul(const WCHAR* s, WCHAR** end, int base);
LONG wcstol(const WCHAR* s, WCHAR** end, int base);
LONG _wtol(const WCHAR* s);
uint64_t _wcstoui64(const WCHAR* s, WCHAR** end, int base);

// Wide printf supporting %s (WCHAR string, null prints "(null)"), %d, %i, %u, %x, %X, %c and %% with
// the flags '-' and '0' and a width; any other conversion fails with -1.
// _vscwprintf: the formatted length without terminator.
// _vsnwprintf: the length when it fits in count units (terminated only when shorter than count),
// otherwise -1 with the first count units written; a null buffer with count 0 gives the length.
int _vscwprintf(const WCHAR* format, va_list args);
int _vsnwprintf(WCHAR* buffer, size_t count, const WCHAR* format, va_list args);

// Case-sensitive comparison in code-unit order: negative, 0 or positive; null sorts before any string.
// Inline: the cache and the tree's lookups compare ids and names on every query.
inline int lstrcmpW(const WCHAR* a, const WCHAR* b) {
    if (!a || !b) return (a ? 1 : 0) - (b ? 1 : 0);
    for (; *a && *a == *b; ++a, ++b) {
    }
    return *a == *b ? 0 : (*a < *b ? -1 : 1);
}

// Called after a large structure of small blocks was freed, so that the allocator sorts those blocks
// out in that call rather than in the caller's next large allocation.
void HMISettleHeap() noexcept;

#endif
