#include "xml/hmi_xml_document.h"

#include "common/hmi_string.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_media_namespace.h"

namespace {

HRESULT CreateDocument(const CLSID& clsid, HMIComPtr<IXMLDOMDocument2>& doc) {
    return CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, HMI_IID_IXMLDOMDocument2,
                            reinterpret_cast<void**>(doc.put()));
}

bool SetTextProperty(IXMLDOMDocument2* doc, const WCHAR* name, const WCHAR* value) {
    HMIBSTR nameText;
    HMIBSTR valueText;
    if (!nameText.assign(name) || !valueText.assign(value)) return false;
    return SUCCEEDED(doc->setProperty(nameText.str, valueText.var));
}

bool BindMediaNamespace(IXMLDOMDocument2* doc) {
    WCHAR* binding = nullptr;
    if (HMIFormatString(&binding, HMI_W("xmlns:%s='%s'"), HMI_MEDIA_PREFIX, HMI_MEDIA_NAMESPACE) < 0) return false;
    HMIHeapString owner(binding);
    return SetTextProperty(doc, HMI_W("SelectionNamespaces"), owner.get());
}

}  // namespace

IXMLDOMDocument2* HMICreateXMLDocument() noexcept {
    HMIComPtr<IXMLDOMDocument2> doc;
    HRESULT hr = CreateDocument(HMI_CLSID_DOMDocument60, doc);
    if (FAILED(hr)) hr = CreateDocument(HMI_CLSID_DOMDocument30, doc);
    if (FAILED(hr) || !doc) return nullptr;
    if (FAILED(doc->put_async(VARIANT_FALSE))) return nullptr;
    if (!SetTextProperty(doc.get(), HMI_W("SelectionLanguage"), HMI_W("XPath"))) return nullptr;
    if (!BindMediaNamespace(doc.get())) return nullptr;
    return doc.detach();
}

IXMLDOMDocument2* HMILoadXMLFile(const WCHAR* path) noexcept {
    if (!path) return nullptr;
    HMIComPtr<IXMLDOMDocument2> doc(HMICreateXMLDocument());
    if (!doc) return nullptr;
    HMIBSTR source;
    if (!source.assign(path)) return nullptr;
    VARIANT_BOOL loaded = VARIANT_FALSE;
    if (FAILED(doc->load(source.var, &loaded)) || loaded == VARIANT_FALSE) return nullptr;
    return doc.detach();
}

IXMLDOMDocument2* HMILoadXMLText(const WCHAR* text) noexcept {
    if (!text) return nullptr;
    HMIBSTR source;
    if (!source.assign(text)) return nullptr;
    HMIComPtr<IXMLDOMDocument2> doc(HMICreateXMLDocument());
    if (!doc) return nullptr;
    VARIANT_BOOL loaded = VARIANT_FALSE;
    if (FAILED(doc->loadXML(source.str, &loaded)) || loaded == VARIANT_FALSE) return nullptr;
    return doc.detach();
}
