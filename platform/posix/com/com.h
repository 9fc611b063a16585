// The COM subset the library uses: GUIDs, IUnknown, BSTR, VARIANT and per-thread initialisation.
#ifndef HMI_POSIX_COM_H
#define HMI_POSIX_COM_H

#include <cstdint>
#include "posix/types.h"

typedef uint16_t WORD;

struct GUID {
    uint32_t Data1;
    uint16_t Data2;
    uint16_t Data3;
    uint8_t Data4[8];
};
typedef GUID IID;
typedef GUID CLSID;
typedef const IID& REFIID;
typedef const CLSID& REFCLSID;

bool IsEqualGUID(REFIID a, REFIID b);
inline bool operator==(REFIID a, REFIID b) { return IsEqualGUID(a, b); }
inline bool operator!=(REFIID a, REFIID b) { return !IsEqualGUID(a, b); }

struct IUnknown {
    virtual HRESULT QueryInterface(REFIID riid, void** object) = 0;
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;
};

typedef WCHAR* BSTR;
typedef int16_t VARIANT_BOOL;
#define VARIANT_TRUE ((VARIANT_BOOL)-1)
#define VARIANT_FALSE ((VARIANT_BOOL)0)

typedef uint16_t VARTYPE;
enum VARENUM : VARTYPE { VT_EMPTY = 0, VT_BSTR = 8, VT_BOOL = 11 };

struct VARIANT {
    VARTYPE vt;
    WORD wReserved1;
    WORD wReserved2;
    WORD wReserved3;
    union {
        BSTR bstrVal;
        VARIANT_BOOL boolVal;
        unsigned char reserved[16];
    };
};
static_assert(sizeof(VARIANT) == 24, "VARIANT has the Windows x64 size");

void VariantInit(VARIANT* v);

#define CLSCTX_INPROC_SERVER 1
#define COINIT_MULTITHREADED 0x0
#define COINIT_APARTMENTTHREADED 0x2
#define CO_E_NOTINITIALIZED ((HRESULT)0x800401F0)

HRESULT CoInitialize(void* reserved);
HRESULT CoInitializeEx(void* reserved, DWORD coInit);
void CoUninitialize();
HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD context, REFIID riid, void** object);

BSTR SysAllocString(const WCHAR* text);
BSTR SysAllocStringLen(const WCHAR* text, uint32_t length);
void SysFreeString(BSTR text);
uint32_t SysStringLen(BSTR text);

// The substitutes' own: a BSTR of length units whose characters the caller writes (only the
// terminator is set), and a BSTR cut to a shorter length in place.
BSTR HMIBstrWithRoom(uint32_t length);
void HMIBstrCut(BSTR text, uint32_t length);

extern const IID IID_IUnknown;
extern const CLSID HMI_CLSID_DOMDocument60;
extern const CLSID HMI_CLSID_DOMDocument30;
extern const IID HMI_IID_IXMLDOMDocument2;

#endif
