#include <cstring>

#include "common/hmi_list_buffer.h"
#include "file/file_query.h"
#include "file/file_readers.h"

namespace {

// Fills entry from item; false (the item skipped) when its language or name is missing or too long,
// and *failed set when memory ran out.
bool ReadNameItem(IXMLDOMNode* item, _tagHMIMediaName& entry, bool* failed) {
    const HMIHeapString language = HMIItemTextOf(failed, HMIGetAttributeText, HMI_W("language"), item);
    if (!language || !HMIBoundedCopyFile(entry.language, language.get())) return false;
    const HMIHeapString name = HMIItemTextOf(failed, HMIGetNodeText, item);
    return name && HMIBoundedCopyFile(entry.name, name.get());
}

}  // namespace

bool HMIReadMediaNameListFile(const WCHAR* path, _tagHMIMediaNameList* buffer, size_t bufferBytes,
                              size_t* requiredBytes) noexcept {
    if (!path) return false;
    // No prefix: the names are the "medianame_item" elements in no namespace.
    HMIFileItemList list;
    if (!list.Load(path, HMI_W(".//%s"), HMI_W("medianame_item"))) return false;
    const uint64_t required = HMI_MEDIA_NAME_LIST_BYTES(list.length);
    if (!HMIListBufferFits(buffer, bufferBytes, required, requiredBytes)) return false;
    std::memset(buffer, 0, required);
    buffer->names = reinterpret_cast<_tagHMIMediaName*>(buffer + 1);
    bool failed = false;
    for (LONG i = 0; i < list.length && !failed; ++i) {
        HMIComPtr<IXMLDOMNode> item;
        if (!list.Item(i, item, &failed)) continue;
        // A skipped item's entry is taken by the next item that succeeds.
        if (ReadNameItem(item.get(), buffer->names[buffer->count], &failed)) ++buffer->count;
    }
    return !failed;
}
