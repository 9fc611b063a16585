// Node lists and attribute maps: a snapshot of node references taken when the list was asked for.
#ifndef HMI_POSIX_MSXML_DOM_LIST_H
#define HMI_POSIX_MSXML_DOM_LIST_H

#include "posix/msxml/node_ops.h"

// Takes the array (freed on failure too) and hands out a list or map over it.
HRESULT HMIMakeNodeList(const NodeContext& from, NodeArray nodes, IXMLDOMNodeList** out);
HRESULT HMIMakeNamedNodeMap(const NodeContext& from, NodeArray nodes, IXMLDOMNamedNodeMap** out);

// A list of first and its following siblings, held in the list object's own block.
HRESULT HMIMakeChildList(const NodeContext& from, xmlNodePtr first, IXMLDOMNodeList** out);

// Appends one reference, growing the array; false when memory runs out.
bool HMIAppendNode(NodeArray* nodes, const NodeRef& ref);

// The map of an element without attributes, shared and never freed (AddRef and Release do nothing).
IXMLDOMNamedNodeMap* HMIEmptyNamedNodeMap();

// An empty array with room for exactly count references, filled with HMIPutNode (not HMIAppendNode):
// one allocation for a list whose length is known. False when memory runs out.
bool HMISizeNodes(NodeArray* nodes, LONG count);
inline void HMIPutNode(NodeArray* nodes, const NodeRef& ref) { nodes->items[nodes->count++] = ref; }

#endif
