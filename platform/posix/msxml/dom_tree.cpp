#include "posix/msxml/dom_tree.h"

#include "posix/com/allocation.h"

DomTree* DomTree::Create(xmlDocPtr doc, DomVersion version) noexcept {
    xmlDocPtr owned = doc ? doc : xmlNewDoc(reinterpret_cast<const xmlChar*>("1.0"));
    if (!owned) return nullptr;
    DomTree* tree = HMIComNew<DomTree>(owned, version);
    if (!tree) xmlFreeDoc(owned);
    return tree;
}

DomTree::~DomTree() { xmlFreeDoc(doc_); }

void DomTree::Release() noexcept {
    if (--refs_ == 0) HMIComDelete(this);
}
