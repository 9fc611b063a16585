// One fuzz input run through the XML access layer: loaded as a document, then queried the way the
// readers query. Shared by the fuzzer and the replay of its seeds in the unit tests.
//
// Input: the first line is a language (also used as an attribute name); the rest is the document
// (both as in Units).
#ifndef HMI_FUZZ_XML_TEXT_EXERCISE_H
#define HMI_FUZZ_XML_TEXT_EXERCISE_H

#include <cstddef>
#include <cstdint>
#include <string>

#include "common/hmi_string.h"
#include "fuzz/fuzz_support.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_xml_document.h"
#include "xml/hmi_xml_query.h"

namespace hmifuzz {

struct XmlTextInput {
    WString language;
    WString document;
};

inline XmlTextInput SplitInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    XmlTextInput split;
    split.language = Units(input.Until('\n'));
    split.document = Units(input.Rest());
    return split;
}

// Runs a query and drops its answer.
template <typename Query>
void Ask(Query query) {
    WCHAR* out = nullptr;
    query(&out);
    HMIHeapString owner(out);
}

inline void QueryNode(IXMLDOMNode* node, const WString& language) {
    Ask([&](WCHAR** out) { HMIGetNodeText(node, out); });
    Ask([&](WCHAR** out) { HMIGetAttributeText(HMI_W("id"), node, out); });
    Ask([&](WCHAR** out) { HMIGetAttributeText(HMI_W("language"), node, out); });
    Ask([&](WCHAR** out) { HMIGetAttributeText(language.c_str(), node, out); });
}

// Every element in the document, as the list readers walk them, up to a bound.
inline void QueryElements(IXMLDOMDocument2* doc, const WString& language) {
    HMIBSTR query;
    HMIComPtr<IXMLDOMNodeList> list;
    if (!query.assign(HMI_W("//*")) || FAILED(doc->selectNodes(query.str, list.put())) || !list) return;
    LONG length = 0;
    if (FAILED(list->get_length(&length))) return;
    for (LONG i = 0; i < length && i < 64; ++i) {
        HMIComPtr<IXMLDOMNode> item;
        if (SUCCEEDED(list->get_item(i, item.put())) && item) QueryNode(item.get(), language);
    }
}

// Returns whether the document loaded.
inline bool ExerciseXmlText(const uint8_t* data, size_t size) {
    const XmlTextInput input = SplitInput(data, size);
    HMIComApartment com;
    if (!com.ok()) return false;
    HMIComPtr<IXMLDOMDocument2> doc(HMILoadXMLText(input.document.c_str()));
    if (!doc) return false;
    static const WCHAR* const kElements[] = {HMI_W("db_format_ver"), HMI_W("product_id"), HMI_W("pop-db-time"),
                                             HMI_W("visible"),       HMI_W("checksum"),   HMI_W("medianame_item")};
    for (const WCHAR* name : kElements) {
        Ask([&](WCHAR** out) { HMIGetElementText(name, doc.get(), out); });
    }
    Ask([&](WCHAR** out) { HMIGetElementTextByLanguage(HMI_W("medianame_item"), input.language.c_str(), doc.get(), out); });
    QueryNode(doc.get(), input.language);
    QueryElements(doc.get(), input.language);
    return true;
}

}  // namespace hmifuzz

#endif
