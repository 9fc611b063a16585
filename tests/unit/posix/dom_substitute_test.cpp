// Linux only: exercises the test hooks and limits of our DOM substitute, which Windows' MSXML lacks.
#include <gtest/gtest.h>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include "platform/platform.h"
#include "posix/testhooks.h"
#include "support/fault_injection.h"

namespace {

const char16_t kNamespaceBinding[] = u"xmlns:iv='http://xrvhmi.example.org/ns/cmd/2008/07/common/'";

std::u16string U16(const std::string& ascii) { return std::u16string(ascii.begin(), ascii.end()); }

std::string Ascii(const WCHAR* text) {
    std::string out;
    for (; text && *text; ++text) out += static_cast<char>(*text);
    return out;
}

// Counts of live DOM objects and BSTRs, to see that a call left nothing behind.
struct LiveCounts {
    long objects = HMITestLiveDomObjects();
    long bstrs = HMITestLiveBstrs();
    bool operator==(const LiveCounts& o) const { return objects == o.objects && bstrs == o.bstrs; }
};

// A document of the class with the library's configuration; null when any step failed.
HRESULT Create(const CLSID& clsid, IXMLDOMDocument2** out) {
    *out = nullptr;
    HRESULT hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, HMI_IID_IXMLDOMDocument2,
                                  reinterpret_cast<void**>(out));
    if (FAILED(hr)) return hr;
    BSTR language = SysAllocString(u"SelectionLanguage"), xpath = SysAllocString(u"XPath");
    BSTR namespaces = SysAllocString(u"SelectionNamespaces");
    BSTR binding = SysAllocString(kNamespaceBinding);
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_BSTR;
    hr = language && xpath && namespaces && binding ? (*out)->put_async(VARIANT_FALSE) : E_OUTOFMEMORY;
    value.bstrVal = xpath;
    if (SUCCEEDED(hr)) hr = (*out)->setProperty(language, value);
    value.bstrVal = binding;
    if (SUCCEEDED(hr)) hr = (*out)->setProperty(namespaces, value);
    for (BSTR s : {language, xpath, namespaces, binding}) SysFreeString(s);
    if (FAILED(hr)) {
        (*out)->Release();
        *out = nullptr;
    }
    return hr;
}

class Substitute : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_EQ(S_OK, CoInitialize(nullptr)); }
    void TearDown() override {
        HMITestSetDocument60Available(true);
        HMITestForceCoInitializeResult(S_OK);
        CoUninitialize();
    }

    static HRESULT LoadText(IXMLDOMDocument2* doc, const std::string& xml, VARIANT_BOOL* loaded) {
        BSTR text = SysAllocString(U16(xml).c_str());
        HRESULT hr = doc->loadXML(text, loaded);
        SysFreeString(text);
        return hr;
    }

    static std::string SelectText(IXMLDOMNode* context, const std::string& query) {
        BSTR q = SysAllocString(U16(query).c_str());
        IXMLDOMNode* node = nullptr;
        HRESULT hr = context->selectSingleNode(q, &node);
        SysFreeString(q);
        if (hr != S_OK) return "(no match)";
        BSTR text = nullptr;
        hr = node->get_text(&text);
        node->Release();
        std::string result = hr == S_OK ? Ascii(text) : "(failed)";
        SysFreeString(text);
        return result;
    }
};

TEST_F(Substitute, Document60ClassCanBeWithdrawn) {
    IXMLDOMDocument2* doc = nullptr;
    HMITestSetDocument60Available(false);
    EXPECT_EQ(REGDB_E_CLASSNOTREG, Create(HMI_CLSID_DOMDocument60, &doc));
    EXPECT_EQ(nullptr, doc);
    ASSERT_EQ(S_OK, Create(HMI_CLSID_DOMDocument30, &doc));
    doc->Release();
    HMITestSetDocument60Available(true);
    ASSERT_EQ(S_OK, Create(HMI_CLSID_DOMDocument60, &doc));
    doc->Release();
}

