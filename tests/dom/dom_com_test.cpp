#include <cstring>
#include <functional>
#include <thread>
#include "dom/dom_fixture.h"

namespace domtest {
namespace {

const GUID kIUnknown = {0x00000000, 0x0000, 0x0000, {0xc0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
const GUID kUnknownClass = {0x12345678, 0x1234, 0x1234, {0x12, 0x34, 0x12, 0x34, 0x56, 0x78, 0x9a, 0xbc}};

// Runs body on a thread of its own, so that it starts without COM.
template <typename Body>
void OnFreshThread(Body body) {
    std::thread(body).join();
}

TEST(ComInitialisation, NestsPerThreadAndRefusesTheOtherModel) {
    OnFreshThread([] {
        EXPECT_EQ(S_OK, CoInitialize(nullptr));
        EXPECT_EQ(S_FALSE, CoInitialize(nullptr));
        EXPECT_EQ(S_FALSE, CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
        EXPECT_EQ(RPC_E_CHANGED_MODE, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
        CoUninitialize();
        CoUninitialize();
        CoUninitialize();
        EXPECT_EQ(S_OK, CoInitializeEx(nullptr, COINIT_MULTITHREADED));
        EXPECT_EQ(RPC_E_CHANGED_MODE, CoInitialize(nullptr));
        CoUninitialize();
    });
}

TEST(ComCreation, AnswersOfCoCreateInstance) {
    OnFreshThread([] {
        void* object = Bstr::Poison<void*>();
        EXPECT_EQ(CO_E_NOTINITIALIZED,
                  CoCreateInstance(HMI_CLSID_DOMDocument60, nullptr, CLSCTX_INPROC_SERVER, HMI_IID_IXMLDOMDocument2, &object));
        EXPECT_EQ(nullptr, object);
        ASSERT_EQ(S_OK, CoInitialize(nullptr));
        EXPECT_EQ(E_POINTER,
                  CoCreateInstance(HMI_CLSID_DOMDocument60, nullptr, CLSCTX_INPROC_SERVER, HMI_IID_IXMLDOMDocument2, nullptr));
        object = Bstr::Poison<void*>();
        EXPECT_EQ(REGDB_E_CLASSNOTREG,
                  CoCreateInstance(kUnknownClass, nullptr, CLSCTX_INPROC_SERVER, HMI_IID_IXMLDOMDocument2, &object));
        EXPECT_EQ(nullptr, object);
        for (const CLSID* clsid : {&HMI_CLSID_DOMDocument60, &HMI_CLSID_DOMDocument30}) {
            IXMLDOMDocument2* document = nullptr;
            EXPECT_EQ(S_OK, CreateConfiguredDocument(*clsid, &document));
            ASSERT_NE(nullptr, document);
            object = Bstr::Poison<void*>();
            EXPECT_EQ(CLASS_E_NOAGGREGATION,
                      CoCreateInstance(*clsid, document, CLSCTX_INPROC_SERVER, kIUnknown, &object));
            EXPECT_EQ(nullptr, object);
            IUnknown* unknown = nullptr;
            EXPECT_EQ(S_OK, document->QueryInterface(kIUnknown, reinterpret_cast<void**>(&unknown)));
            ASSERT_NE(nullptr, unknown);
            unknown->Release();
            IUnknown* other = Bstr::Poison<IUnknown*>();
            EXPECT_EQ(E_NOINTERFACE, document->QueryInterface(kUnknownClass, reinterpret_cast<void**>(&other)));
            EXPECT_EQ(nullptr, other);
            document->Release();
        }
        CoUninitialize();
    });
}

TEST(Bstrs, HaveTheWindowsLayout) {
    const WCHAR text[] = {'a', 'b', 'c', 0};
    BSTR s = SysAllocString(text);
    ASSERT_NE(nullptr, s);
    uint32_t prefix = 0;
    std::memcpy(&prefix, reinterpret_cast<const char*>(s) - 4, sizeof prefix);
    EXPECT_EQ(6u, prefix);
    EXPECT_EQ(3u, SysStringLen(s));
    EXPECT_EQ(0, s[3]);
    SysFreeString(s);
    BSTR blank = SysAllocStringLen(nullptr, 2);
    ASSERT_NE(nullptr, blank);
    EXPECT_EQ(2u, SysStringLen(blank));
    EXPECT_EQ(0, blank[2]);
    SysFreeString(blank);
    EXPECT_EQ(nullptr, SysAllocString(nullptr));
    EXPECT_EQ(0u, SysStringLen(nullptr));
    SysFreeString(nullptr);
}

TEST_F(DomTest, NodesKeepTheirDocumentAlive) {
    ASSERT_TRUE(Load("<a><b>x</b><c>y</c></a>"));
    Ptr<IXMLDOMNode> node;
    ASSERT_EQ(S_OK, Select("/a", node));
    Ptr<IXMLDOMNodeList> children;
    ASSERT_EQ(S_OK, node->get_childNodes(children.Out()));
    doc_->Release();
    doc_ = nullptr;
    EXPECT_EQ("xy", Text(node.Get()));
    Ptr<IXMLDOMNode> second;
    ASSERT_EQ(S_OK, children->get_item(1, second.Out()));
    EXPECT_EQ("y", Text(second.Get()));
}

TEST_F(DomTest, ReloadingKeepsNodesOfTheEarlierDocument) {
    ASSERT_TRUE(Load("<a>first</a>"));
    Ptr<IXMLDOMNode> node;
    ASSERT_EQ(S_OK, Select("/a", node));
    ASSERT_TRUE(Load("<b>second</b>"));
    EXPECT_EQ("first", Text(node.Get()));
    EXPECT_EQ("second", Text(doc_));
}

TEST_F(DomTest, NullOutPointersAreRefused) {
    ASSERT_TRUE(Load("<a x='1'><b/></a>"));
    Ptr<IXMLDOMNode> node;
    ASSERT_EQ(S_OK, Select("/a", node));
    Ptr<IXMLDOMNodeList> list;
    ASSERT_EQ(S_OK, node->get_childNodes(list.Out()));
    Ptr<IXMLDOMNamedNodeMap> map;
    ASSERT_EQ(S_OK, node->get_attributes(map.Out()));
    Bstr query("b");
    IXMLDOMNode* element = node.Get();
    const bool wine = RunsOnWine();
    const struct {
        const char* call;
        HRESULT hr;
        bool crashesWine;  // Wine 8 writes through the null pointer
        std::function<HRESULT()> invoke;
    } cases[] = {
        {"get_nodeName", E_INVALIDARG, false, [&] { return element->get_nodeName(nullptr); }},
        {"get_nodeType", E_INVALIDARG, true, [&] { return element->get_nodeType(nullptr); }},
        {"get_childNodes", E_INVALIDARG, false, [&] { return element->get_childNodes(nullptr); }},
        {"get_attributes", E_INVALIDARG, true, [&] { return element->get_attributes(nullptr); }},
        {"get_text", E_INVALIDARG, false, [&] { return element->get_text(nullptr); }},
        {"get_baseName", E_INVALIDARG, false, [&] { return element->get_baseName(nullptr); }},
        {"get_namespaceURI", E_INVALIDARG, false, [&] { return element->get_namespaceURI(nullptr); }},
        {"get_prefix", E_INVALIDARG, false, [&] { return element->get_prefix(nullptr); }},
        {"selectSingleNode", E_INVALIDARG, false, [&] { return element->selectSingleNode(query, nullptr); }},
        {"selectNodes", E_INVALIDARG, false, [&] { return element->selectNodes(query, nullptr); }},
        {"NodeList get_length", E_INVALIDARG, false, [&] { return list->get_length(nullptr); }},
        {"NodeList get_item", E_INVALIDARG, false, [&] { return list->get_item(0, nullptr); }},
        {"NamedNodeMap get_length", E_INVALIDARG, false, [&] { return map->get_length(nullptr); }},
        {"NamedNodeMap get_item", E_INVALIDARG, true, [&] { return map->get_item(0, nullptr); }},
        {"QueryInterface", E_POINTER, true, [&] { return element->QueryInterface(kIUnknown, nullptr); }},
    };
    for (const auto& c : cases) {
        if (c.crashesWine && wine) continue;
        EXPECT_EQ(c.hr, c.invoke()) << c.call;
    }
    Ptr<IXMLDOMNode> none;
    EXPECT_EQ(E_INVALIDARG, element->selectSingleNode(nullptr, none.Out()));
}

}  // namespace
}  // namespace domtest
