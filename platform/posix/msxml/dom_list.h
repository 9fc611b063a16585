// Node lists and attribute maps: a snapshot of node references taken when the list was asked for.
#ifndef HMI_POSIX_MSXML_DOM_LIST_H
#define HMI_POSIX_MSXML_DOM_LIST_H

#include "posix/msxml/node_ops.h"

// Takes the array (freed on failure too) and hands out a list or map over it.
HRESULT HMIMakeNodeList(const NodeContext& from, NodeArray nodes, IXMLDOMNodeList** out);
HRESULT HMIMakeNamedNodeMap(const NodeContext& from, NodeArray nodes, IXMLDOMNamedNodeMap** out);

// Appends one reference, growing the array; false when memory runs out.
bool HMIAppendNode(NodeArray* nodes, const NodeRef& ref);

#endif
