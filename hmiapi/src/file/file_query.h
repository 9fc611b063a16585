// Query helpers of the File readers: owned query answers, formatted queries and node lists.
#ifndef HMI_FILE_QUERY_H
#define HMI_FILE_QUERY_H

#include "common/hmi_string.h"
#include "platform/platform.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_xml_query.h"

// What a text query of the XML layer answers, owned; null when it found no text.
template <typename Query, typename... Args>
HMIHeapString HMITextOf(Query query, Args... args) noexcept {
    WCHAR* text = nullptr;
    query(args..., &text);
    return HMIHeapString(text);
}

// Hands the text of the first element localName below context to store; false when there is none.
template <typename Store>
bool HMIReadElementText(IXMLDOMNode* context, const WCHAR* localName, Store store) {
    const HMIHeapString text = HMITextOf(HMIGetElementText, localName, context);
    if (!text) return false;
    store(text.get());
    return true;
}

// The query that HMIFormatString makes of format and args, as a BSTR; false when either step fails.
template <typename... Args>
bool HMIFormatQuery(HMIBSTR& query, const WCHAR* format, Args... args) noexcept {
    WCHAR* text = nullptr;
    const int length = HMIFormatString(&text, format, args...);
    const HMIHeapString owner(text);
    return length > 0 && query.assign(owner.get());
}

// Every node that query selects below context, and their number; false when either call fails.
bool HMISelectNodeList(const HMIBSTR& query, IXMLDOMNode* context, HMIComPtr<IXMLDOMNodeList>& list,
                       LONG* length) noexcept;

#endif
