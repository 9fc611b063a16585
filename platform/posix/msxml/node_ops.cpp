#include "posix/msxml/node_ops.h"

#include "posix/msxml/dom_list.h"
#include "posix/msxml/node_text.h"
#include "posix/msxml/selection.h"
#include "posix/msxml/utf.h"

namespace {

const xmlChar kXmlnsUri[] = "http://www.w3.org/2000/xmlns/";
const xmlChar kXmlns[] = "xmlns";

bool IsNamedNode(const NodeRef& ref) {
    if (ref.kind == NodeKind::NamespaceDeclaration) return true;
    if (ref.kind == NodeKind::NamespaceValue) return false;
    xmlElementType type = ref.node->type;
    return type == XML_ELEMENT_NODE || type == XML_ATTRIBUTE_NODE;
}

// S_OK with the text, or S_FALSE with null when the text is null.
HRESULT Answer(const xmlChar* text, BSTR* out) {
    if (!text) return S_FALSE;
    *out = HMIBstrFromUtf8(text);
    return *out ? S_OK : E_OUTOFMEMORY;
}

// Prefix and local name joined with a colon.
HRESULT QualifiedName(const xmlChar* prefix, const xmlChar* local, BSTR* out) {
    if (!prefix) return Answer(local, out);
    xmlChar* joined = xmlBuildQName(local, prefix, nullptr, 0);
    if (!joined) return E_OUTOFMEMORY;
    HRESULT hr = Answer(joined, out);
    xmlFree(joined);
    return hr;
}

const xmlChar* FixedName(xmlElementType type) {
    switch (type) {
    case XML_TEXT_NODE: return reinterpret_cast<const xmlChar*>("#text");
    case XML_CDATA_SECTION_NODE: return reinterpret_cast<const xmlChar*>("#cdata-section");
    case XML_COMMENT_NODE: return reinterpret_cast<const xmlChar*>("#comment");
    case XML_DOCUMENT_NODE: return reinterpret_cast<const xmlChar*>("#document");
    default: return nullptr;
    }
}

}  // namespace

HRESULT HMINodeName(const NodeContext& node, BSTR* name) {
    if (!name) return E_INVALIDARG;
    *name = nullptr;
    const NodeRef& ref = node.ref;
    if (ref.kind == NodeKind::NamespaceDeclaration) return QualifiedName(ref.ns->prefix ? kXmlns : nullptr,
                                                                          ref.ns->prefix ? ref.ns->prefix : kXmlns, name);
    if (ref.kind == NodeKind::NamespaceValue) return Answer(FixedName(XML_TEXT_NODE), name);
    if (const xmlChar* fixed = FixedName(ref.node->type)) return Answer(fixed, name);
    if (IsNamedNode(ref)) return QualifiedName(ref.node->ns ? ref.node->ns->prefix : nullptr, ref.node->name, name);
    return Answer(ref.node->name, name);
}

HRESULT HMINodeType(const NodeContext& node, DOMNodeType* type) {
    if (!type) return E_INVALIDARG;
    const NodeRef& ref = node.ref;
    if (ref.kind != NodeKind::Tree) {
        *type = ref.kind == NodeKind::NamespaceDeclaration ? NODE_ATTRIBUTE : NODE_TEXT;
        return S_OK;
    }
    switch (ref.node->type) {
    case XML_ELEMENT_NODE: *type = NODE_ELEMENT; break;
    case XML_ATTRIBUTE_NODE: *type = NODE_ATTRIBUTE; break;
    case XML_TEXT_NODE: *type = NODE_TEXT; break;
    case XML_CDATA_SECTION_NODE: *type = NODE_CDATA_SECTION; break;
    case XML_ENTITY_REF_NODE: *type = NODE_ENTITY_REFERENCE; break;
    case XML_PI_NODE: *type = NODE_PROCESSING_INSTRUCTION; break;
    case XML_COMMENT_NODE: *type = NODE_COMMENT; break;
    case XML_DOCUMENT_NODE: *type = NODE_DOCUMENT; break;
    case XML_DTD_NODE: *type = NODE_DOCUMENT_TYPE; break;
    default: *type = NODE_INVALID; break;
    }
    return S_OK;
}

HRESULT HMINodeChildren(const NodeContext& node, IXMLDOMNodeList** list) {
    if (!list) return E_INVALIDARG;
    *list = nullptr;
    const NodeRef& ref = node.ref;
    if (ref.kind == NodeKind::NamespaceDeclaration) {
        NodeArray children;
        if (!HMIAppendNode(&children, {NodeKind::NamespaceValue, ref.node, ref.ns})) return E_OUTOFMEMORY;
        return HMIMakeNodeList(node, children, list);
    }
    xmlElementType type = ref.node->type;
    bool hasChildren = ref.kind == NodeKind::Tree &&
                       (type == XML_ELEMENT_NODE || type == XML_ATTRIBUTE_NODE || type == XML_DOCUMENT_NODE);
    return HMIMakeChildList(node, hasChildren ? ref.node->children : nullptr, list);
}

