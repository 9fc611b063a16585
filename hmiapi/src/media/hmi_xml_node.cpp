#include "media/hmi_xml_node.h"

#include <new>

#include "media/xml_rejection.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_ptr.h"

namespace {

const WCHAR kXmlnsNamespace[] = HMI_W("http://www.w3.org/2000/xmlns/");

bool OutOfMemory(const HMIXMLNode* node) noexcept { return HMIXMLReject(node, {HMI_W("out of memory")}); }

bool DomFailure(const HMIXMLNode* node, const WCHAR* call) noexcept {
    return HMIXMLReject(node, {HMI_W("DOM call "), call, HMI_W(" failed")});
}

// Takes ownership of node into list; on failure node is deleted.
bool Adopt(std::vector<HMIXMLNode*>& list, HMIXMLNode* node) noexcept {
    try {
        list.push_back(node);
        return true;
    } catch (const std::bad_alloc&) {
        delete node;
        return false;
    }
}

// Room for count nodes in one block rather than a growing one; when refused, the list grows as it goes.
void Reserve(std::vector<HMIXMLNode*>& list, LONG count) noexcept {
    try {
        list.reserve(static_cast<size_t>(count));
    } catch (const std::bad_alloc&) {
    }
}

// A nameless node (a default namespace declaration under MSXML 3.0) is never found.
HMIXMLNode* FindFirst(const std::vector<HMIXMLNode*>& list, const WCHAR* key) noexcept {
    if (!key) return nullptr;
    for (HMIXMLNode* node : list) {
        if (node->Name() && lstrcmpW(node->Name(), key) == 0) return node;
    }
    return nullptr;
}

// The BSTR a DOM getter hands out, owned; false when the call fails.
template <typename Getter>
bool Take(Getter get, HMIOwnedBSTR* out) noexcept {
    BSTR value = nullptr;
    const HRESULT hr = get(&value);
    out->reset(value);
    return SUCCEEDED(hr);
}

}  // namespace

uint64_t HMIStrSignature(const WCHAR* s) noexcept {
    if (!s || !*s) return 0;
    const size_t n = HMIStrLen(s);
    return static_cast<uint64_t>(static_cast<uint16_t>(s[0])) |
           static_cast<uint64_t>(static_cast<uint16_t>(s[n / 2])) << 16 |
           static_cast<uint64_t>(static_cast<uint16_t>(s[n - 1])) << 32 |
           static_cast<uint64_t>(static_cast<uint16_t>(n)) << 48;
}

const HMIXMLChildEntry* HMIFindChildEntry(const HMIXMLChildRegistry* registry, const WCHAR* name) noexcept {
    if (!registry || !name) return nullptr;
    const uint64_t signature = HMIStrSignature(name);
    for (uint64_t i = 0; i < registry->count; ++i) {
        const HMIXMLChildEntry& entry = registry->entries[i];
        if (entry.signature == signature && lstrcmpW(entry.name, name) == 0) return &entry;
    }
    return nullptr;
}

HMIXMLNode::~HMIXMLNode() {
    for (HMIXMLNode* attribute : attributes) delete attribute;
    for (HMIXMLNode* child : children) delete child;
}

bool HMIXMLNode::Parse(IXMLDOMNode* node, const HMIXMLChildRegistry* registry) noexcept {
    int depth = 0;
    for (const HMIXMLNode* p = parent; p; p = p->parent) ++depth;
    if (!node) return DomFailure(this, HMI_W("(null node)"));
    HMIOwnedBSTR nodeName;
    if (!Take([&](BSTR* out) { return node->get_baseName(out); }, &nodeName)) {
        return DomFailure(this, HMI_W("get_baseName"));
    }
    return ParseAt(node, std::move(nodeName), registry, depth);
}

void HMIXMLNode::OnAddChild(HMIXMLNode*) {}

void HMIXMLNode::OnAddAttribute(HMIXMLNode*) {}

bool HMIXMLNode::OnParsed() { return true; }

bool HMIXMLNode::Keeps(const HMIXMLNode*) const noexcept { return true; }

void HMIXMLNode::Release() noexcept {
    name.reset();
    text.reset();
    for (HMIXMLNode* attribute : attributes) delete attribute;
    std::vector<HMIXMLNode*>().swap(attributes);
}

// Runs as soon as this node has read its children, so that what only the build reads is freed while
// the build goes on, in the order it was made, rather than all at once at the end.
void HMIXMLNode::ReleaseChildren() noexcept {
    size_t kept = 0;
    for (HMIXMLNode* child : children) {
        if (Keeps(child)) {
            child->Release();
            children[kept++] = child;
        } else {
            delete child;
        }
    }
    if (kept == children.size()) return;
    children.resize(kept);
    children.shrink_to_fit();  // non-binding: left as it is when memory runs out
}

HMIXMLNode* HMIXMLNode::FindAttribute(const WCHAR* key) const noexcept { return FindFirst(attributes, key); }

HMIXMLNode* HMIXMLNode::FindChild(const WCHAR* key) const noexcept { return FindFirst(children, key); }

size_t HMIXMLNode::CountChildren(const WCHAR* key) const noexcept {
    size_t count = 0;
    for (const HMIXMLNode* child : children) count += key && child->Name() && lstrcmpW(child->Name(), key) == 0;
    return count;
}

