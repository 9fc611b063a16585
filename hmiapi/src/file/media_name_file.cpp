#include "file/file_query.h"
#include "file/file_readers.h"
#include "xml/hmi_xml_document.h"

namespace {

// A name's length is counted up to this many characters; longer names still report 261.
constexpr size_t kCountedNameChars = 260;

}  // namespace

bool HMIReadMediaNameFile(const WCHAR* path, const WCHAR* language, WCHAR* buffer, size_t bufferChars,
                          size_t* requiredChars) noexcept {
    if (!path || !language) return false;
    const HMIComPtr<IXMLDOMDocument2> document(HMILoadXMLFile(path));
    if (!document) return false;
    const HMIHeapString name =
        HMITextOf(HMIGetElementTextByLanguage, HMI_W("medianame_item"), language, document.get());
    if (!name) return false;
    size_t length = 0;
    while (length < kCountedNameChars && name[length]) ++length;
    if (buffer && length + 1 <= bufferChars) {
        // Only a name longer than the counted length can fail here; it reports no size.
        return HMIBoundedCopyFile(buffer, bufferChars, name.get());
    }
    if (requiredChars) *requiredChars = length + 1;
    return false;
}
