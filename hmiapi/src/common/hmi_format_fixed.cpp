#include <cstdarg>

#include "common/hmi_string.h"

bool HMIFormatFixed(WCHAR* buffer, size_t capacity, const WCHAR* format, ...) noexcept {
    if (!buffer || !format || capacity == 0) return false;
    va_list args;
    va_start(args, format);
    const int n = _vsnwprintf(buffer, capacity, format, args);
    va_end(args);
    if (n < 0 || static_cast<size_t>(n) >= capacity) {
        buffer[0] = 0;
        return false;
    }
    return true;
}
