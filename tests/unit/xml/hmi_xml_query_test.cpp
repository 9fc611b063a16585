#include "xml/hmi_xml_query.h"

#include "xml_test_support.h"

namespace {

using hmitest::TakeText;

class XmlQueryTest : public hmitest::XmlTest {
protected:
    void SetUp() override {
        hmitest::XmlTest::SetUp();
        ASSERT_NO_FATAL_FAILURE(Load(HMI_W("<iv:checksum>ABC123</iv:checksum><iv:checksum>SECOND</iv:checksum>"
                   "<iv:blank/><iv:spaces>   </iv:spaces><iv:mixed> a <iv:inner>b</iv:inner> c </iv:mixed>"
                   "<o:product_id xmlns:o=\"urn:other\">OTHER</o:product_id><product_id>NONE</product_id>"
                   "<iv:group><iv:deep>nested</iv:deep></iv:group>"
                   "<iv:medianame_item language=\"ja\">Futsu</iv:medianame_item>"
                   "<iv:medianame_item language=\"ja\">Second</iv:medianame_item>"
                   "<iv:medianame_item language=\"EN\">Upper</iv:medianame_item>"
                   "<iv:medianame_item language=\"fr\"></iv:medianame_item>"
                   "<medianame_item language=\"de\">NoNamespace</medianame_item>"),
             HMI_W(" id=\"m1\" empty=\"\" iv:scoped=\"ns\" spaced=\"  v  \"")));
        HMIBSTR query;
        ASSERT_TRUE(query.assign(HMI_W("/iv:media")) && document_->selectSingleNode(query.str, root_.put()) == S_OK);
    }

    HMIComPtr<IXMLDOMNode> root_;
};

// An out-argument holding garbage before each call.
WCHAR* const kPoison = reinterpret_cast<WCHAR*>(static_cast<uintptr_t>(0xCDCDCDCD));

enum Query { Element, Attribute, Language };

TEST_F(XmlQueryTest, TextQueriesAnswerTheFirstNonEmptyMatch) {
    const struct {
        Query query;
        const WCHAR* name;  // the local name, attribute name or language
        const WCHAR* text;  // null: no answer
    } cases[] = {
        {Element, HMI_W("checksum"), HMI_W("ABC123")},  {Element, HMI_W("deep"), HMI_W("nested")},
        {Element, HMI_W("mixed"), HMI_W("a b c")},      {Element, HMI_W("blank"), nullptr},
        {Element, HMI_W("spaces"), nullptr},            {Element, HMI_W("product_id"), nullptr},
        {Attribute, HMI_W("id"), HMI_W("m1")},          {Attribute, HMI_W("spaced"), HMI_W("  v  ")},
        {Attribute, HMI_W("empty"), nullptr},           {Attribute, HMI_W("scoped"), nullptr},
        {Language, HMI_W("ja"), HMI_W("Futsu")},        {Language, HMI_W("en"), nullptr},
        {Language, HMI_W("fr"), nullptr},               {Language, HMI_W("de"), nullptr},
        {Language, HMI_W("j\"a"), nullptr},             {Language, nullptr, nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "case #" << (&c - cases));
        WCHAR* out = kPoison;
        const bool found =
            c.query == Element     ? HMIGetElementText(c.name, document_.get(), &out)
            : c.query == Attribute ? HMIGetAttributeText(c.name, root_.get(), &out)
                                   : HMIGetElementTextByLanguage(HMI_W("medianame_item"), c.name, document_.get(), &out);
        EXPECT_EQ(found, c.text != nullptr);
        EXPECT_EQ(TakeText(out), c.text ? c.text : HMI_W("<none>"));
    }
}

// Where an allocation failure is absorbed (the 6.0 class failing over to the 3.0 one), the document is whole.
TEST_F(XmlQueryTest, AllocationFailureAnswersFalseWithoutLeak) {
    EXPECT_GE(hmitest::LoadAndQueryUnderEachFailure([] {}), 3) << "the namespace binding, the query and the result";
}

}  // namespace
