// Linux only: steers the COM and DOM substitutes through their test hooks; DTDs too, which Wine's MSXML 6.0 accepts.
#include <gtest/gtest.h>

#include "posix/testhooks.h"
#include "../xml_test_support.h"

namespace {

bool Loads(const char16_t* text) { return HMIComPtr<IXMLDOMDocument2>(HMILoadXMLText(text)).get() != nullptr; }

class XmlSubstituteTest : public hmitest::XmlTest {
protected:
    void TearDown() override { HMITestSetDocument60Available(true); }
};

TEST_F(XmlSubstituteTest, Version6RefusesADtdAndVersion3TakesOverWithTheSameConfiguration) {
    const char16_t withDtd[] = u"<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY e \"x\">]><a>&e;</a>";
    EXPECT_FALSE(Loads(withDtd));
    HMITestSetDocument60Available(false);
    ASSERT_NO_FATAL_FAILURE(Load(u"<iv:checksum>C1</iv:checksum>"));
    WCHAR* out = nullptr;
    EXPECT_TRUE(HMIGetElementText(u"checksum", document_.get(), &out));
    EXPECT_EQ(hmitest::TakeText(out), u"C1");
    EXPECT_TRUE(Loads(withDtd)) << "only the 3.0 class accepts a DTD: it is the one in use";
}

TEST_F(XmlSubstituteTest, AllocationFailureAnywhereLeavesNoDomObjectOrBstrAlive) {
    const long domObjects = HMITestLiveDomObjects(), bstrs = HMITestLiveBstrs();
    EXPECT_GE(hmitest::LoadAndQueryUnderEachFailure([&] {
        EXPECT_EQ(HMITestLiveDomObjects(), domObjects);
        EXPECT_EQ(HMITestLiveBstrs(), bstrs);
    }), 5) << "BSTRs, DOM objects and the parser's own allocations can all fail";
}

}  // namespace
