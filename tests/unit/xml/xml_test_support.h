// Shared pieces of the XML access tests: COM for the test's thread and media documents as text.
#ifndef HMI_TEST_XML_SUPPORT_H
#define HMI_TEST_XML_SUPPORT_H

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "common/hmi_string.h"
#include "support/fault_injection.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_media_namespace.h"
#include "xml/hmi_xml_document.h"
#include "xml/hmi_xml_query.h"

namespace hmitest {

using WideString = std::basic_string<WCHAR>;

// A document whose root element iv:media declares the media-information namespace.
inline WideString MediaDocument(const WideString& body) {
    return HMI_W("<?xml version=\"1.0\"?><iv:media xmlns:iv=\"") + WideString(HMI_MEDIA_NAMESPACE) + HMI_W("\">") + body +
           HMI_W("</iv:media>");
}

// Takes a query result: its text, or "<none>" for null.
inline WideString TakeText(WCHAR* text) {
    HMIHeapString owner(text);
    return owner ? WideString(owner.get()) : WideString(HMI_W("<none>"));
}

// Loads a document and asks it for a name by language with each allocation failing in turn: the
// answer is right or absent, and what the library allocated is gone afterwards. check runs after each
// run (with the document released); returns the number of runs with a failure injected.
inline long LoadAndQueryUnderEachFailure(const std::function<void()>& check) {
    const WideString text = MediaDocument(HMI_W("<iv:medianame_item language=\"ja\">Futsu</iv:medianame_item>"));
    long before = 0;
    bool found = false;
    WCHAR* out = nullptr;
    return ForEachAllocationFailure(
        [&] {
            before = LiveAllocations();
            out = nullptr;
            HMIComPtr<IXMLDOMDocument2> doc(HMILoadXMLText(text.c_str()));
            found = doc && HMIGetElementTextByLanguage(HMI_W("medianame_item"), HMI_W("ja"), doc.get(), &out);
        },
        [&](bool injected) {
            EXPECT_TRUE(found || injected);
            EXPECT_EQ(LiveAllocations(), before + (found ? 1 : 0));
            EXPECT_EQ(TakeText(out), found ? HMI_W("Futsu") : HMI_W("<none>"));
            check();
        });
}

class XmlTest : public testing::Test {
    HMIComApartment com_;  // first in, last out: every DOM object is released inside it

protected:
    void SetUp() override { ASSERT_TRUE(com_.ok()); }

    void Load(const WideString& body) {
        *document_.put() = HMILoadXMLText(MediaDocument(body).c_str());
        ASSERT_TRUE(document_);
    }

    HMIComPtr<IXMLDOMDocument2> document_;
};

}  // namespace hmitest

#endif
