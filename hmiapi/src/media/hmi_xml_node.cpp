#include "media/hmi_xml_node.h"

#include <new>

#include "media/xml_rejection.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_ptr.h"

namespace {

const WCHAR kXmlnsNamespace[] = HMI_W("http://www.w3.org/2000/xmlns/");

// HMIStrDup that tells an allocation failure from an empty source.
bool DuplicateInto(const WCHAR* source, HMIHeapString* target) noexcept {
    target->reset(HMIStrDup(source));
    return *target || !source || !*source;
}

bool OutOfMemory(const HMIXMLNode* node) noexcept { return HMIXMLReject(node, {HMI_W("out of memory")}); }

bool DomFailure(const HMIXMLNode* node, const WCHAR* call) noexcept {
    return HMIXMLReject(node, {HMI_W("DOM call "), call, HMI_W(" failed")});
}

// Takes ownership of node into list and files it under its name; on failure node is owned by list, or
// deleted when it could not be added.
bool Adopt(std::vector<HMIXMLNode*>& list, HMIXMLNode::Index& index, HMIXMLNode* node) noexcept {
    try {
        list.push_back(node);
    } catch (const std::bad_alloc&) {
        delete node;
        return false;
    }
    // A nameless node (a default namespace declaration under MSXML 3.0) cannot be looked up anyway.
    if (!node->Name()) return true;
    try {
        index.emplace(node->Name(), node);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

// Equal names are kept in insertion order, and lower_bound finds the first of them (find may not).
HMIXMLNode* FindFirst(const HMIXMLNode::Index& index, const WCHAR* key) noexcept {
    if (!key) return nullptr;
    auto it = index.lower_bound(key);
    return it == index.end() || HMIStrLess()(key, it->first) ? nullptr : it->second;
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
    name.reset();
    namespaceURI.reset();
    text.reset();
    for (HMIXMLNode* attribute : attributes) delete attribute;
    for (HMIXMLNode* child : children) delete child;
    childIndex.clear();
    attributeIndex.clear();
    std::vector<HMIXMLNode*>().swap(children);
    std::vector<HMIXMLNode*>().swap(attributes);
}

bool HMIXMLNode::Parse(IXMLDOMNode* node, const HMIXMLChildRegistry* registry) noexcept {
    int depth = 0;
    for (const HMIXMLNode* p = parent; p; p = p->parent) ++depth;
    return ParseAt(node, registry, depth);
}

void HMIXMLNode::OnAddChild(HMIXMLNode*) {}

void HMIXMLNode::OnAddAttribute(HMIXMLNode*) {}

bool HMIXMLNode::OnParsed() { return true; }

HMIXMLNode* HMIXMLNode::FindAttribute(const WCHAR* key) const noexcept { return FindFirst(attributeIndex, key); }

HMIXMLNode* HMIXMLNode::FindChild(const WCHAR* key) const noexcept { return FindFirst(childIndex, key); }

bool HMIXMLNode::ParseNames(IXMLDOMNode* node) noexcept {
    if (!node) return DomFailure(this, HMI_W("(null node)"));
    HMIBSTR value;
    if (FAILED(node->get_baseName(value.put()))) return DomFailure(this, HMI_W("get_baseName"));
    if (!DuplicateInto(value.str, &name)) return OutOfMemory(this);
    if (FAILED(node->get_namespaceURI(value.put()))) return DomFailure(this, HMI_W("get_namespaceURI"));
    return DuplicateInto(value.str, &namespaceURI) || OutOfMemory(this);
}

bool HMIXMLNode::ParseAt(IXMLDOMNode* node, const HMIXMLChildRegistry* registry, int depth) noexcept {
    if (!ParseNames(node)) return false;
    if (depth > HMI_MAX_TREE_DEPTH) return HMIXMLReject(this, {HMI_W("nested more than 256 levels deep")});
    return ParseAttributes(node) && ParseChildren(node, registry, depth) && OnParsed();
}

// An attribute's value arrives as its text children. A namespace declaration's value is read as its
// text property instead: Wine's MSXML cannot hand out the children of a declaration.
bool HMIXMLNode::ParseAttributeNode(IXMLDOMNode* node) noexcept {
    if (!ParseNames(node)) return false;
    const bool declaration = namespaceURI && lstrcmpW(namespaceURI.get(), kXmlnsNamespace) == 0;
    return (declaration ? ReplaceText(node) : ParseChildren(node, nullptr, 0)) && OnParsed();
}

bool HMIXMLNode::ParseAttributes(IXMLDOMNode* node) noexcept {
    HMIComPtr<IXMLDOMNamedNodeMap> map;
    if (FAILED(node->get_attributes(map.put()))) return DomFailure(this, HMI_W("get_attributes"));
    if (!map) return true;
    LONG length = 0;
    if (FAILED(map->get_length(&length))) return DomFailure(this, HMI_W("IXMLDOMNamedNodeMap::get_length"));
    for (LONG i = 0; i < length; ++i) {
        HMIComPtr<IXMLDOMNode> item;
        if (FAILED(map->get_item(i, item.put()))) return DomFailure(this, HMI_W("IXMLDOMNamedNodeMap::get_item"));
        HMIXMLNode* attribute = new (std::nothrow) HMIXMLNode(this);
        if (!attribute) return OutOfMemory(this);
        if (!attribute->ParseAttributeNode(item.get())) {
            delete attribute;
            return false;
        }
        if (!Adopt(attributes, attributeIndex, attribute)) return OutOfMemory(this);
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
    for (LONG i = 0; i < length; ++i) {
        HMIComPtr<IXMLDOMNode> item;
        if (FAILED(list->get_item(i, item.put())) || !item) {
            return DomFailure(this, HMI_W("IXMLDOMNodeList::get_item"));
        }
        DOMNodeType type = NODE_INVALID;
        if (FAILED(item->get_nodeType(&type))) return DomFailure(this, HMI_W("get_nodeType"));
        bool ok = true;
        if (type == NODE_TEXT || type == NODE_CDATA_SECTION) {
            ok = ReplaceText(item.get());
        } else if (type == NODE_ELEMENT) {
            ok = ParseChildElement(item.get(), registry, depth);
        }
        if (!ok) return false;
    }
    return true;
}

// Texts are not joined: the last text or CDATA child wins.
bool HMIXMLNode::ReplaceText(IXMLDOMNode* item) noexcept {
    HMIBSTR value;
    if (FAILED(item->get_text(value.put()))) return DomFailure(this, HMI_W("get_text"));
    return DuplicateInto(value.str, &text) || OutOfMemory(this);
}

bool HMIXMLNode::ParseChildElement(IXMLDOMNode* item, const HMIXMLChildRegistry* registry, int depth) noexcept {
    HMIBSTR childName;
    if (FAILED(item->get_baseName(childName.put()))) return DomFailure(this, HMI_W("get_baseName"));
    const HMIXMLChildEntry* entry = HMIFindChildEntry(registry, childName.str);
    HMIXMLNode* child = entry ? entry->create(this) : new (std::nothrow) HMIXMLNode(this);
    if (!child) return OutOfMemory(this);
    if (!child->ParseAt(item, registry, depth + 1)) {
        delete child;
        return false;
    }
    if (!Adopt(children, childIndex, child)) return OutOfMemory(this);
    OnAddChild(child);
    return true;
}
