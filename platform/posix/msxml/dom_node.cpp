#include "posix/msxml/dom_node.h"

DomNode::DomNode(const NodeContext& context) noexcept : context_(context) {
    context_.owner->AddRef();
    context_.tree->AddRef();
}

DomNode::~DomNode() {
    context_.tree->Release();
    context_.owner->Release();
}

HRESULT DomNode::QueryInterface(REFIID riid, void** object) { return Answer(riid, object, {&IID_IXMLDOMNode}); }

HRESULT HMIMakeNode(const NodeContext& from, const NodeRef& ref, IXMLDOMNode** out) {
    NodeContext context = from;
    context.ref = ref;
    *out = HMIComNew<DomNode>(context);
    return *out ? S_OK : E_OUTOFMEMORY;
}
