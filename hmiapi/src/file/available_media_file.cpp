#include <cstring>

#include "file/file_query.h"
#include "file/file_readers.h"
#include "xml/hmi_media_namespace.h"
#include "xml/hmi_xml_document.h"

bool HMIReadAvailableMediaFile(const WCHAR* path, _tagHMIAvailableMedia* buffer, size_t bufferBytes,
                               size_t* requiredBytes) noexcept {
    const HMIComPtr<IXMLDOMDocument2> document(HMILoadXMLFile(path));
    if (!document) return false;
    HMIBSTR query;
    HMIComPtr<IXMLDOMNodeList> list;
    LONG length = 0;
    if (!HMIFormatQuery(query, HMI_W(".//%s:%s"), HMI_MEDIA_PREFIX, HMI_W("papertype_info")) ||
        !HMISelectNodeList(query, document.get(), list, &length) || length <= 0) {
        return false;
    }
    const uint64_t required = HMI_AVAILABLE_MEDIA_BYTES(length);
    if (!buffer || bufferBytes < required) {
        if (requiredBytes) *requiredBytes = required;
        return false;
    }
    std::memset(buffer, 0, bufferBytes);
    buffer->ids = reinterpret_cast<WCHAR(*)[65]>(buffer + 1);
    for (LONG i = 0; i < length; ++i) {
        HMIComPtr<IXMLDOMNode> item;
        if (FAILED(list->get_item(i, item.put())) || !item) continue;
        const HMIHeapString id = HMITextOf(HMIGetAttributeText, HMI_W("id"), item.get());
        if (!id) continue;
        // An id too long for its entry leaves the entry empty, and it still counts.
        HMIBoundedCopyFile(buffer->ids[buffer->count++], id.get());
    }
    return true;
}