TEST_F(Substitute, ForcedCoInitializeResultLeavesComStateAlone) {
    std::thread([] {
        HMITestForceCoInitializeResult(E_OUTOFMEMORY);
        EXPECT_EQ(E_OUTOFMEMORY, CoInitialize(nullptr));
        EXPECT_EQ(E_OUTOFMEMORY, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
        void* object = nullptr;
        EXPECT_EQ(CO_E_NOTINITIALIZED, CoCreateInstance(HMI_CLSID_DOMDocument60, nullptr, CLSCTX_INPROC_SERVER,
                                                        HMI_IID_IXMLDOMDocument2, &object));
        HMITestForceCoInitializeResult(S_OK);
        EXPECT_EQ(S_OK, CoInitialize(nullptr));
        CoUninitialize();
    }).join();
}

TEST_F(Substitute, LiveCountsFollowObjectsAndStrings) {
    LiveCounts before;
    IXMLDOMDocument2* doc = nullptr;
    ASSERT_EQ(S_OK, Create(HMI_CLSID_DOMDocument60, &doc));
    VARIANT_BOOL loaded = VARIANT_FALSE;
    ASSERT_EQ(S_OK, LoadText(doc, "<a><b>x</b></a>", &loaded));
    IXMLDOMNodeList* children = nullptr;
    ASSERT_EQ(S_OK, doc->get_childNodes(&children));
    BSTR text = nullptr;
    ASSERT_EQ(S_OK, doc->get_text(&text));
    EXPECT_EQ(before.objects + 2, HMITestLiveDomObjects());
    EXPECT_EQ(before.bstrs + 1, HMITestLiveBstrs());
    doc->Release();
    EXPECT_EQ(before.objects + 2, HMITestLiveDomObjects()) << "the list keeps the document";
    children->Release();
    SysFreeString(text);
    EXPECT_TRUE(before == LiveCounts());
}

TEST_F(Substitute, HugeTextNodeFailsToLoadCleanly) {
    // Text nodes over libxml2's 10 MB limit are refused, also when libxml2 would let one through.
    LiveCounts before;
    IXMLDOMDocument2* doc = nullptr;
    ASSERT_EQ(S_OK, Create(HMI_CLSID_DOMDocument60, &doc));
    VARIANT_BOOL loaded = 0x5A5A;
    EXPECT_EQ(S_FALSE, LoadText(doc, "<a>" + std::string(100u << 20, 'x') + "</a>", &loaded));
    EXPECT_EQ(VARIANT_FALSE, loaded);
    EXPECT_EQ("(no match)", SelectText(doc, "/a"));
    doc->Release();
    EXPECT_TRUE(before == LiveCounts());
}

TEST_F(Substitute, Msxml30AcceptsInternalDtdButResolvesNothingExternal) {
    std::filesystem::path secret = std::filesystem::temp_directory_path() / "hmi_dom_secret.txt";
    std::ofstream(secret) << "SECRET";
    IXMLDOMDocument2* doc = nullptr;
    ASSERT_EQ(S_OK, Create(HMI_CLSID_DOMDocument30, &doc));
    VARIANT_BOOL loaded = VARIANT_FALSE;
    EXPECT_EQ(S_OK, LoadText(doc, "<!DOCTYPE a [<!ENTITY e 'inner'>]><a>&e;</a>", &loaded));
    EXPECT_EQ("inner", SelectText(doc, "/a"));
    std::string external = "<!DOCTYPE a [<!ENTITY e SYSTEM 'file://" + secret.string() + "'>]><a>&e;</a>";
    LoadText(doc, external, &loaded);
    EXPECT_EQ(std::string::npos, SelectText(doc, "/a").find("SECRET"));
    std::string externalDtd = "<!DOCTYPE a SYSTEM 'file://" + secret.string() + "'><a>x</a>";
    EXPECT_EQ(S_OK, LoadText(doc, externalDtd, &loaded));
    doc->Release();
    std::filesystem::remove(secret);
}

TEST_F(Substitute, EntityExpansionIsBounded) {
    std::string bomb = "<!DOCTYPE a [<!ENTITY e0 'xxxxxxxxxx'>";
    for (int i = 1; i < 10; ++i) {
        std::string previous = "&e" + std::to_string(i - 1) + ";";
        bomb += "<!ENTITY e" + std::to_string(i) + " '";
        for (int k = 0; k < 10; ++k) bomb += previous;
        bomb += "'>";
    }
    bomb += "]><a>&e9;</a>";
    IXMLDOMDocument2* doc = nullptr;
    ASSERT_EQ(S_OK, Create(HMI_CLSID_DOMDocument30, &doc));
    VARIANT_BOOL loaded = 0x5A5A;
    EXPECT_EQ(S_FALSE, LoadText(doc, bomb, &loaded));
    EXPECT_EQ(VARIANT_FALSE, loaded);
    doc->Release();
}

TEST_F(Substitute, Msxml30ShowsNamespaceDeclarationsWithoutTheXmlnsNamespace) {
    IXMLDOMDocument2* doc = nullptr;
    ASSERT_EQ(S_OK, Create(HMI_CLSID_DOMDocument30, &doc));
    VARIANT_BOOL loaded = VARIANT_FALSE;
    ASSERT_EQ(S_OK, LoadText(doc, "<a xmlns:ns='h' xmlns='d'/>", &loaded));
    IXMLDOMNode* element = nullptr;
    BSTR query = SysAllocString(u"/*");
    ASSERT_EQ(S_OK, doc->selectSingleNode(query, &element));
    IXMLDOMNamedNodeMap* attributes = nullptr;
    ASSERT_EQ(S_OK, element->get_attributes(&attributes));
    const char* baseNames[] = {"ns", ""};
    for (LONG i = 0; i < 2; ++i) {
        IXMLDOMNode* declaration = nullptr;
        ASSERT_EQ(S_OK, attributes->get_item(i, &declaration));
        BSTR text = nullptr;
        EXPECT_EQ(S_OK, declaration->get_baseName(&text));
        EXPECT_EQ(baseNames[i], Ascii(text));
        SysFreeString(text);
        EXPECT_EQ(S_OK, declaration->get_namespaceURI(&text));
        EXPECT_EQ("", Ascii(text));
        SysFreeString(text);
        declaration->Release();
    }
    attributes->Release();
    element->Release();
    SysFreeString(query);
    doc->Release();
}

TEST_F(Substitute, NothingReachesStderr) {
    IXMLDOMDocument2* doc = nullptr;
    ASSERT_EQ(S_OK, Create(HMI_CLSID_DOMDocument60, &doc));
    testing::internal::CaptureStderr();
    VARIANT_BOOL loaded;
    for (const char* xml : {"<a>", "<!DOCTYPE a><a/>", "<p:a/>", "<a>&e;</a>", "<a x='1' x='2'/>"})
        LoadText(doc, xml, &loaded);
    LoadText(doc, "<a/>", &loaded);
    for (const char* query : {"//[", "//q:a", "count(*)", "f()"}) SelectText(doc, query);
    VARIANT path;
    VariantInit(&path);
    path.vt = VT_BSTR;
    path.bstrVal = SysAllocString(u"/nonexistent/hmi.xml");
    doc->load(path, &loaded);
    SysFreeString(path.bstrVal);
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
    doc->Release();
}

// One pass through what the library does with a document; every HRESULT is kept for the check.
struct Outcome {
    HRESULT create = E_UNEXPECTED, load = E_UNEXPECTED, select = E_UNEXPECTED, text = E_UNEXPECTED,
            list = E_UNEXPECTED, attributes = E_UNEXPECTED;
    VARIANT_BOOL loaded = 0x5A5A;
    bool textRight = false;
};

const char16_t kMedium[] =
    u"<?xml version='1.0' encoding='utf-8'?><root xmlns:iv='http://xrvhmi.example.org/ns/cmd/2008/07/common/'>"
    u"<medium id='m1'><iv:checksum>\n abc </iv:checksum><printcolormode type='color'><value>1</value>"
    u"</printcolormode></medium></root>";

void RunScenario(BSTR text, BSTR query, BSTR listQuery, Outcome* out) {
    IXMLDOMDocument2* doc = nullptr;
    out->create = Create(HMI_CLSID_DOMDocument60, &doc);
    if (FAILED(out->create)) return;
    out->load = doc->loadXML(text, &out->loaded);
    IXMLDOMNode* node = nullptr;
    out->select = doc->selectSingleNode(query, &node);
    if (node) {
        BSTR value = nullptr;
        out->text = node->get_text(&value);
        out->textRight = value && std::u16string(value) == u"abc";
        SysFreeString(value);
        IXMLDOMNamedNodeMap* attributes = nullptr;
        out->attributes = node->get_attributes(&attributes);
        if (attributes) attributes->Release();
        node->Release();
    }
    IXMLDOMNodeList* list = nullptr;
    out->list = doc->selectNodes(listQuery, &list);
    if (list) list->Release();
    doc->Release();
}

bool OneOf(HRESULT hr, std::initializer_list<HRESULT> allowed) {
    for (HRESULT a : allowed)
        if (hr == a) return true;
    return false;
}

TEST_F(Substitute, EveryAllocationFailureFailsTheCallCleanly) {
    BSTR text = SysAllocString(kMedium), query = SysAllocString(u".//iv:checksum");
    BSTR listQuery = SysAllocString(u"//*");
    for (bool persistent : {false, true}) {
        SCOPED_TRACE(persistent ? "persistent" : "transient");
        LiveCounts before;
        Outcome outcome;
        long failures = hmitest::ForEachAllocationFailure(
            [&] {
                outcome = Outcome();
                RunScenario(text, query, listQuery, &outcome);
            },
            [&](bool injected) {
                EXPECT_TRUE(before == LiveCounts()) << HMITestLiveDomObjects() << " " << HMITestLiveBstrs();
                if (!injected) {
                    EXPECT_EQ(S_OK, outcome.load);
                    EXPECT_EQ(VARIANT_TRUE, outcome.loaded);
                    EXPECT_EQ(S_OK, outcome.select);
                    EXPECT_TRUE(outcome.textRight);
                    EXPECT_EQ(S_OK, outcome.list);
                    EXPECT_EQ(S_OK, outcome.attributes);
                    return;
                }
                EXPECT_TRUE(OneOf(outcome.create, {S_OK, E_OUTOFMEMORY})) << std::hex << outcome.create;
                if (outcome.create != S_OK) return;
                EXPECT_TRUE((outcome.load == S_OK && outcome.loaded == VARIANT_TRUE) ||
                            (outcome.load == S_FALSE && outcome.loaded == VARIANT_FALSE))
                    << std::hex << outcome.load;
                // A loaded document is whole: the node is there unless the query itself ran out.
                EXPECT_TRUE(OneOf(outcome.select, {S_OK, E_OUTOFMEMORY, E_FAIL, outcome.load == S_OK ? S_OK : S_FALSE}))
                    << std::hex << outcome.select;
                EXPECT_TRUE(OneOf(outcome.list, {S_OK, E_OUTOFMEMORY, E_FAIL})) << std::hex << outcome.list;
                if (outcome.select == S_OK) {
                    EXPECT_TRUE(OneOf(outcome.text, {S_OK, E_OUTOFMEMORY})) << std::hex << outcome.text;
                    EXPECT_TRUE(OneOf(outcome.attributes, {S_OK, E_OUTOFMEMORY})) << std::hex << outcome.attributes;
                    EXPECT_TRUE(outcome.text != S_OK || outcome.textRight);
                }
            },
            persistent);
        EXPECT_GT(failures, 20);
    }
    for (BSTR s : {text, query, listQuery}) SysFreeString(s);
}

TEST_F(Substitute, EveryAllocationFailureOfAFileLoadFailsCleanly) {
    std::filesystem::path path = std::filesystem::temp_directory_path() / "hmi_dom_fault.xml";
    IXMLDOMDocument2* doc = nullptr;
    ASSERT_EQ(S_OK, Create(HMI_CLSID_DOMDocument60, &doc));
    VARIANT source;
    VariantInit(&source);
    source.vt = VT_BSTR;
    source.bstrVal = SysAllocString(U16(path.string()).c_str());
    for (const char* declared : {"UTF-8", "ISO-8859-1"}) {
        SCOPED_TRACE(declared);
        std::ofstream(path) << "<?xml version='1.0' encoding='" << declared << "'?><a b='c'>text</a>";
        LiveCounts before;
        HRESULT hr = E_UNEXPECTED;
        VARIANT_BOOL loaded = 0x5A5A;
        long failures = hmitest::ForEachAllocationFailure([&] { hr = doc->load(source, &loaded); },
                                                          [&](bool injected) {
                                                              EXPECT_TRUE(before == LiveCounts());
                                                              // Some of libxml2's allocations are optional.
                                                              if (injected && hr == S_FALSE) {
                                                                  EXPECT_EQ(VARIANT_FALSE, loaded);
                                                                  return;
                                                              }
                                                              EXPECT_EQ(S_OK, hr);
                                                              EXPECT_EQ(VARIANT_TRUE, loaded);
                                                              EXPECT_EQ("text", SelectText(doc, "/a"));
                                                              EXPECT_EQ("c", SelectText(doc, "/a/@b"));
                                                          });
        EXPECT_GT(failures, 10);
    }
    SysFreeString(source.bstrVal);
    doc->Release();
    std::filesystem::remove(path);
}

TEST_F(Substitute, EveryAllocationFailureOfABstrIsNull) {
    LiveCounts before;
    BSTR result = nullptr;
    long failures = hmitest::ForEachAllocationFailure([&] { result = SysAllocString(u"text"); },
                                                      [&](bool injected) {
                                                          EXPECT_EQ(injected, result == nullptr);
                                                          SysFreeString(result);
                                                      });
    EXPECT_EQ(1, failures);
    EXPECT_TRUE(before == LiveCounts());
}

}  // namespace
