// What a DOM node object stands for: a libxml2 node, or a namespace declaration shown as an
// attribute (libxml2 keeps those in nsDef), or the text child of such a declaration.
#ifndef HMI_POSIX_MSXML_NODE_REF_H
#define HMI_POSIX_MSXML_NODE_REF_H

#include "posix/msxml/dom_tree.h"
#include "posix/msxml/msxml.h"

enum class NodeKind { Tree, NamespaceDeclaration, NamespaceValue };

struct NodeRef {
    NodeKind kind;
    xmlNodePtr node;  // for the namespace kinds: the declaring element
    xmlNsPtr ns;
};

struct SelectionNamespace {
    const char* prefix;
    const char* uri;
};

// The prefix bindings of the SelectionNamespaces property.
struct SelectionNamespaces {
    char* text = nullptr;  // holds the prefixes and URIs
    SelectionNamespace* items = nullptr;
    size_t count = 0;
};

// Everything a node operation needs; owner and tree outlive the call.
struct NodeContext {
    IUnknown* owner;  // the document object, which every node and list keeps alive
    const SelectionNamespaces* namespaces;
    DomTree* tree;
    NodeRef ref;
};

// An owned array of node references (children, attributes, selection results).
struct NodeArray {
    NodeRef* items = nullptr;
    LONG count = 0;
};

#endif
