#include <cstring>
#include "posix/com/com.h"

void VariantInit(VARIANT* v) {
    if (v) std::memset(v, 0, sizeof *v);
}
