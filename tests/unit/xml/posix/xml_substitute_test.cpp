// Linux only: steers the COM and DOM substitutes through their test hooks; DTDs too, which Wine's MSXML 6.0 accepts.
#include <gtest/gtest.h>

#include <thread>

#include "posix/testhooks.h"
#include "support/fault_injection.h"
#include "xml/hmi_xml_query.h"
#include "../xml_test_support.h"

namespace {

using hmitest::MediaDocument;
using hmitest::TakeText;

const char16_t kDocumentWithDtd[] = u"<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY e \"x\">]><a>&e;</a>";

bool Loads(const char16_t* text) { return HMIComPtr<IXMLDOMDocument2>(HMILoadXMLText(text)).get() != nullptr; }

class XmlSubstituteTest : public hmitest::XmlTest {
protected:
    void TearDown() override { HMITestSetDocument60Available(true); }
};

TEST_F(XmlSubstituteTest, Version6RefusesADtdAndVersion3TakesOverWithTheSameConfiguration) {
    EXPECT_FALSE(Loads(kDocumentWithDtd));
    HMITestSetDocument60Available(false);
    ASSERT_NO_FATAL_FAILURE(Load(u"<iv:checksum>C1</iv:checksum>"));
    WCHAR* out = nullptr;
    EXPECT_TRUE(HMIGetElementText(u"checksum", document_.get(), &out));
    EXPECT_EQ(TakeText(out), u"C1");
    EXPECT_TRUE(Loads(kDocumentWithDtd)) << "only the 3.0 class accepts a DTD: it is the one in use";
}

TEST_F(XmlSubstituteTest, AllocationFailureAnywhereLeavesNoDomObjectOrBstrAlive) {
    const std::u16string text = MediaDocument(u"<iv:medianame_item language=\"ja\">Futsu</iv:medianame_item>");
    const long domObjects = HMITestLiveDomObjects(), bstrs = HMITestLiveBstrs();
    WCHAR* out = nullptr;
    bool found = false;
    const long failures = hmitest::ForEachAllocationFailure(
        [&] {
            out = nullptr;
            HMIComPtr<IXMLDOMDocument2> doc(HMILoadXMLText(text.c_str()));
            found = doc && HMIGetElementTextByLanguage(u"medianame_item", u"ja", doc.get(), &out);
        },
        [&](bool injected) {
            EXPECT_TRUE(found || injected);
            EXPECT_EQ(TakeText(out), found ? u"Futsu" : u"<none>");
            EXPECT_EQ(HMITestLiveDomObjects(), domObjects);
            EXPECT_EQ(HMITestLiveBstrs(), bstrs);
        });
    EXPECT_GE(failures, 5) << "BSTRs, DOM objects and the parser's own allocations can all fail";
}

TEST(XmlSubstituteBstr, FailedAssignmentLeavesTheHolderEmpty) {
    const long bstrs = HMITestLiveBstrs();
    {
        HMIBSTR holder;
        ASSERT_TRUE(holder.assign(u"old"));
        HMITestSetAllocationFailureHook([] { return true; });
        EXPECT_FALSE(holder.assign(u"new"));
        HMITestSetAllocationFailureHook(nullptr);
        EXPECT_EQ(holder.str, nullptr);
        EXPECT_EQ(holder.var.bstrVal, nullptr);
    }
    EXPECT_EQ(HMITestLiveBstrs(), bstrs);
}

TEST(XmlSubstituteApartment, FailedInitialisationStopsTheCallAndIsNotUndone) {
    std::thread([] {
        ASSERT_EQ(CoInitialize(nullptr), S_OK);
        HMITestForceCoInitializeResult(E_OUTOFMEMORY);
        bool ok = true;
        {
            HMIComApartment com;
            ok = com.ok();
        }
        HMITestForceCoInitializeResult(S_OK);
        EXPECT_FALSE(ok);
        EXPECT_EQ(CoInitialize(nullptr), S_FALSE) << "the thread's own initialisation is untouched";
        CoUninitialize();
        CoUninitialize();
    }).join();
}

}  // namespace
