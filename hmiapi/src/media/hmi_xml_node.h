// HMIXMLNode: an element or attribute taken out of the DOM with its attributes, text and child
// elements. A child registry decides which elements become typed nodes. Names and texts are the
// DOM's own BSTRs; lookups scan in document order, the few children of a node.
#ifndef HMI_MEDIA_XML_NODE_H
#define HMI_MEDIA_XML_NODE_H

#include <cstdint>
#include <memory>
#include <vector>

#include "common/hmi_string.h"
#include "platform/platform.h"

class HMIXMLNode;

struct HMIXMLChildEntry {
    const WCHAR* name;
    uint64_t signature;  // HMIStrSignature(name)
    HMIXMLNode* (*create)(HMIXMLNode* parent);  // null when the node cannot be allocated
};

struct HMIXMLChildRegistry {
    uint64_t count;
    const HMIXMLChildEntry* entries;
};

// From the least significant: the first unit, the unit at n / 2, the last unit, n (16 bits); 0 for a
// null or empty string.
uint64_t HMIStrSignature(const WCHAR* s) noexcept;

// The first entry whose name equals name (case-sensitive), or null.
const HMIXMLChildEntry* HMIFindChildEntry(const HMIXMLChildRegistry* registry, const WCHAR* name) noexcept;

// Elements deeper than this below the root are refused, so that Parse cannot exhaust the stack.
constexpr int HMI_MAX_TREE_DEPTH = 256;

// A BSTR as the DOM handed it out, freed with SysFreeString.
struct HMIBSTRFree {
    void operator()(WCHAR* text) const noexcept { SysFreeString(text); }
};
using HMIOwnedBSTR = std::unique_ptr<WCHAR, HMIBSTRFree>;

class HMIXMLNode {
public:
    explicit HMIXMLNode(HMIXMLNode* parent) noexcept : parent(parent) {}
    HMIXMLNode(const HMIXMLNode&) = delete;
    HMIXMLNode& operator=(const HMIXMLNode&) = delete;
    virtual ~HMIXMLNode();

    // Builds this fresh node from node and its subtree; false on any DOM failure, allocation failure,
    // excessive depth or a false OnParsed anywhere below. The registry may be null.
    virtual bool Parse(IXMLDOMNode* node, const HMIXMLChildRegistry* registry) noexcept;

    virtual void OnAddChild(HMIXMLNode* child);
    virtual void OnAddAttribute(HMIXMLNode* attribute);
    // Runs once the whole subtree exists; its result becomes the result of Parse.
    virtual bool OnParsed();

    // Frees what only the build reads of this node: its name, text and attributes. Its parent calls
    // it once it has read them; the root's owner once the tree is built. Never fails.
    void Release() noexcept;

    // The first direct attribute or child of that name in document order, or null.
    HMIXMLNode* FindAttribute(const WCHAR* name) const noexcept;
    HMIXMLNode* FindChild(const WCHAR* name) const noexcept;
    // How many children of that name have been added so far.
    size_t CountChildren(const WCHAR* name) const noexcept;

    HMIXMLNode* Parent() const { return parent; }
    const WCHAR* Name() const { return name.get(); }
    const WCHAR* Text() const { return text.get(); }
    const std::vector<HMIXMLNode*>& Attributes() const { return attributes; }
    const std::vector<HMIXMLNode*>& Children() const { return children; }

protected:
    // Whether a child stays once this node has been built (and is then released), or is deleted:
    // every child of a plain node stays; a level keeps the children a query can reach.
    virtual bool Keeps(const HMIXMLNode* child) const noexcept;

private:
    bool ParseAt(IXMLDOMNode* node, HMIOwnedBSTR nodeName, const HMIXMLChildRegistry* registry, int depth) noexcept;
    bool ParseAttributeNode(IXMLDOMNode* node) noexcept;
    bool ParseAttributes(IXMLDOMNode* node) noexcept;
    bool ParseChildren(IXMLDOMNode* node, const HMIXMLChildRegistry* registry, int depth) noexcept;
    bool ParseChildElement(IXMLDOMNode* item, const HMIXMLChildRegistry* registry, int depth) noexcept;
    bool ReplaceText(IXMLDOMNode* item) noexcept;
    void ReleaseChildren() noexcept;

    HMIXMLNode* parent;
    HMIOwnedBSTR name;
    HMIOwnedBSTR text;
    std::vector<HMIXMLNode*> attributes;
    std::vector<HMIXMLNode*> children;
};

#endif
