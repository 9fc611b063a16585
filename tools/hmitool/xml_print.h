// Indented XML of a DOM subtree, read through the DOM interfaces the library uses.
#ifndef HMITOOL_XML_PRINT_H
#define HMITOOL_XML_PRINT_H

#include <string>

#include "platform/platform.h"

namespace hmitool {

// False when a DOM call fails; what was printed until then stays in out.
bool PrintXml(IXMLDOMNode* node, std::string* out);

}  // namespace hmitool

#endif
