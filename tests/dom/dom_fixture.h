// One configured MSXML 6.0 document per test, inside COM initialisation.
#ifndef HMI_TESTS_DOM_FIXTURE_H
#define HMI_TESTS_DOM_FIXTURE_H

#include <gtest/gtest.h>
#include "dom/dom_support.h"

namespace domtest {

class DomTest : public ::testing::Test {
protected:
    void SetUp() override {
        init_ = CoInitialize(nullptr);
        ASSERT_TRUE(SUCCEEDED(init_)) << std::hex << init_;
        IXMLDOMDocument2* created = nullptr;
        ASSERT_EQ(S_OK, CreateConfiguredDocument(HMI_CLSID_DOMDocument60, &created));
        doc_ = created;
    }
    void TearDown() override {
        if (doc_) doc_->Release();
        if (init_ == S_OK) CoUninitialize();
    }

    // loadXML, checking that the result and the flag agree.
    bool Load(const std::string& xml) {
        Bstr text(xml);
        VARIANT_BOOL loaded = 0x5A5A;
        HRESULT hr = doc_->loadXML(text, &loaded);
        EXPECT_TRUE((hr == S_OK && loaded == VARIANT_TRUE) || (hr == S_FALSE && loaded == VARIANT_FALSE))
            << std::hex << hr << " " << loaded;
        return hr == S_OK;
    }

    // selectSingleNode from the context (the document when null); S_FALSE leaves node null.
    // After a failure the out-parameter is unspecified (Wine leaves it untouched).
    HRESULT Select(const std::string& query, Ptr<IXMLDOMNode>& node, IXMLDOMNode* context = nullptr) {
        Bstr text(query);
        HRESULT hr = (context ? context : doc_)->selectSingleNode(text, node.Out());
        if (hr == S_FALSE) {
            EXPECT_EQ(nullptr, node.Get());
        }
        if (hr != S_OK) node.Reset();
        return hr;
    }

    std::string Text(IXMLDOMNode* node) {
        Bstr text;
        EXPECT_EQ(S_OK, node->get_text(text.Out()));
        return text.Utf8();
    }

    // The text of the single node the query selects.
    std::string TextOf(const std::string& query) {
        Ptr<IXMLDOMNode> node;
        if (Select(query, node) != S_OK) return "(no match)";
        return Text(node.Get());
    }

    LONG ChildCount(IXMLDOMNode* node) {
        Ptr<IXMLDOMNodeList> children;
        EXPECT_EQ(S_OK, node->get_childNodes(children.Out()));
        LONG length = -1;
        if (children) {
            EXPECT_EQ(S_OK, children->get_length(&length));
        }
        return length;
    }

    HRESULT init_ = E_FAIL;
    IXMLDOMDocument2* doc_ = nullptr;
};

}  // namespace domtest

#endif
