// The seam between the library and the operating system. Logic includes this header and nothing
// platform-specific; the build puts platform/win32 or platform/posix on the include path, and that
// folder's hmi_platform_api.h supplies the Windows API subset the library is written against:
//   types          WCHAR, BOOL, DWORD, LONG, ULONG, HRESULT, HANDLE, BSTR, VARIANT, VARIANT_BOOL, GUID
//   text           HMI_W("literal"), wcstoul, wcstol, _wtol, _wcstoui64, _vscwprintf,
//                  _vsnwprintf (wide %s), lstrcmpW
//   heap           HMISettleHeap (ours): freed small blocks sorted out now, not in a later allocation
//   spooler        GetPrinterDataExW, EnumPrinterDataExW, PRINTER_ENUM_VALUESW
//   COM            CoInitialize, CoUninitialize, CoCreateInstance, SysAllocString, SysFreeString
//   DOM            IXMLDOMDocument2, IXMLDOMNode, IXMLDOMNodeList, IXMLDOMNamedNodeMap,
//                  HMI_CLSID_DOMDocument60, HMI_CLSID_DOMDocument30, HMI_IID_IXMLDOMDocument2
#ifndef HMI_PLATFORM_H
#define HMI_PLATFORM_H

#include "xrvhmi.h"
#include <hmi_platform_api.h>

#endif
