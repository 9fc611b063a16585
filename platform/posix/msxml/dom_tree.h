// A parsed document, shared by the document object and every node and list handed out from it,
// so that nodes stay valid after the document object is released or loads another document.
#ifndef HMI_POSIX_MSXML_DOM_TREE_H
#define HMI_POSIX_MSXML_DOM_TREE_H

#include <cstdint>
#include <libxml/tree.h>

enum class DomVersion { Msxml30, Msxml60 };

// Marks left in xmlNode::_private where white space was removed at load.
constexpr uintptr_t kSpaceRemovedBefore = 1;  // on the node that followed the removed text
constexpr uintptr_t kSpaceRemovedAtEnd = 2;   // on the element whose last child was removed

inline uintptr_t HMISpaceMarks(const xmlNode* node) { return reinterpret_cast<uintptr_t>(node->_private); }

class DomTree {
public:
    // Takes the document (null: a new empty one) parsed from textBytes of UTF-8; null when memory runs
    // out.
    static DomTree* Create(xmlDocPtr doc, DomVersion version, size_t textBytes = 0) noexcept;

    void AddRef() noexcept { ++refs_; }
    void Release() noexcept;
    xmlDocPtr Doc() const noexcept { return doc_; }
    DomVersion Version() const noexcept { return version_; }

    DomTree(xmlDocPtr doc, DomVersion version, size_t textBytes) noexcept;
    ~DomTree();

private:
    long refs_ = 1;  // one thread at a time, as every DOM object's count
    xmlDocPtr doc_;
    DomVersion version_;
    bool large_;  // freeing it leaves enough small blocks to settle the heap for
};

#endif
