#include "posix/msxml/dom_list.h"

namespace {

template <typename Interface>
class DomList final : public ComObject<Interface> {
public:
    // nodes.items is freed with the list unless it lies in the list's own block (inline).
    DomList(const NodeContext& context, NodeArray nodes, bool inlineItems = false) noexcept
        : context_(context), nodes_(nodes), inlineItems_(inlineItems) {
        context_.owner->AddRef();
        context_.tree->AddRef();
    }
    ~DomList() override {
        if (!inlineItems_) HMIComFree(nodes_.items);
        context_.tree->Release();
        context_.owner->Release();
    }

    HRESULT QueryInterface(REFIID riid, void** object) override;

    HRESULT get_length(LONG* length) override {
        if (!length) return E_INVALIDARG;
        *length = nodes_.count;
        return S_OK;
    }

    HRESULT get_item(LONG index, IXMLDOMNode** item) override {
        if (!item) return E_INVALIDARG;
        *item = nullptr;
        if (index < 0 || index >= nodes_.count) return S_FALSE;
        return HMIMakeNode(context_, nodes_.items[index], item);
    }

private:
    NodeContext context_;
    NodeArray nodes_;
    bool inlineItems_;
};

template <>
HRESULT DomList<IXMLDOMNodeList>::QueryInterface(REFIID riid, void** object) {
    return this->Answer(riid, object, {&IID_IXMLDOMNodeList});
}

template <>
HRESULT DomList<IXMLDOMNamedNodeMap>::QueryInterface(REFIID riid, void** object) {
    return this->Answer(riid, object, {&IID_IXMLDOMNamedNodeMap});
}

template <typename Interface>
HRESULT MakeList(const NodeContext& from, NodeArray nodes, Interface** out) {
    *out = HMIComNew<DomList<Interface>>(from, nodes);
    if (*out) return S_OK;
    HMIComFree(nodes.items);
    return E_OUTOFMEMORY;
}

// The attributes of an element without any: one map for all of them, never freed, so that the many
// value elements of a document cost no object each.
class EmptyNamedNodeMap final : public IXMLDOMNamedNodeMap {
public:
    HRESULT QueryInterface(REFIID riid, void** object) override {
        if (!object) return E_POINTER;
        *object = riid == IID_IUnknown || riid == IID_IXMLDOMNamedNodeMap ? this : nullptr;
        return *object ? S_OK : E_NOINTERFACE;
    }
    ULONG AddRef() override { return 1; }
    ULONG Release() override { return 1; }
    HRESULT get_length(LONG* length) override {
        if (!length) return E_INVALIDARG;
        *length = 0;
        return S_OK;
    }
    HRESULT get_item(LONG, IXMLDOMNode** item) override {
        if (!item) return E_INVALIDARG;
        *item = nullptr;
        return S_FALSE;
    }
};

}  // namespace

IXMLDOMNamedNodeMap* HMIEmptyNamedNodeMap() {
    static EmptyNamedNodeMap empty;
    return &empty;
}

HRESULT HMIMakeNodeList(const NodeContext& from, NodeArray nodes, IXMLDOMNodeList** out) {
    return MakeList(from, nodes, out);
}

HRESULT HMIMakeNamedNodeMap(const NodeContext& from, NodeArray nodes, IXMLDOMNamedNodeMap** out) {
    return MakeList(from, nodes, out);
}

HRESULT HMIMakeChildList(const NodeContext& from, xmlNodePtr first, IXMLDOMNodeList** out) {
    using List = DomList<IXMLDOMNodeList>;
    LONG count = 0;
    for (xmlNodePtr child = first; child; child = child->next) ++count;
    if (count >= (1 << 29)) return E_OUTOFMEMORY;
    // The references follow the list object in its own block: one allocation per list.
    constexpr size_t kItemsAt = (sizeof(List) + alignof(NodeRef) - 1) / alignof(NodeRef) * alignof(NodeRef);
    void* block = HMIComAlloc(kItemsAt + sizeof(NodeRef) * static_cast<size_t>(count));
    if (!block) return E_OUTOFMEMORY;
    NodeArray children{reinterpret_cast<NodeRef*>(static_cast<char*>(block) + kItemsAt), 0};
    for (xmlNodePtr child = first; child; child = child->next) HMIPutNode(&children, {NodeKind::Tree, child, nullptr});
    *out = new (block) List(from, children, true);
    return S_OK;
}

bool HMISizeNodes(NodeArray* nodes, LONG count) {
    if (count == 0) return true;
    if (count >= (1 << 29)) return false;
    nodes->items = static_cast<NodeRef*>(HMIComAlloc(sizeof(NodeRef) * static_cast<size_t>(count)));
    return nodes->items != nullptr;
}

bool HMIAppendNode(NodeArray* nodes, const NodeRef& ref) {
    LONG count = nodes->count;
    // Capacity is the next power of two, so growing needs no separate field.
    if ((count & (count - 1)) == 0) {
        if (count >= (1 << 29)) return false;
        void* grown = HMIComRealloc(nodes->items, sizeof(NodeRef) * (count ? 2 * count : 1));
        if (!grown) return false;
        nodes->items = static_cast<NodeRef*>(grown);
    }
    nodes->items[nodes->count++] = ref;
    return true;
}
