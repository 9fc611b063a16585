// XPath selection with the prefixes of the SelectionNamespaces property.
#ifndef HMI_POSIX_MSXML_SELECTION_H
#define HMI_POSIX_MSXML_SELECTION_H

#include "posix/msxml/node_ref.h"

// The nodes that the query selects from the node, in document order. E_FAIL for a syntax error,
// an undeclared prefix or a result that is not a node set.
HRESULT HMISelect(const NodeContext& node, BSTR query, NodeArray* found);

// Parses "xmlns:p='uri' xmlns:q=\"uri\" ..." with no space around "=", as MSXML does; a default
// declaration is accepted and binds nothing. E_FAIL for anything else; the previous bindings are
// replaced only on success.
HRESULT HMISetSelectionNamespaces(const WCHAR* text, SelectionNamespaces* namespaces);
void HMIClearSelectionNamespaces(SelectionNamespaces* namespaces);

#endif
