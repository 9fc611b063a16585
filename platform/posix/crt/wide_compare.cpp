#include "posix/crt/crt.h"

int lstrcmpW(const WCHAR* a, const WCHAR* b) {
    if (!a || !b) return (a ? 1 : 0) - (b ? 1 : 0);
    for (; *a && *a == *b; ++a, ++b) {
    }
    return *a == *b ? 0 : (*a < *b ? -1 : 1);
}
