// The media-information namespace and the prefix that XPath queries bind to it.
#ifndef HMI_XML_MEDIA_NAMESPACE_H
#define HMI_XML_MEDIA_NAMESPACE_H

#include "platform/platform.h"

inline constexpr WCHAR HMI_MEDIA_NAMESPACE[] = HMI_W("http://xrvhmi.example.org/ns/cmd/2008/07/common/");
inline constexpr WCHAR HMI_MEDIA_PREFIX[] = HMI_W("iv");

#endif
