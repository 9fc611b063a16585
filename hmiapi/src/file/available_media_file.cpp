#include <cstring>

#include "common/hmi_list_buffer.h"
#include "file/file_query.h"
#include "file/file_readers.h"
#include "xml/hmi_media_namespace.h"

bool HMIReadAvailableMediaFile(const WCHAR* path, _tagHMIAvailableMedia* buffer, size_t bufferBytes,
                               size_t* requiredBytes) noexcept {
    HMIFileItemList list;
    if (!list.Load(path, HMI_W(".//%s:%s"), HMI_MEDIA_PREFIX, HMI_W("papertype_info"))) return false;
    if (!HMIListBufferFits(buffer, bufferBytes, HMI_AVAILABLE_MEDIA_BYTES(list.length), requiredBytes)) return false;
    std::memset(buffer, 0, bufferBytes);
    buffer->ids = reinterpret_cast<WCHAR(*)[65]>(buffer + 1);
    // An item without an id is skipped; one that cannot be read for want of memory fails the list.
    bool failed = false;
    for (LONG i = 0; i < list.length && !failed; ++i) {
        HMIComPtr<IXMLDOMNode> item;
        if (!list.Item(i, item, &failed)) continue;
        const HMIHeapString id = HMIItemTextOf(&failed, HMIGetAttributeText, HMI_W("id"), item.get());
        if (!id) continue;
        // An id too long for its entry leaves the entry empty, and it still counts.
        HMIBoundedCopyFile(buffer->ids[buffer->count++], id.get());
    }
    return !failed;
}
