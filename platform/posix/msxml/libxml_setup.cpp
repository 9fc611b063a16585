#include "posix/msxml/libxml_setup.h"

#include <cstring>
#include <mutex>
#include <libxml/parser.h>
#include <libxml/xmlmemory.h>
#include "posix/com/allocation.h"

namespace {

void* Malloc(size_t size) { return HMIComAlloc(size); }
void* Realloc(void* block, size_t size) { return HMIComRealloc(block, size); }
void Free(void* block) { HMIComFree(block); }

char* Strdup(const char* text) {
    size_t size = std::strlen(text) + 1;
    auto* copy = static_cast<char*>(HMIComAlloc(size));
    if (copy) std::memcpy(copy, text, size);
    return copy;
}

void IgnoreGeneric(void*, const char*, ...) {}

}  // namespace

void HMIXmlIgnoreError(void*, xmlErrorPtr) {}

void HMIXmlPrepareThread() {
    // The wrappers end in malloc/free, so blocks libxml2 allocated earlier stay valid to free. The parser
    // is set up before any thread's own state: that state is guarded by a lock xmlInitParser makes, which
    // two threads starting at once would otherwise race to create.
    static std::once_flag once;
    std::call_once(once, [] {
        HMIComUnrefusedAllocations initialisation;
        xmlMemSetup(Free, Malloc, Realloc, Strdup);
        xmlInitParser();
    });
    thread_local bool silenced = false;
    if (!silenced) {
        xmlSetGenericErrorFunc(nullptr, IgnoreGeneric);
        xmlSetStructuredErrorFunc(nullptr, HMIXmlIgnoreError);
        silenced = true;
    }
}
