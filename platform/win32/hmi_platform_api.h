// Windows: the SDK itself.
#ifndef HMI_PLATFORM_API_H
#define HMI_PLATFORM_API_H

#include <windows.h>
#include <winspool.h>
#include <objbase.h>
#include <oleauto.h>
#include <msxml2.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <wchar.h>

#define HMI_W_(s) L##s
#define HMI_W(s) HMI_W_(s)

// The Windows heap merges freed blocks as they are freed: nothing is left for a later allocation.
inline void HMISettleHeap() noexcept {}

extern const CLSID HMI_CLSID_DOMDocument60;
extern const CLSID HMI_CLSID_DOMDocument30;
extern const IID HMI_IID_IXMLDOMDocument2;

#endif
