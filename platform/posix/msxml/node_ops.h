// The IXMLDOMNode operations, shared by nodes and the document.
#ifndef HMI_POSIX_MSXML_NODE_OPS_H
#define HMI_POSIX_MSXML_NODE_OPS_H

#include "posix/msxml/dom_object.h"
#include "posix/msxml/node_ref.h"

HRESULT HMINodeName(const NodeContext& node, BSTR* name);
HRESULT HMINodeType(const NodeContext& node, DOMNodeType* type);
HRESULT HMINodeChildren(const NodeContext& node, IXMLDOMNodeList** list);
HRESULT HMINodeAttributes(const NodeContext& node, IXMLDOMNamedNodeMap** map);
HRESULT HMINodeText(const NodeContext& node, BSTR* text);
HRESULT HMINodeBaseName(const NodeContext& node, BSTR* name);
HRESULT HMINodeNamespaceURI(const NodeContext& node, BSTR* uri);
HRESULT HMINodePrefix(const NodeContext& node, BSTR* prefix);
HRESULT HMINodeSelectSingle(const NodeContext& node, BSTR query, IXMLDOMNode** result);
HRESULT HMINodeSelectAll(const NodeContext& node, BSTR query, IXMLDOMNodeList** result);

// A new node object for ref, keeping the owner and the tree alive.
HRESULT HMIMakeNode(const NodeContext& from, const NodeRef& ref, IXMLDOMNode** out);

template <typename Interface>
class NodeMethods : public ComObject<Interface> {
public:
    HRESULT get_nodeName(BSTR* name) override { return HMINodeName(Context(), name); }
    HRESULT get_nodeType(DOMNodeType* type) override { return HMINodeType(Context(), type); }
    HRESULT get_childNodes(IXMLDOMNodeList** list) override { return HMINodeChildren(Context(), list); }
    HRESULT get_attributes(IXMLDOMNamedNodeMap** map) override { return HMINodeAttributes(Context(), map); }
    HRESULT get_text(BSTR* text) override { return HMINodeText(Context(), text); }
    HRESULT get_baseName(BSTR* name) override { return HMINodeBaseName(Context(), name); }
    HRESULT get_namespaceURI(BSTR* uri) override { return HMINodeNamespaceURI(Context(), uri); }
    HRESULT get_prefix(BSTR* prefix) override { return HMINodePrefix(Context(), prefix); }
    HRESULT selectSingleNode(BSTR query, IXMLDOMNode** node) override {
        return HMINodeSelectSingle(Context(), query, node);
    }
    HRESULT selectNodes(BSTR query, IXMLDOMNodeList** list) override {
        return HMINodeSelectAll(Context(), query, list);
    }

protected:
    virtual NodeContext Context() = 0;
};

#endif
