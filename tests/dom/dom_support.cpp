#include "dom/dom_support.h"

namespace domtest {

WString Wide(const std::string& utf8) {
    WString out;
    for (size_t i = 0; i < utf8.size();) {
        unsigned char b = static_cast<unsigned char>(utf8[i]);
        size_t n = b < 0x80 ? 1 : b < 0xE0 ? 2 : b < 0xF0 ? 3 : 4;
        uint32_t cp = n == 1 ? b : b & (0x7F >> n);
        for (size_t k = 1; k < n && i + k < utf8.size(); ++k) cp = (cp << 6) | (utf8[i + k] & 0x3F);
        i += n;
        if (cp >= 0x10000) {
            out += static_cast<WCHAR>(0xD800 + ((cp - 0x10000) >> 10));
            out += static_cast<WCHAR>(0xDC00 + ((cp - 0x10000) & 0x3FF));
        } else {
            out += static_cast<WCHAR>(cp);
        }
    }
    return out;
}

std::string Utf8(const WCHAR* text) {
    if (!text) return "(null)";
    std::string out;
    for (; *text; ++text) {
        uint32_t cp = static_cast<uint16_t>(*text);
        if (cp >= 0xD800 && cp <= 0xDBFF && text[1] >= 0xDC00 && text[1] <= 0xDFFF)
            cp = 0x10000 + ((cp - 0xD800) << 10) + (static_cast<uint16_t>(*++text) - 0xDC00);
        if (cp < 0x80) {
            out += static_cast<char>(cp);
        } else if (cp < 0x800) {
            out += static_cast<char>(0xC0 | (cp >> 6));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        } else if (cp < 0x10000) {
            out += static_cast<char>(0xE0 | (cp >> 12));
            out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | (cp >> 18));
            out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
            out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (cp & 0x3F));
        }
    }
    return out;
}

VARIANT StringVariant(const Bstr& text) {
    VARIANT v;
    VariantInit(&v);
    v.vt = VT_BSTR;
    v.bstrVal = text;
    return v;
}

HRESULT CreateConfiguredDocument(const CLSID& clsid, IXMLDOMDocument2** document) {
    *document = nullptr;
    IXMLDOMDocument2* created = nullptr;
    HRESULT hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, HMI_IID_IXMLDOMDocument2,
                                  reinterpret_cast<void**>(&created));
    if (FAILED(hr)) return hr;
    Bstr language("SelectionLanguage"), xpath("XPath"), namespaces("SelectionNamespaces");
    Bstr binding(std::string("xmlns:iv='") + kNamespace + "'");
    hr = created->put_async(VARIANT_FALSE);
    if (SUCCEEDED(hr)) hr = created->setProperty(language, StringVariant(xpath));
    if (SUCCEEDED(hr)) hr = created->setProperty(namespaces, StringVariant(binding));
    if (FAILED(hr)) {
        created->Release();
        return hr;
    }
    *document = created;
    return S_OK;
}

}  // namespace domtest
