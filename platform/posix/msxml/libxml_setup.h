// libxml2 set up for the substitute: allocations through the test hook, no output anywhere.
#ifndef HMI_POSIX_MSXML_LIBXML_SETUP_H
#define HMI_POSIX_MSXML_LIBXML_SETUP_H

#include <libxml/xmlerror.h>

// Call before any libxml2 work on the calling thread.
void HMIXmlPrepareThread();

// A structured error handler that drops everything.
void HMIXmlIgnoreError(void* context, xmlErrorPtr error);

#endif
