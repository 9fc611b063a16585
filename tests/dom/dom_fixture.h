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
T Poison() { return reinterpret_cast<T>(static_cast<uintptr_t>(0xCDCDCDCDu)); }

inline void Free(BSTR text) { SysFreeString(text); }
inline void Free(IUnknown* object) { object->Release(); }

// Owns a BSTR or an interface pointer; Out() poisons it for the call that writes it.
template <typename T>
struct Own {
    Own() = default;
    explicit Own(std::u16string_view text) : p_(SysAllocStringLen(nullptr, static_cast<unsigned>(text.size()))) {
        if (p_) std::copy(text.begin(), text.end(), p_);
    }
    Own(const Own&) = delete;
    ~Own() { Reset(); }
    T* Out() { return Reset(), p_ = Poison<T>(), &p_; }
    void Reset() {
        if (p_ && p_ != Poison<T>()) Free(p_);
        p_ = nullptr;
    }
    T operator->() const { return p_; }
    operator T() const { return p_; }
    T p_ = nullptr;
};
using Bstr = Own<BSTR>;

// How a BSTR, and a selection that gave no node, show in expectations.
inline Text Str(BSTR text) {
    if (text == Poison<BSTR>()) return u"(unwritten)";
    return text ? Text(text, text + SysStringLen(text)) : u"(null)";
}
inline const char16_t* Failure(HRESULT hr) {
    return hr == S_FALSE ? u"(no match)" : hr == E_FAIL ? u"(E_FAIL)" : u"(other failure)";
}

inline VARIANT StringVariant(BSTR text) {
    VARIANT v{};
    return v.vt = VT_BSTR, v.bstrVal = text, v;
}

// CoCreateInstance of the class, then async off, XPath, and the "iv" prefix bound, as the library does.
inline HRESULT CreateDocument(const CLSID& clsid, IXMLDOMDocument2** document) {
    HRESULT hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, HMI_IID_IXMLDOMDocument2,
                                  reinterpret_cast<void**>(document));
    if (FAILED(hr)) return hr;
    hr = (*document)->put_async(VARIANT_FALSE);
    const char16_t* properties[][2] = {{u"SelectionLanguage", u"XPath"},
                                       {u"SelectionNamespaces", u"xmlns:iv='" DOMTEST_IV u"'"}};
    for (const auto& [name, value] : properties) {
        Bstr n(name), v(value);
        if (SUCCEEDED(hr)) hr = n && v ? (*document)->setProperty(n, StringVariant(v)) : E_OUTOFMEMORY;
    }
    if (FAILED(hr)) (*document)->Release(), *document = nullptr;
    return hr;
}

// Wine's MSXML differs from Windows' in a few named places.
inline bool RunsOnWine() {
#ifdef _WIN32
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
#else
    return false;
#endif
}

// The node's type as a letter: e element, a attribute, t text, c CDATA, p PI, m comment, d document.
inline char Kind(IXMLDOMNode* node) {
    DOMNodeType type = NODE_INVALID;
    EXPECT_EQ(S_OK, node->get_nodeType(&type));
    return "?eatc??pmd"[type >= NODE_ELEMENT && type <= NODE_DOCUMENT ? type : 0];
}

// "kind nodeName baseName prefix namespaceURI"; a name the node lacks is "(null)", answered with S_FALSE.
inline Text NamesOf(IXMLDOMNode* node) {
    Text names(1, Kind(node));
    for (auto getter : {&IXMLDOMNode::get_nodeName, &IXMLDOMNode::get_baseName, &IXMLDOMNode::get_prefix,
                        &IXMLDOMNode::get_namespaceURI}) {
        Bstr part;
        HRESULT hr = (node->*getter)(part.Out());
        EXPECT_EQ(Str(part) == u"(null)" ? S_FALSE : S_OK, hr) << Show(names);
        names += u" " + Str(part);
    }
    return names;
}

inline Text TextOf(IXMLDOMNode* node) {
    Bstr text;
    EXPECT_EQ(S_OK, node->get_text(text.Out()));
    return Str(text);
}

// f of each item of a node list or attribute map, which ends where its length says.
template <typename List, typename F>
auto Each(const List& list, F f) {
    LONG length = -1;
    EXPECT_EQ(S_OK, list->get_length(&length));
    std::vector<decltype(f(nullptr))> results;
    for (LONG i = 0; i <= length; ++i) {
        Own<IXMLDOMNode*> item;
        EXPECT_EQ(i < length ? S_OK : S_FALSE, list->get_item(i, item.Out()));
        if (item) results.push_back(f(item));
    }
    return results;
}

class DomTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_EQ(S_OK, CoInitialize(nullptr));
        Use(HMI_CLSID_DOMDocument60);
    }
    void TearDown() override { doc_.Reset(), CoUninitialize(); }
    void Use(const CLSID& clsid) { ASSERT_EQ(S_OK, CreateDocument(clsid, doc_.Out())); }

    // loadXML, or load from a path or URL, checking that the result and the flag agree.
    bool Load(const Text& source, bool file = false) {
        Bstr text(source);
        VARIANT_BOOL loaded = 0x5A5A;
        HRESULT hr = file ? doc_->load(StringVariant(text), &loaded) : doc_->loadXML(text, &loaded);
        EXPECT_TRUE((hr == S_OK && loaded == VARIANT_TRUE) || (hr == S_FALSE && loaded == VARIANT_FALSE))
            << std::hex << hr << " " << loaded;
        return hr == S_OK;
    }

    // selectSingleNode on the document; S_FALSE must leave node null.
    HRESULT Select(const Text& query, Own<IXMLDOMNode*>& node) {
        HRESULT hr = doc_->selectSingleNode(Bstr(query), node.Out());
        EXPECT_TRUE(hr != S_FALSE || !node);
        if (hr != S_OK) node.Reset();  // after a failure the out-parameter may hold anything
        return hr;
    }
    Text TextAt(const Text& query) {  // the text of the first match, or why there is none
        Own<IXMLDOMNode*> node;
        const HRESULT hr = Select(query, node);
        return hr == S_OK ? TextOf(node) : Failure(hr);
    }

    Own<IXMLDOMDocument2*> doc_;
};

}  // namespace domtest

#endif
