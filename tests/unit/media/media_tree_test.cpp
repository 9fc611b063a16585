// Media trees built from document text: fields that read as nothing, media rejected whole and depth
// limits. Records, dictionaries and allocation failure are checked through the exports (tests/api and the
// detail cache test).
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <memory>
#include <typeinfo>

#include "media/media_detail.h"
#include "support/full_medium.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_media_namespace.h"
#include "xml/hmi_xml_document.h"

namespace {

using WString = std::basic_string<WCHAR>;
using hmitest::kIcc64;
using hmitest::Zeroed;

std::string Ascii(const WCHAR* text) {
    std::string out = text ? "" : "(null)";
    for (; text && *text; ++text) out += static_cast<char>(*text < 0x80 ? *text : '?');
    return out;
}

WString MediumDocument(const WString& body) {
    return WString(HMI_W("<iv:mediainfo xmlns:iv=\"")) + HMI_MEDIA_NAMESPACE + HMI_W("\"><medium>") + body +
           HMI_W("</medium></iv:mediainfo>");
}

struct RecordingObserver final : HMIXMLRejectionObserver {
    void OnRejected(const WCHAR* path, const WCHAR* reason) override {
        rejections.push_back(Ascii(path) + ": " + Ascii(reason));
    }
    std::vector<std::string> rejections;
};

class MediaDocumentTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(com.ok()); }

    bool Load(const WString& text) { return (*document.put() = HMILoadXMLText(text.c_str())) != nullptr; }

    std::unique_ptr<HMIXMLMediaDetail> Build(const WString& text, HMIXMLRejectionObserver* observer = nullptr) {
        EXPECT_TRUE(Load(text)) << "document does not load: " << Ascii(text.c_str());
        auto detail = std::make_unique<HMIXMLMediaDetail>();
        return document && detail->ParseDocument(document.get(), observer) ? std::move(detail) : nullptr;
    }

    std::unique_ptr<HMIXMLMediaDetail> BuildMedium(const WString& body) { return Build(MediumDocument(body)); }

    // The document element of text as a plain node (no registry) below parent.
    std::unique_ptr<HMIXMLNode> ParseElement(const WString& text, HMIXMLNode* parent = nullptr) {
        HMIComPtr<IXMLDOMNode> root;
        HMIBSTR query;
        auto node = std::make_unique<HMIXMLNode>(parent);
        const bool ok = Load(text) && query.assign(HMI_W("/*")) &&
                        SUCCEEDED(document->selectSingleNode(query.str, root.put())) && root;
        return ok && node->Parse(root.get(), nullptr) ? std::move(node) : nullptr;
    }

    HMIComApartment com;
    HMIComPtr<IXMLDOMDocument2> document;
};

// True when node exists; its record must then equal expected byte for byte.
template <typename Node, typename Record>
bool HasRecord(const Node* node, const Record& expected) {
    EXPECT_TRUE(!node || hmitest::SameBytes(node->Info(), expected)) << typeid(Record).name() << " record differs";
    return node;
}

class MediaTreeTest : public MediaDocumentTest {};

