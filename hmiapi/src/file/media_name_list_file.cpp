#include <cstring>

#include "file/file_query.h"
#include "file/file_readers.h"
#include "xml/hmi_xml_document.h"

namespace {

// Fills entry from item; false (the item skipped) when its language or name is missing or too long.
bool ReadNameItem(IXMLDOMNode* item, _tagHMIMediaName& entry) {
    const HMIHeapString language = HMITextOf(HMIGetAttributeText, HMI_W("language"), item);
    if (!language || !HMIBoundedCopyFile(entry.language, language.get())) return false;
    const HMIHeapString name = HMITextOf(HMIGetNodeText, item);
    return name && HMIBoundedCopyFile(entry.name, name.get());
}

}  // namespace

bool HMIReadMediaNameListFile(const WCHAR* path, _tagHMIMediaNameList* buffer, size_t bufferBytes,
                              size_t* requiredBytes) noexcept {
    if (!path) return false;
    const HMIComPtr<IXMLDOMDocument2> document(HMILoadXMLFile(path));
    if (!document) return false;
    // No prefix: the names are the "medianame_item" elements in no namespace.
    HMIBSTR query;
    HMIComPtr<IXMLDOMNodeList> list;
    LONG length = 0;
    if (!HMIFormatQuery(query, HMI_W(".//%s"), HMI_W("medianame_item")) ||
        !HMISelectNodeList(query, document.get(), list, &length) || length <= 0) {
        return false;
    }
    const uint64_t required = HMI_MEDIA_NAME_LIST_BYTES(length);
    if (!buffer || bufferBytes < required) {
        if (requiredBytes) *requiredBytes = required;
        return false;
    }
    std::memset(buffer, 0, required);
    buffer->names = reinterpret_cast<_tagHMIMediaName*>(buffer + 1);
    for (LONG i = 0; i < length; ++i) {
        HMIComPtr<IXMLDOMNode> item;
        if (FAILED(list->get_item(i, item.put())) || !item) continue;
        // A skipped item's entry is taken by the next item that succeeds.
        if (ReadNameItem(item.get(), buffer->names[buffer->count])) ++buffer->count;
    }
    return true;
}
