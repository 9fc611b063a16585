#include "posix/msxml/selection.h"

#include <cstring>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>
#include "posix/com/allocation.h"
#include "posix/msxml/dom_list.h"
#include "posix/msxml/libxml_setup.h"
#include "posix/msxml/utf.h"

namespace {

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// Cuts one declaration out of the text in place; false on a syntax error.
bool NextDeclaration(char** cursor, SelectionNamespace* out) {
    char* p = *cursor;
    if (std::strncmp(p, "xmlns", 5) != 0) return false;
    p += 5;
    out->prefix = nullptr;
    if (*p == ':') {
        out->prefix = ++p;
        while (*p && *p != '=' && !IsSpace(*p)) ++p;
        if (p == out->prefix) return false;
    }
    char* nameEnd = p;
    if (*p++ != '=') return false;
    char quote = *p++;
    if (quote != '\'' && quote != '"') return false;
    out->uri = p;
    while (*p && *p != quote) ++p;
    if (!*p) return false;
    *nameEnd = 0;
    *p++ = 0;
    if (*p && !IsSpace(*p)) return false;
    *cursor = p;
    return true;
}

struct XPathContext {
    xmlXPathContextPtr context = nullptr;
    xmlXPathObjectPtr result = nullptr;
    ~XPathContext() {
        xmlXPathFreeObject(result);
        xmlXPathFreeContext(context);
    }
};

}  // namespace

void HMIClearSelectionNamespaces(SelectionNamespaces* namespaces) {
    HMIComFree(namespaces->items);
    HMIComFree(namespaces->text);
    *namespaces = SelectionNamespaces{};
}

HRESULT HMISetSelectionNamespaces(const WCHAR* text, SelectionNamespaces* namespaces) {
    SelectionNamespaces parsed;
    parsed.text = HMIUtf16ToUtf8(text, nullptr);
    if (!parsed.text) return E_OUTOFMEMORY;
    size_t capacity = 0;
    for (const char* p = parsed.text; *p; ++p) capacity += *p == '=';
    parsed.items = static_cast<SelectionNamespace*>(HMIComAlloc(sizeof(SelectionNamespace) * (capacity + 1)));
    HRESULT hr = parsed.items ? S_OK : E_OUTOFMEMORY;
    for (char* cursor = parsed.text; SUCCEEDED(hr);) {
        while (IsSpace(*cursor)) ++cursor;
        if (!*cursor) break;
        SelectionNamespace item;
        if (!NextDeclaration(&cursor, &item)) hr = E_FAIL;
        else if (item.prefix) parsed.items[parsed.count++] = item;
    }
    if (FAILED(hr)) {
        HMIClearSelectionNamespaces(&parsed);
        return hr;
    }
    HMIClearSelectionNamespaces(namespaces);
    *namespaces = parsed;
    return S_OK;
}

HRESULT HMISelect(const NodeContext& node, BSTR query, NodeArray* found) {
    if (!query) return E_INVALIDARG;
    HMIXmlPrepareThread();
    char* expression = HMIUtf16ToUtf8(query, nullptr);
    if (!expression) return E_OUTOFMEMORY;
    XPathContext xpath;
    xpath.context = xmlXPathNewContext(node.tree->Doc());
    HRESULT hr = xpath.context ? S_OK : E_OUTOFMEMORY;
    if (SUCCEEDED(hr)) {
        xpath.context->error = HMIXmlIgnoreError;
        xpath.context->node = node.ref.node;
        for (size_t i = 0; i < node.namespaces->count && SUCCEEDED(hr); ++i) {
            const SelectionNamespace& ns = node.namespaces->items[i];
            if (xmlXPathRegisterNs(xpath.context, reinterpret_cast<const xmlChar*>(ns.prefix),
                                   reinterpret_cast<const xmlChar*>(ns.uri)) != 0)
                hr = E_OUTOFMEMORY;
        }
    }
    if (SUCCEEDED(hr)) {
        // libxml2 2.9.14's XPath engine leaks, frees twice or dereferences null when an allocation
        // fails inside it, so injected failures stop at its door.
        HMIComUnrefusedAllocations evaluation;
        xpath.result = xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(expression), xpath.context);
        if (!xpath.result || xpath.result->type != XPATH_NODESET) hr = E_FAIL;
    }
    HMIComFree(expression);
    if (FAILED(hr)) return hr;
    // libxml2 compiles a sort into every expression, so the set is already in document order.
    xmlNodeSetPtr nodes = xpath.result->nodesetval;
    if (!nodes) return S_OK;
    for (int i = 0; i < nodes->nodeNr; ++i) {
        xmlNodePtr match = nodes->nodeTab[i];
        // Namespace nodes of the namespace axis have no object in this DOM.
        if (match->type == XML_NAMESPACE_DECL) continue;
        if (!HMIAppendNode(found, {NodeKind::Tree, match, nullptr})) return E_OUTOFMEMORY;
    }
    return S_OK;
}