HRESULT HMINodeAttributes(const NodeContext& node, IXMLDOMNamedNodeMap** map) {
    if (!map) return E_INVALIDARG;
    *map = nullptr;
    const NodeRef& ref = node.ref;
    if (ref.kind != NodeKind::Tree || ref.node->type != XML_ELEMENT_NODE) return S_FALSE;
    NodeArray attributes;
    LONG count = 0;
    for (xmlAttrPtr attribute = ref.node->properties; attribute; attribute = attribute->next) ++count;
    for (xmlNsPtr ns = ref.node->nsDef; ns; ns = ns->next) ++count;
    if (count == 0) {
        *map = HMIEmptyNamedNodeMap();
        return S_OK;
    }
    const bool ok = HMISizeNodes(&attributes, count);
    for (xmlAttrPtr attribute = ok ? ref.node->properties : nullptr; attribute; attribute = attribute->next)
        HMIPutNode(&attributes, {NodeKind::Tree, reinterpret_cast<xmlNodePtr>(attribute), nullptr});
    // Declarations follow the ordinary attributes, as MSXML lists them.
    for (xmlNsPtr ns = ok ? ref.node->nsDef : nullptr; ns; ns = ns->next)
        HMIPutNode(&attributes, {NodeKind::NamespaceDeclaration, ref.node, ns});
    if (!ok) {
        HMIComFree(attributes.items);
        return E_OUTOFMEMORY;
    }
    return HMIMakeNamedNodeMap(node, attributes, map);
}

HRESULT HMINodeText(const NodeContext& node, BSTR* text) {
    if (!text) return E_INVALIDARG;
    const NodeRef& ref = node.ref;
    if (ref.kind != NodeKind::Tree) *text = HMIBstrFromUtf8(ref.ns->href);
    else if (ref.node->type == XML_ELEMENT_NODE || ref.node->type == XML_DOCUMENT_NODE) *text = HMIElementText(ref.node);
    else *text = HMILeafText(ref.node);
    return *text ? S_OK : E_OUTOFMEMORY;
}

HRESULT HMINodeBaseName(const NodeContext& node, BSTR* name) {
    if (!name) return E_INVALIDARG;
    *name = nullptr;
    const NodeRef& ref = node.ref;
    if (ref.kind == NodeKind::NamespaceDeclaration) {
        if (ref.ns->prefix) return Answer(ref.ns->prefix, name);
        bool msxml60 = node.tree->Version() == DomVersion::Msxml60;
        return Answer(msxml60 ? kXmlns : reinterpret_cast<const xmlChar*>(""), name);
    }
    if (ref.kind == NodeKind::Tree && (IsNamedNode(ref) || ref.node->type == XML_PI_NODE ||
                                       ref.node->type == XML_ENTITY_REF_NODE))
        return Answer(ref.node->name, name);
    return S_FALSE;
}

HRESULT HMINodeNamespaceURI(const NodeContext& node, BSTR* uri) {
    if (!uri) return E_INVALIDARG;
    *uri = nullptr;
    const NodeRef& ref = node.ref;
    if (ref.kind == NodeKind::NamespaceDeclaration) {
        bool msxml60 = node.tree->Version() == DomVersion::Msxml60;
        return Answer(msxml60 ? kXmlnsUri : reinterpret_cast<const xmlChar*>(""), uri);
    }
    if (!IsNamedNode(ref) || !ref.node->ns) return S_FALSE;
    return Answer(ref.node->ns->href, uri);
}

HRESULT HMINodePrefix(const NodeContext& node, BSTR* prefix) {
    if (!prefix) return E_INVALIDARG;
    *prefix = nullptr;
    const NodeRef& ref = node.ref;
    if (ref.kind == NodeKind::NamespaceDeclaration) return Answer(ref.ns->prefix ? kXmlns : nullptr, prefix);
    if (!IsNamedNode(ref) || !ref.node->ns) return S_FALSE;
    return Answer(ref.node->ns->prefix, prefix);
}

HRESULT HMINodeSelectSingle(const NodeContext& node, BSTR query, IXMLDOMNode** result) {
    if (!result) return E_INVALIDARG;
    *result = nullptr;
    NodeArray found;
    HRESULT hr = HMISelect(node, query, &found);
    if (SUCCEEDED(hr)) hr = found.count ? HMIMakeNode(node, found.items[0], result) : S_FALSE;
    HMIComFree(found.items);
    return hr;
}

HRESULT HMINodeSelectAll(const NodeContext& node, BSTR query, IXMLDOMNodeList** result) {
    if (!result) return E_INVALIDARG;
    *result = nullptr;
    NodeArray found;
    HRESULT hr = HMISelect(node, query, &found);
    if (FAILED(hr)) {
        HMIComFree(found.items);
        return hr;
    }
    return HMIMakeNodeList(node, found, result);
}
