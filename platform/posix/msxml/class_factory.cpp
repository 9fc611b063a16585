// The DOM document classes, created through CoCreateInstance.
#include <atomic>
#include "posix/com/apartment.h"
#include "posix/msxml/dom_document.h"
#include "posix/testhooks.h"

const IID IID_IXMLDOMNode = {0x2933bf80, 0x7b36, 0x11d2, {0xb2, 0x0e, 0x00, 0xc0, 0x4f, 0x98, 0x3e, 0x60}};
const IID IID_IXMLDOMDocument = {0x2933bf81, 0x7b36, 0x11d2, {0xb2, 0x0e, 0x00, 0xc0, 0x4f, 0x98, 0x3e, 0x60}};
const IID IID_IXMLDOMNodeList = {0x2933bf82, 0x7b36, 0x11d2, {0xb2, 0x0e, 0x00, 0xc0, 0x4f, 0x98, 0x3e, 0x60}};
const IID IID_IXMLDOMNamedNodeMap = {0x2933bf83, 0x7b36, 0x11d2, {0xb2, 0x0e, 0x00, 0xc0, 0x4f, 0x98, 0x3e, 0x60}};
const IID IID_IXMLDOMDocument2 = {0x2933bf95, 0x7b36, 0x11d2, {0xb2, 0x0e, 0x00, 0xc0, 0x4f, 0x98, 0x3e, 0x60}};
const IID IID_IXMLDOMParseError = {0x3efaa426, 0x272f, 0x11d2, {0x83, 0x6f, 0x00, 0x00, 0xf8, 0x7a, 0x77, 0x82}};

namespace {
std::atomic<bool> document60Available{true};
}

void HMITestSetDocument60Available(bool available) { document60Available = available; }

long HMITestLiveDomObjects() { return hmiLiveDomObjects; }

HRESULT CoCreateInstance(REFCLSID clsid, IUnknown* outer, DWORD, REFIID riid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (!HMIComInitializedOnThread()) return CO_E_NOTINITIALIZED;
    DomVersion version;
    if (clsid == HMI_CLSID_DOMDocument60 && document60Available) version = DomVersion::Msxml60;
    else if (clsid == HMI_CLSID_DOMDocument30) version = DomVersion::Msxml30;
    else return REGDB_E_CLASSNOTREG;
    if (outer) return CLASS_E_NOAGGREGATION;
    return DomDocument::Create(version, riid, object);
}