// Over-long strings and unknown values leave their fields empty; the rest of the record is read.
TEST_F(MediaTreeTest, FieldsThatReadAsNothing) {
    auto odd = BuildMedium(HMI_W(R"(<operationflag>1F</operationflag><format_version>1.000</format_version>
        <medium_category/><printcolormode type="color"><borderlessprint type="OFF"><print_purpose type="photo">
        <printquality_index type="1" threeposition="fine"><output_icc>)") +
                           WString(kIcc64) + HMI_W(R"(X</output_icc><bit>12 bits</bit>
        <app_filter_id>ABCDEFGHI</app_filter_id></printquality_index></print_purpose></borderlessprint>
        </printcolormode>)"));
    ASSERT_TRUE(odd);
    auto medium = Zeroed<_tagHMIMediaInfo>();
    medium.operationflag = 31;
    medium.medium_category = static_cast<tagHMI_MEDIACATEGORY>(16);
    EXPECT_TRUE(HasRecord(odd.get(), medium));
    auto quality = Zeroed<_tagHMIPrintQualityInfo>(HMI_PRINTQUALITY_1, HMI_3POS_FINE);
    quality.bit = 12;
    const HMIXMLMediaPrintPurpose* purpose = odd->ColorModes().Find(HMI_COLORMODE_COLOR)->BorderlessModes().Find(
        HMI_OFF)->PrintPurposes().Find(HMI_PRINTPURPOSE_PHOTO);
    EXPECT_TRUE(HasRecord(purpose->QualitiesINDEX().Find(HMI_PRINTQUALITY_1), quality));
}

TEST_F(MediaTreeTest, WholeMediumIsRejectedAndExplained) {
    const WString purpose =
        HMI_W(R"(<printcolormode type="color"><borderlessprint type="ON"><print_purpose type="photo">)");
    const WString end = HMI_W("</print_purpose></borderlessprint></printcolormode>");
    const std::string purposePath = "medium/printcolormode[1]/borderlessprint[1]/print_purpose[1]";
    const std::string noType = ": missing attribute \"type\"";
    const struct {
        WString body;
        std::string rejection;
    } cases[] = {
        {HMI_W("<printcolormode/>"), "medium/printcolormode[1]" + noType},
        {HMI_W(R"(<printcolormode type="color"/><printcolormode type="all">
             <borderlessprint type="ON"/><borderlessprint type=""/><borderlessprint/></printcolormode>)"),
         "medium/printcolormode[2]/borderlessprint[3]" + noType},
        {purpose + HMI_W(R"(<printquality_rgb type="1" threeposition="fine"/>
             <printquality_index type="1" threeposition="fine"/><printquality_rgb type="3"/>)") + end,
         purposePath + "/printquality_rgb[2]: missing attribute \"threeposition\""},
        // Unknown tokens are not counted, but the capacity is tested before a token is converted.
        {HMI_W("<availableprintcolormode>color,monochrome,xyz</availableprintcolormode>"),
         "medium: availableprintcolormode holds 3 values, capacity 2"},
        {HMI_W("<printarea>1,0,2,3,4,5,6</printarea>"), "medium: printarea holds 6 values, capacity 4"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Ascii(c.body.c_str()));
        RecordingObserver observer;
        EXPECT_FALSE(Build(MediumDocument(c.body), &observer));
        EXPECT_EQ(observer.rejections, std::vector<std::string>{c.rejection});
    }
    // An observer is only told about the parse it was given to.
    RecordingObserver outer;
    HMIXMLRejectionScope scope(&outer);
    EXPECT_FALSE(BuildMedium(HMI_W("<printcolormode/>")));
    EXPECT_TRUE(outer.rejections.empty());
}

// A built tree keeps the nodes a query can reach and nothing else: the first colour mode of a type,
// not its repetition, no value elements, attributes, names or texts.
TEST_F(MediaTreeTest, BuiltTreeKeepsOnlyWhatQueriesRead) {
    auto detail = BuildMedium(HMI_W(R"(<operationflag>1F</operationflag><printcolormode type="color"><x/>
        <borderlessprint type="ON"/></printcolormode><printcolormode type="color"/><printcolormode type="all"/>)"));
    ASSERT_TRUE(detail);
    const HMIXMLMediaColorMode* color = detail->ColorModes().Find(HMI_COLORMODE_COLOR);
    const HMIXMLMediaColorMode* all = detail->ColorModes().Find(HMI_COLORMODE_ALL);
    ASSERT_TRUE(color && all);
    EXPECT_EQ(detail->Children(), (std::vector<HMIXMLNode*>{const_cast<HMIXMLMediaColorMode*>(color),
                                                             const_cast<HMIXMLMediaColorMode*>(all)}));
    EXPECT_EQ(color->Children().size(), 1u);  // the borderless mode, not <x/>
    EXPECT_EQ(detail->Info().operationflag, 0x1Fu);
    for (const HMIXMLNode* node : {static_cast<const HMIXMLNode*>(detail.get()), static_cast<const HMIXMLNode*>(color),
                                   static_cast<const HMIXMLNode*>(color->Children()[0])}) {
        EXPECT_TRUE(node->Attributes().empty() && !node->Name() && !node->Text());
    }
}

WString Nested(int levels, const WCHAR* leaf) {
    return levels ? HMI_W("<x>") + Nested(levels - 1, leaf) + HMI_W("</x>") : WString(leaf);
}

int DepthBelow(const HMIXMLNode* node) { return node->Children().empty() ? 0 : 1 + DepthBelow(node->Children()[0]); }

// MSXML 6.0 and the Linux DOM refuse documents nested deeper than 256 elements, so a medium at the
// top has at most 255 levels below it. Wine's MSXML loads deeper ones: the tree refuses them itself.
TEST_F(MediaTreeTest, DeepDocumentsBuildUpToTheLimitAndNoFurther) {
    EXPECT_TRUE(Build(WString(HMI_W("<medium>")) + Nested(254, HMI_W("<printcolormode type=\"all\"/>")) +
                      HMI_W("</medium>")));
    // The deepest element is built: a colour mode there without its type rejects the medium.
    RecordingObserver deepest;
    EXPECT_FALSE(Build(WString(HMI_W("<medium>")) + Nested(254, HMI_W("<printcolormode/>")) + HMI_W("</medium>"),
                       &deepest));
    ASSERT_EQ(deepest.rejections.size(), 1u);
    const std::string& path = deepest.rejections[0];
    EXPECT_EQ(std::count(path.begin(), path.begin() + path.find(':'), '/'), 255) << path.substr(path.size() - 80);
    EXPECT_FALSE(Load(HMI_W("<medium>") + Nested(300, HMI_W("")) + HMI_W("</medium>")) &&
                 HMIXMLMediaDetail().ParseDocument(document.get()));
    // Below a chain of 250 ancestors, an element may have 6 levels below it but not 7.
    std::deque<HMIXMLNode> chain;
    for (int depth = 0; depth < 250; ++depth) chain.emplace_back(chain.empty() ? nullptr : &chain.back());
    RecordingObserver observer;
    HMIXMLRejectionScope scope(&observer);
    auto six = ParseElement(Nested(7, HMI_W("t")), &chain.back());
    ASSERT_TRUE(six);
    EXPECT_EQ(DepthBelow(six.get()), 6);
    EXPECT_FALSE(ParseElement(Nested(8, HMI_W("t")), &chain.back()));
    ASSERT_EQ(observer.rejections.size(), 1u);
    EXPECT_NE(observer.rejections[0].find(": nested more than 256 levels deep"), std::string::npos);
}

}  // namespace
