// Text queries on DOM nodes. A text comes back in *out as a new[] string the caller releases with
// delete[]; *out is null whenever the answer is false. An empty text counts as no text. When failed is
// given, it is set to true if the answer is false because memory ran out rather than because there is
// no such text (a reader that lists items must not take the one for the other).
#ifndef HMI_XML_QUERY_H
#define HMI_XML_QUERY_H

#include "common/hmi_string.h"
#include "platform/platform.h"
#include "xml/hmi_bstr.h"

// The node's DOM text: an element's descendant text, an attribute's value.
bool HMIGetNodeText(IXMLDOMNode* node, WCHAR** out, bool* failed = nullptr) noexcept;

// The text of the first node that query selects from context.
bool HMISelectNodeText(BSTR query, IXMLDOMNode* context, WCHAR** out, bool* failed = nullptr) noexcept;

// The node's attribute name (in no namespace).
bool HMIGetAttributeText(const WCHAR* name, IXMLDOMNode* node, WCHAR** out, bool* failed = nullptr) noexcept;

// The first element below context with that local name in the media-information namespace.
bool HMIGetElementText(const WCHAR* localName, IXMLDOMNode* context, WCHAR** out, bool* failed = nullptr) noexcept;

// As HMIGetElementText, for the first such element whose "language" attribute equals language exactly.
// The language stands in the query verbatim: one holding a double quote matches nothing.
bool HMIGetElementTextByLanguage(const WCHAR* localName, const WCHAR* language, IXMLDOMNode* context,
                                 WCHAR** out, bool* failed = nullptr) noexcept;

// The query that HMIFormatString makes of format and args, as a BSTR; false when either step fails
// (with arguments that are not null, only for want of memory).
template <typename... Args>
bool HMIFormatQuery(HMIBSTR& query, const WCHAR* format, Args... args) noexcept {
    WCHAR* text = nullptr;
    const int length = HMIFormatString(&text, format, args...);
    const HMIHeapString owner(text);
    return length > 0 && query.assign(owner.get());
}

#endif
