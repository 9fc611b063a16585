// DOM documents with the library's one parser configuration: synchronous loading, XPath selection,
// the prefix "iv" bound to the media-information namespace. Results carry one reference the caller owns.
#ifndef HMI_XML_DOCUMENT_H
#define HMI_XML_DOCUMENT_H

#include "platform/platform.h"

// The MSXML 6.0 document, or the 3.0 one where 6.0 is missing; null when neither can be made and set up.
IXMLDOMDocument2* HMICreateXMLDocument() noexcept;

// Null when the path or text is null, or the document cannot be created, read or parsed.
IXMLDOMDocument2* HMILoadXMLFile(const WCHAR* path) noexcept;
IXMLDOMDocument2* HMILoadXMLText(const WCHAR* text) noexcept;

#endif
