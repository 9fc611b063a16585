#include "xml/hmi_xml_query.h"

#include "common/hmi_string.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_media_namespace.h"

namespace {

// Runs a query that HMIFormatString built (its result and text), taking ownership of the text.
bool SelectFormattedQuery(int formatted, WCHAR* query, IXMLDOMNode* context, WCHAR** out) {
    HMIHeapString owner(query);
    if (formatted < 0) return false;
    HMIBSTR queryText;
    if (!queryText.assign(owner.get())) return false;
    owner.reset();
    return HMISelectNodeText(queryText.str, context, out);
}

bool ClearOut(WCHAR** out) {
    if (!out) return false;
    *out = nullptr;
    return true;
}

}  // namespace

bool HMIGetNodeText(IXMLDOMNode* node, WCHAR** out) noexcept {
    if (!ClearOut(out) || !node) return false;
    HMIBSTR text;
    if (FAILED(node->get_text(text.put()))) return false;
    *out = HMIStrDup(text.str);
    return *out != nullptr;
}

bool HMISelectNodeText(BSTR query, IXMLDOMNode* context, WCHAR** out) noexcept {
    if (!ClearOut(out) || !context) return false;
    HMIComPtr<IXMLDOMNode> node;
    if (FAILED(context->selectSingleNode(query, node.put())) || !node) return false;
    return HMIGetNodeText(node.get(), out);
}

bool HMIGetAttributeText(const WCHAR* name, IXMLDOMNode* node, WCHAR** out) noexcept {
    if (!ClearOut(out) || !node) return false;
    WCHAR* query = nullptr;
    const int formatted = HMIFormatString(&query, HMI_W("@%s"), name);
    return SelectFormattedQuery(formatted, query, node, out);
}

bool HMIGetElementText(const WCHAR* localName, IXMLDOMNode* context, WCHAR** out) noexcept {
    if (!ClearOut(out) || !context) return false;
    WCHAR* query = nullptr;
    const int formatted = HMIFormatString(&query, HMI_W(".//%s:%s"), HMI_MEDIA_PREFIX, localName);
    return SelectFormattedQuery(formatted, query, context, out);
}

bool HMIGetElementTextByLanguage(const WCHAR* localName, const WCHAR* language, IXMLDOMNode* context,
                                 WCHAR** out) noexcept {
    if (!ClearOut(out) || !language || !context) return false;
    WCHAR* query = nullptr;
    const int formatted = HMIFormatString(&query, HMI_W(".//%s:%s[@%s=\"%s\"]"), HMI_MEDIA_PREFIX, localName,
                                          HMI_W("language"), language);
    return SelectFormattedQuery(formatted, query, context, out);
}
