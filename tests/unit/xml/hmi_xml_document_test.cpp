#include "xml/hmi_xml_document.h"

#include <filesystem>
#include <fstream>

#include "xml_test_support.h"

namespace {

using hmitest::WideString;

bool Loads(IXMLDOMDocument2* loaded) { return HMIComPtr<IXMLDOMDocument2>(loaded).get() != nullptr; }

class XmlDocumentTest : public hmitest::XmlTest {};

// Depth limits and malformed structure are covered by the DOM suite and the fuzz seeds.
TEST_F(XmlDocumentTest, TextLoadsOnlyWellFormedDocuments) {
    const std::pair<const WCHAR*, bool> cases[] = {
        {HMI_W("<?xml version=\"1.0\" encoding=\"Windows-1252\"?><a>\x00E9</a>"), true}, {HMI_W("<a/>"), true},
        {HMI_W(""), false}, {HMI_W("<?xml version=\"1.0\"?>"), false}, {HMI_W(" <?xml version=\"1.0\"?><a/>"), false},
        {HMI_W("<a/><b/>"), false}, {HMI_W("<a>&undefined;</a>"), false},
    };
    for (const auto& c : cases) EXPECT_EQ(Loads(HMILoadXMLText(c.first)), c.second) << "case #" << (&c - cases);
    EXPECT_EQ(HMILoadXMLText(nullptr), nullptr);
}

TEST_F(XmlDocumentTest, FileLoadsByPathAndOnlyWhenReadableAndWellFormed) {
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "hmi_xml_document_test.xml";
    const WideString widePath = path.string<WCHAR>();
    const std::string ns(HMI_MEDIA_NAMESPACE, HMI_MEDIA_NAMESPACE + HMIStrLen(HMI_MEDIA_NAMESPACE));
    std::ofstream(path, std::ios::binary) << "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<iv:db xmlns:iv=\""
                                          << ns << "\"><iv:checksum>\xE2\x82\xAC" "1</iv:checksum></iv:db>\n";
    HMIComPtr<IXMLDOMDocument2> doc(HMILoadXMLFile(widePath.c_str()));
    WCHAR* out = nullptr;
    EXPECT_TRUE(doc && HMIGetElementText(HMI_W("checksum"), doc.get(), &out));
    EXPECT_EQ(hmitest::TakeText(out), HMI_W("\x20AC" "1"));

    std::ofstream(path, std::ios::binary) << "<a><b></a>";
    EXPECT_FALSE(Loads(HMILoadXMLFile(widePath.c_str())));
    std::filesystem::remove(path);
    for (const WideString& refused : {widePath, path.parent_path().string<WCHAR>(), WideString()}) {
        EXPECT_FALSE(Loads(HMILoadXMLFile(refused.c_str()))) << refused.size();
    }
    EXPECT_EQ(HMILoadXMLFile(nullptr), nullptr);
}

}  // namespace
