// The text property: descendants' text joined, one space where white space was removed at load,
// ends trimmed unless xml:space="preserve" is in scope, CDATA never trimmed.
#ifndef HMI_POSIX_MSXML_NODE_TEXT_H
#define HMI_POSIX_MSXML_NODE_TEXT_H

#include <libxml/tree.h>
#include "posix/com/com.h"

// Null when memory runs out.
BSTR HMIElementText(xmlNodePtr elementOrDocument);
BSTR HMILeafText(xmlNodePtr node);  // text, CDATA, comment, PI, attribute

#endif
