#include "xml/hmi_xml_query.h"

#include "common/hmi_string.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_media_namespace.h"

namespace {

// False, and *failed set when given: the answer of a query that ran out of memory.
bool OutOfMemory(bool* failed) {
    if (failed) *failed = true;
    return false;
}

bool ClearOut(WCHAR** out) {
    if (!out) return false;
    *out = nullptr;
    return true;
}

}  // namespace

bool HMIGetNodeText(IXMLDOMNode* node, WCHAR** out, bool* failed) noexcept {
    if (!ClearOut(out) || !node) return false;
    HMIBSTR text;
    const HRESULT hr = node->get_text(text.put());
    if (FAILED(hr)) return hr == E_OUTOFMEMORY ? OutOfMemory(failed) : false;
    *out = HMIStrDup(text.str);
    if (!*out && text.str && *text.str) return OutOfMemory(failed);
    return *out != nullptr;
}

bool HMISelectNodeText(BSTR query, IXMLDOMNode* context, WCHAR** out, bool* failed) noexcept {
    if (!ClearOut(out) || !context) return false;
    HMIComPtr<IXMLDOMNode> node;
    const HRESULT hr = context->selectSingleNode(query, node.put());
    if (hr == E_OUTOFMEMORY) return OutOfMemory(failed);
    if (FAILED(hr) || !node) return false;
    return HMIGetNodeText(node.get(), out, failed);
}

bool HMIGetAttributeText(const WCHAR* name, IXMLDOMNode* node, WCHAR** out, bool* failed) noexcept {
    if (!ClearOut(out) || !name || !node) return false;
    HMIBSTR query;
    if (!HMIFormatQuery(query, HMI_W("@%s"), name)) return OutOfMemory(failed);
    return HMISelectNodeText(query.str, node, out, failed);
}

bool HMIGetElementText(const WCHAR* localName, IXMLDOMNode* context, WCHAR** out, bool* failed) noexcept {
    if (!ClearOut(out) || !localName || !context) return false;
    HMIBSTR query;
    if (!HMIFormatQuery(query, HMI_W(".//%s:%s"), HMI_MEDIA_PREFIX, localName)) return OutOfMemory(failed);
    return HMISelectNodeText(query.str, context, out, failed);
}

bool HMIGetElementTextByLanguage(const WCHAR* localName, const WCHAR* language, IXMLDOMNode* context,
                                 WCHAR** out, bool* failed) noexcept {
    if (!ClearOut(out) || !localName || !language || !context) return false;
    HMIBSTR query;
    if (!HMIFormatQuery(query, HMI_W(".//%s:%s[@%s=\"%s\"]"), HMI_MEDIA_PREFIX, localName, HMI_W("language"),
                        language)) {
        return OutOfMemory(failed);
    }
    return HMISelectNodeText(query.str, context, out, failed);
}
