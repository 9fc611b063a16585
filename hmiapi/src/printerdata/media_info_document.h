// A medium's media-information document, reassembled from its numbered chunks in the printer data.
#ifndef HMI_PRINTERDATA_MEDIA_INFO_DOCUMENT_H
#define HMI_PRINTERDATA_MEDIA_INFO_DOCUMENT_H

#include "platform/platform.h"

// The parsed document, owned by the caller (Release), or null. Needs COM on the calling thread.
IXMLDOMDocument2* LoadMediaInfoDocument(HANDLE printer, const WCHAR* key);

#endif
