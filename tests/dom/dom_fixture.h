// The DOM as the library configures it, one document per test inside COM initialisation. Written only
// against platform/platform.h, so the same tests run on Wine's MSXML and on the Linux substitute.
#ifndef HMI_TESTS_DOM_FIXTURE_H
#define HMI_TESTS_DOM_FIXTURE_H

#include <gtest/gtest.h>
#include <algorithm>
#include <string>
#include <string_view>
#include <vector>
#include "platform/platform.h"

namespace domtest {

using Text = std::u16string;  // WCHAR is char16_t on Linux, a 16-bit wchar_t on Windows

#define DOMTEST_IV u"http://xrvhmi.example.org/ns/cmd/2008/07/common/"

inline std::string Show(const Text& text) { return ::testing::PrintToString(text); }

// Written into out-parameters first, so that a call which does not write one is seen.
template <typename T>
T Poison() {
    return reinterpret_cast<T>(static_cast<uintptr_t>(0xCDCDCDCDu));
}

class Bstr {
public:
    Bstr() = default;
    explicit Bstr(std::u16string_view text) : str_(SysAllocStringLen(nullptr, static_cast<unsigned>(text.size()))) {
        if (str_) std::copy(text.begin(), text.end(), str_);
    }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { Reset(); }
    BSTR* Out() {
        Reset();
        str_ = Poison<BSTR>();
        return &str_;
    }
    operator BSTR() const { return str_; }
    Text Get() const {
        if (str_ == Poison<BSTR>()) return u"(unwritten)";
        return str_ ? Text(str_, str_ + SysStringLen(str_)) : u"(null)";
    }

private:
    void Reset() {
        if (str_ != Poison<BSTR>()) SysFreeString(str_);
        str_ = nullptr;
    }
    BSTR str_ = nullptr;
};

template <typename I>
class Ptr {
public:
    Ptr() = default;
    Ptr(const Ptr&) = delete;
    Ptr& operator=(const Ptr&) = delete;
    ~Ptr() { Reset(); }
    I** Out() {
        Reset();
        ptr_ = Poison<I*>();
        return &ptr_;
    }
    void Reset() {
        if (ptr_ && ptr_ != Poison<I*>()) ptr_->Release();
        ptr_ = nullptr;
    }
    I* operator->() const { return ptr_; }
    I* Get() const { return ptr_; }
    explicit operator bool() const { return ptr_ != nullptr; }

private:
    I* ptr_ = nullptr;
};

inline VARIANT StringVariant(BSTR text) {
    VARIANT v;
    VariantInit(&v);
    v.vt = VT_BSTR;
    v.bstrVal = text;
    return v;
}

// CoCreateInstance of the class, then async off, XPath, and the "iv" prefix bound, as the library does.
inline HRESULT CreateDocument(const CLSID& clsid, IXMLDOMDocument2** document) {
    *document = nullptr;
    HRESULT hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, HMI_IID_IXMLDOMDocument2,
                                  reinterpret_cast<void**>(document));
    if (FAILED(hr)) return hr;
    Bstr language(u"SelectionLanguage"), xpath(u"XPath"), namespaces(u"SelectionNamespaces");
    Bstr binding(u"xmlns:iv='" DOMTEST_IV u"'");
    if (!language || !xpath || !namespaces || !binding) hr = E_OUTOFMEMORY;
    if (SUCCEEDED(hr)) hr = (*document)->put_async(VARIANT_FALSE);
    if (SUCCEEDED(hr)) hr = (*document)->setProperty(language, StringVariant(xpath));
    if (SUCCEEDED(hr)) hr = (*document)->setProperty(namespaces, StringVariant(binding));
    if (FAILED(hr)) {
        (*document)->Release();
        *document = nullptr;
    }
    return hr;
}

// Wine's MSXML differs from Windows' in a few named places.
inline bool RunsOnWine() {
#ifdef _WIN32
    HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    return ntdll && GetProcAddress(ntdll, "wine_get_version");
#else
    return false;
#endif
}

