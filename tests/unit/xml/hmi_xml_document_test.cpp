#include "xml/hmi_xml_document.h"

#include "xml_test_support.h"

namespace {

using hmitest::WideString;

bool Loads(IXMLDOMDocument2* loaded) { return HMIComPtr<IXMLDOMDocument2>(loaded).get() != nullptr; }

class XmlDocumentTest : public hmitest::XmlTest {};

// Depth limits and malformed structure are covered by the DOM suite and the fuzz seeds, loading from
// files by the File readers' tests.
TEST_F(XmlDocumentTest, TextLoadsOnlyWellFormedDocuments) {
    const std::pair<const WCHAR*, bool> cases[] = {
        {HMI_W("<?xml version=\"1.0\" encoding=\"Windows-1252\"?><a>\x00E9</a>"), true}, {HMI_W("<a/>"), true},
        {HMI_W(""), false}, {HMI_W("<?xml version=\"1.0\"?>"), false}, {HMI_W(" <?xml version=\"1.0\"?><a/>"), false},
        {HMI_W("<a/><b/>"), false}, {HMI_W("<a>&undefined;</a>"), false},
    };
    for (const auto& c : cases) EXPECT_EQ(Loads(HMILoadXMLText(c.first)), c.second) << "case #" << (&c - cases);
    EXPECT_EQ(HMILoadXMLText(nullptr), nullptr);
}

}  // namespace
