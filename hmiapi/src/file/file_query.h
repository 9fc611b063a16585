// Query helpers of the File readers: owned query answers, formatted queries and node lists.
#ifndef HMI_FILE_QUERY_H
#define HMI_FILE_QUERY_H

#include "common/hmi_string.h"
#include "platform/platform.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_xml_document.h"
#include "xml/hmi_xml_query.h"

// What a text query of the XML layer answers, owned; null when it found no text. With failed given,
// *failed is set when memory ran out, so that a list reader does not take that for a missing item.
template <typename Query, typename... Args>
HMIHeapString HMIItemTextOf(bool* failed, Query query, Args... args) noexcept {
    WCHAR* text = nullptr;
    query(args..., &text, failed);
    return HMIHeapString(text);
}

template <typename Query, typename... Args>
HMIHeapString HMITextOf(Query query, Args... args) noexcept {
    return HMIItemTextOf(nullptr, query, args...);
}

// Hands the text of the first element localName below context to store; false when there is none.
template <typename Store>
bool HMIReadElementText(IXMLDOMNode* context, const WCHAR* localName, Store store) {
    const HMIHeapString text = HMITextOf(HMIGetElementText, localName, context);
    if (!text) return false;
    store(text.get());
    return true;
}

// The items of a list file: the elements that one formatted query selects in the loaded file.
struct HMIFileItemList {
    HMIComPtr<IXMLDOMDocument2> document;
    HMIComPtr<IXMLDOMNodeList> items;
    LONG length = 0;

    // False when the file does not load, the query fails, or it selects nothing.
    template <typename... Args>
    bool Load(const WCHAR* path, const WCHAR* format, Args... args) noexcept {
        *document.put() = HMILoadXMLFile(path);
        HMIBSTR query;
        return document && HMIFormatQuery(query, format, args...) &&
               SUCCEEDED(document->selectNodes(query.str, items.put())) && items &&
               SUCCEEDED(items->get_length(&length)) && length > 0;
    }

    // Item i; false when the list cannot hand it out, and *failed set when memory ran out.
    bool Item(LONG i, HMIComPtr<IXMLDOMNode>& item, bool* failed) const noexcept {
        const HRESULT hr = items->get_item(i, item.put());
        if (hr == E_OUTOFMEMORY) *failed = true;
        return SUCCEEDED(hr) && item;
    }
};

#endif
