#include <thread>
#include "dom/dom_fixture.h"

namespace domtest {
namespace {

// On a thread of its own, so that it starts without COM.
TEST(Com, CreationNeedsInitialisationAndAKnownClass) {
    std::thread([] {
        const GUID unknownClass = {0x12345678, 0x1234, 0x1234, {0x12, 0x34, 0x12, 0x34, 0x56, 0x78, 0x9a, 0xbc}};
        const auto refused = [](const CLSID& clsid) {
            void* object = Poison<void*>();
            HRESULT hr = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, HMI_IID_IXMLDOMDocument2, &object);
            EXPECT_EQ(nullptr, object);
            return hr;
        };
        EXPECT_EQ(CO_E_NOTINITIALIZED, refused(HMI_CLSID_DOMDocument60));
        ASSERT_EQ(S_OK, CoInitialize(nullptr));
        EXPECT_EQ(REGDB_E_CLASSNOTREG, refused(unknownClass));
        for (const CLSID* clsid : {&HMI_CLSID_DOMDocument60, &HMI_CLSID_DOMDocument30}) {
            IXMLDOMDocument2* document = nullptr;
            EXPECT_EQ(S_OK, CreateDocument(*clsid, &document)) << "configures as the library does";
            if (document) document->Release();
        }
        CoUninitialize();
    }).join();
}

TEST_F(DomTest, NodesOutliveTheirDocumentAndItsReload) {
    ASSERT_TRUE(Load(u"<a><b>x</b><c>y</c></a>"));
    Ptr<IXMLDOMNode> node;
    ASSERT_EQ(S_OK, Select(u"/a", node));
    Ptr<IXMLDOMNodeList> children;
    ASSERT_EQ(S_OK, node->get_childNodes(children.Out()));
    ASSERT_TRUE(Load(u"<b>second</b>"));
    EXPECT_EQ(u"second", TextOf(doc_));
    doc_->Release();
    doc_ = nullptr;
    EXPECT_EQ(u"xy", TextOf(node.Get()));
    Ptr<IXMLDOMNode> second;
    ASSERT_EQ(S_OK, children->get_item(1, second.Out()));
    EXPECT_EQ(u"y", TextOf(second.Get()));
}

}  // namespace
}  // namespace domtest
