#include "posix/msxml/dom_tree.h"

#include "posix/com/allocation.h"
#include "posix/crt/crt.h"
#include "posix/msxml/dom_object.h"

namespace {
// From this size on, freeing a document leaves so many small blocks that the allocator is made to
// sort them out at once; those of a smaller one are left for the next parse to reuse as they are.
constexpr size_t kLargeTextBytes = 256 << 10;
}  // namespace

DomTree* DomTree::Create(xmlDocPtr doc, DomVersion version, size_t textBytes) noexcept {
    xmlDocPtr owned = doc ? doc : xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0"));
    if (!owned) return nullptr;
    DomTree* tree = HMIComNew<DomTree>(owned, version, textBytes);
    if (!tree) xmlFreeDoc(owned);
    return tree;
}

DomTree::DomTree(xmlDocPtr doc, DomVersion version, size_t textBytes) noexcept
    : doc_(doc), version_(version), large_(textBytes >= kLargeTextBytes) {
    ++hmiLiveDomObjects;
}

DomTree::~DomTree() {
    xmlFreeDoc(doc_);
    if (large_) HMISettleHeap();
    --hmiLiveDomObjects;
}

void DomTree::Release() noexcept {
    if (--refs_ == 0) HMIComDelete(this);
}