bool HMIXMLNode::ParseAt(IXMLDOMNode* node, HMIOwnedBSTR nodeName, const HMIXMLChildRegistry* registry,
                         int depth) noexcept {
    name = std::move(nodeName);
    if (depth > HMI_MAX_TREE_DEPTH) return HMIXMLReject(this, {HMI_W("nested more than 256 levels deep")});
    if (!ParseAttributes(node) || !ParseChildren(node, registry, depth) || !OnParsed()) return false;
    ReleaseChildren();
    return true;
}

// An attribute's value arrives as its text children. A namespace declaration's value is read as its
// text property instead: Wine's MSXML cannot hand out the children of a declaration.
bool HMIXMLNode::ParseAttributeNode(IXMLDOMNode* node) noexcept {
    HMIOwnedBSTR namespaceURI;
    if (!node) return DomFailure(this, HMI_W("(null node)"));
    if (!Take([&](BSTR* out) { return node->get_baseName(out); }, &name)) return DomFailure(this, HMI_W("get_baseName"));
    if (!Take([&](BSTR* out) { return node->get_namespaceURI(out); }, &namespaceURI)) {
        return DomFailure(this, HMI_W("get_namespaceURI"));
    }
    const bool declaration = namespaceURI && lstrcmpW(namespaceURI.get(), kXmlnsNamespace) == 0;
    return (declaration ? ReplaceText(node) : ParseChildren(node, nullptr, 0)) && OnParsed();
}

bool HMIXMLNode::ParseAttributes(IXMLDOMNode* node) noexcept {
    HMIComPtr<IXMLDOMNamedNodeMap> map;
    if (FAILED(node->get_attributes(map.put()))) return DomFailure(this, HMI_W("get_attributes"));
    if (!map) return true;
    LONG length = 0;
    if (FAILED(map->get_length(&length))) return DomFailure(this, HMI_W("IXMLDOMNamedNodeMap::get_length"));
    Reserve(attributes, length);
    for (LONG i = 0; i < length; ++i) {
        HMIComPtr<IXMLDOMNode> item;
        if (FAILED(map->get_item(i, item.put()))) return DomFailure(this, HMI_W("IXMLDOMNamedNodeMap::get_item"));
        HMIXMLNode* attribute = new (std::nothrow) HMIXMLNode(this);
        if (!attribute) return OutOfMemory(this);
        if (!attribute->ParseAttributeNode(item.get())) {
            delete attribute;
            return false;
        }
        if (!Adopt(attributes, attribute)) return OutOfMemory(this);
        OnAddAttribute(attribute);
    }
    return true;
}

bool HMIXMLNode::ParseChildren(IXMLDOMNode* node, const HMIXMLChildRegistry* registry, int depth) noexcept {
    HMIComPtr<IXMLDOMNodeList> list;
    if (FAILED(node->get_childNodes(list.put()))) return DomFailure(this, HMI_W("get_childNodes"));
    if (!list) return true;
    LONG length = 0;
    if (FAILED(list->get_length(&length))) return DomFailure(this, HMI_W("IXMLDOMNodeList::get_length"));
    if (length > 1) Reserve(children, length);  // a lone child is a value's text, not a node of the tree
    // Texts are not joined: the last text or CDATA child wins, so only its text is read.
    HMIComPtr<IXMLDOMNode> lastText;
    for (LONG i = 0; i < length; ++i) {
        HMIComPtr<IXMLDOMNode> item;
        if (FAILED(list->get_item(i, item.put())) || !item) {
            return DomFailure(this, HMI_W("IXMLDOMNodeList::get_item"));
        }
        DOMNodeType type = NODE_INVALID;
        if (FAILED(item->get_nodeType(&type))) return DomFailure(this, HMI_W("get_nodeType"));
        if (type == NODE_TEXT || type == NODE_CDATA_SECTION) {
            *lastText.put() = item.detach();
        } else if (type == NODE_ELEMENT && !ParseChildElement(item.get(), registry, depth)) {
            return false;
        }
    }
    return !lastText || ReplaceText(lastText.get());
}

bool HMIXMLNode::ReplaceText(IXMLDOMNode* item) noexcept {
    return Take([&](BSTR* out) { return item->get_text(out); }, &text) || DomFailure(this, HMI_W("get_text"));
}

bool HMIXMLNode::ParseChildElement(IXMLDOMNode* item, const HMIXMLChildRegistry* registry, int depth) noexcept {
    HMIOwnedBSTR childName;
    if (!Take([&](BSTR* out) { return item->get_baseName(out); }, &childName)) {
        return DomFailure(this, HMI_W("get_baseName"));
    }
    const HMIXMLChildEntry* entry = HMIFindChildEntry(registry, childName.get());
    HMIXMLNode* child = entry ? entry->create(this) : new (std::nothrow) HMIXMLNode(this);
    if (!child) return OutOfMemory(this);
    if (!child->ParseAt(item, std::move(childName), registry, depth + 1)) {
        delete child;
        return false;
    }
    if (!Adopt(children, child)) return OutOfMemory(this);
    OnAddChild(child);
    return true;
}
