#include "common/hmi_string.h"

#include <cstdarg>
#include <new>

WCHAR* HMIStrDup(const WCHAR* s) noexcept {
    if (!s || !*s) return nullptr;
    const size_t length = HMIStrLen(s);
    WCHAR* copy = new (std::nothrow) WCHAR[length + 1];
    if (!copy) return nullptr;
    std::char_traits<WCHAR>::copy(copy, s, length + 1);
    return copy;
}

int HMIFormatString(WCHAR** out, const WCHAR* format, ...) noexcept {
    if (!out) return -1;
    *out = nullptr;
    if (!format) return -1;
    va_list args;
    va_start(args, format);
    va_list measureArgs;
    va_copy(measureArgs, args);
    const int length = _vscwprintf(format, measureArgs);
    va_end(measureArgs);
    if (length <= 0) {
        va_end(args);
        return -1;
    }
    const size_t capacity = static_cast<size_t>(length) + 1;
    HMIHeapString text(new (std::nothrow) WCHAR[capacity]);
    const int written = text ? _vsnwprintf(text.get(), capacity, format, args) : -1;
    va_end(args);
    if (written != length) return -1;
    *out = text.release();
    return length;
}

bool HMIBoundedCopy(WCHAR* dst, size_t capacity, const WCHAR* src) noexcept {
    if (!dst || capacity == 0) return false;
    size_t length = 0;
    while (src && length < capacity && src[length]) ++length;
    if (!src || length == capacity) {
        dst[0] = 0;
        return false;
    }
    std::char_traits<WCHAR>::copy(dst, src, length + 1);
    return true;
}