// The node's type as one letter: e element, a attribute, t text, c CDATA, p processing instruction,
// m comment, d document.
inline char Kind(IXMLDOMNode* node) {
    DOMNodeType type = NODE_INVALID;
    EXPECT_EQ(S_OK, node->get_nodeType(&type));
    return "?eatc??pmd"[type >= NODE_ELEMENT && type <= NODE_DOCUMENT ? type : 0];
}

// "kind nodeName baseName prefix namespaceURI"; a name the node lacks is "(null)", answered with S_FALSE.
inline Text NamesOf(IXMLDOMNode* node) {
    Bstr name;
    EXPECT_EQ(S_OK, node->get_nodeName(name.Out()));
    Text names = Text(1, Kind(node)) + u" " + name.Get();
    for (auto getter : {&IXMLDOMNode::get_baseName, &IXMLDOMNode::get_prefix, &IXMLDOMNode::get_namespaceURI}) {
        Bstr part;
        HRESULT hr = (node->*getter)(part.Out());
        EXPECT_EQ(part.Get() == u"(null)" ? S_FALSE : S_OK, hr) << Show(names);
        names += u" " + part.Get();
    }
    return names;
}

class DomTest : public ::testing::Test {
protected:
    void SetUp() override {
        init_ = CoInitialize(nullptr);
        ASSERT_EQ(S_OK, init_);
        Use(HMI_CLSID_DOMDocument60);
    }
    void TearDown() override {
        if (doc_) doc_->Release();
        if (init_ == S_OK) CoUninitialize();
    }
    void Use(const CLSID& clsid) {
        if (doc_) doc_->Release();
        ASSERT_EQ(S_OK, CreateDocument(clsid, &doc_));
    }

    // loadXML, checking that the result and the flag agree.
    bool Load(const Text& xml) {
        Bstr text(xml);
        VARIANT_BOOL loaded = 0x5A5A;
        HRESULT hr = doc_->loadXML(text, &loaded);
        EXPECT_TRUE((hr == S_OK && loaded == VARIANT_TRUE) || (hr == S_FALSE && loaded == VARIANT_FALSE))
            << std::hex << hr << " " << loaded;
        return hr == S_OK;
    }

    // selectSingleNode on the document; S_FALSE must leave node null.
    HRESULT Select(const Text& query, Ptr<IXMLDOMNode>& node) {
        HRESULT hr = doc_->selectSingleNode(Bstr(query), node.Out());
        if (hr == S_FALSE) {
            EXPECT_EQ(nullptr, node.Get());
        }
        if (hr != S_OK) node.Reset();  // after a failure the out-parameter may hold anything
        return hr;
    }

    static Text TextOf(IXMLDOMNode* node) {
        Bstr text;
        EXPECT_EQ(S_OK, node->get_text(text.Out()));
        return text.Get();
    }
    Text TextOf(const Text& query) {
        Ptr<IXMLDOMNode> node;
        return Select(query, node) == S_OK ? TextOf(node.Get()) : u"(no match)";
    }

    // Each attribute of the element as "names text"; the map ends where its length says.
    static std::vector<Text> AttributesOf(IXMLDOMNode* element) {
        Ptr<IXMLDOMNamedNodeMap> map;
        LONG length = -1;
        EXPECT_EQ(S_OK, element->get_attributes(map.Out()));
        EXPECT_EQ(S_OK, map->get_length(&length));
        std::vector<Text> attributes;
        for (LONG i = 0; i <= length; ++i) {
            Ptr<IXMLDOMNode> item;
            EXPECT_EQ(i < length ? S_OK : S_FALSE, map->get_item(i, item.Out()));
            if (item) attributes.push_back(NamesOf(item.Get()) + u" " + TextOf(item.Get()));
        }
        return attributes;
    }

    HRESULT init_ = E_FAIL;
    IXMLDOMDocument2* doc_ = nullptr;
};

}  // namespace domtest

#endif
