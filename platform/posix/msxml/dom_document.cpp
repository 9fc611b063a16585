#include "posix/msxml/dom_document.h"

#include "posix/msxml/dom_parse_error.h"

#include "posix/com/allocation.h"
#include "posix/msxml/libxml_setup.h"
#include "posix/msxml/parse.h"
#include "posix/msxml/selection.h"
#include "posix/msxml/utf.h"

namespace {

bool Equal(const WCHAR* a, const char* b) {
    for (; *a && *b; ++a, ++b)
        if (*a != static_cast<unsigned char>(*b)) return false;
    return *a == 0 && *b == 0;
}

}  // namespace

HRESULT DomDocument::Create(DomVersion version, REFIID riid, void** object) {
    HMIXmlPrepareThread();
    DomTree* tree = DomTree::Create(nullptr, version);
    if (!tree) return E_OUTOFMEMORY;
    DomDocument* document = HMIComNew<DomDocument>(tree, version);
    if (!document) {
        tree->Release();
        return E_OUTOFMEMORY;
    }
    HRESULT hr = document->QueryInterface(riid, object);
    document->Release();
    return hr;
}

DomDocument::~DomDocument() {
    HMIClearSelectionNamespaces(&namespaces_);
    tree_->Release();
}

HRESULT DomDocument::QueryInterface(REFIID riid, void** object) {
    return Answer(riid, object, {&IID_IXMLDOMNode, &IID_IXMLDOMDocument, &IID_IXMLDOMDocument2});
}

NodeContext DomDocument::Context() {
    return {this, &namespaces_, tree_, {NodeKind::Tree, reinterpret_cast<xmlNodePtr>(tree_->Doc()), nullptr}};
}

// Loading is always synchronous, which is what either answer asks for when the call returns.
HRESULT DomDocument::put_async(VARIANT_BOOL) { return S_OK; }

HRESULT DomDocument::Finish(xmlDocPtr doc, size_t textBytes, VARIANT_BOOL* isSuccessful) {
    if (DomTree* tree = DomTree::Create(doc, version_, textBytes)) {
        tree_->Release();
        tree_ = tree;
    } else {
        doc = nullptr;
    }
    if (isSuccessful) *isSuccessful = doc ? VARIANT_TRUE : VARIANT_FALSE;
    return doc ? S_OK : S_FALSE;
}

HRESULT DomDocument::load(VARIANT source, VARIANT_BOOL* isSuccessful) {
    if (!isSuccessful) return E_POINTER;
    *isSuccessful = VARIANT_FALSE;
    bool named = source.vt == VT_BSTR && source.bstrVal;
    char* location = named ? HMIUtf16ToUtf8(source.bstrVal, nullptr) : nullptr;
    failure_ = ParseFailure{};
    size_t bytes = 0;
    xmlDocPtr doc = location ? HMIParseFile(location, version_, &failure_, &bytes) : nullptr;
    if (!location) failure_ = {true, 0, 0, "no file named"};
    HMIComFree(location);
    return Finish(doc, bytes, isSuccessful);
}

HRESULT DomDocument::loadXML(BSTR text, VARIANT_BOOL* isSuccessful) {
    if (isSuccessful) *isSuccessful = VARIANT_FALSE;
    size_t length = 0;
    char* utf8 = text ? HMIUtf16ToUtf8(text, &length) : nullptr;
    failure_ = ParseFailure{};
    xmlDocPtr doc = utf8 ? HMIParseText(utf8, length, version_, &failure_) : nullptr;
    if (!utf8) failure_ = {true, 0, 0, "no text"};
    HMIComFree(utf8);
    return Finish(doc, length, isSuccessful);
}

HRESULT DomDocument::setProperty(BSTR name, VARIANT value) {
    if (!name) return E_INVALIDARG;
    bool language = Equal(name, "SelectionLanguage");
    if (!language && !Equal(name, "SelectionNamespaces")) return E_FAIL;
    if (value.vt != VT_BSTR || !value.bstrVal) return E_FAIL;
    // Only XPath is implemented; XSLPattern, 3.0's default, is refused rather than misread.
    if (language) return Equal(value.bstrVal, "XPath") ? S_OK : E_FAIL;
    return HMISetSelectionNamespaces(value.bstrVal, &namespaces_);
}

HRESULT DomDocument::get_parseError(IXMLDOMParseError** errorObj) {
    if (!errorObj) return E_INVALIDARG;
    *errorObj = HMIComNew<DomParseError>(failure_);
    return *errorObj ? S_OK : E_OUTOFMEMORY;
}

HRESULT DomParseError::get_reason(BSTR* reason) {
    if (!reason) return E_INVALIDARG;
    *reason = failure_.failed ? HMIBstrFromUtf8(reinterpret_cast<const unsigned char*>(failure_.reason)) : nullptr;
    return !failure_.failed ? S_FALSE : *reason ? S_OK : E_OUTOFMEMORY;
}
