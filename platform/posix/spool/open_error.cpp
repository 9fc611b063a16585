#include "open_error.h"

#include <cstdarg>
#include <cstdio>

namespace hmispool {

namespace {
thread_local char lastOpenError[4096];
}

void SetOpenError(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(lastOpenError, sizeof lastOpenError, format, arguments);
    va_end(arguments);
}

void ClearOpenError() { lastOpenError[0] = '\0'; }

const char* OpenError() { return lastOpenError; }

}  // namespace hmispool
