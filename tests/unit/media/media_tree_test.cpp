// Trees built from document text: records, dictionaries, the generic node, and media rejected whole.
#include <gtest/gtest.h>

#include <cstring>

#include "media/media_detail.h"
#include "media_test_support.h"

namespace {

using mediatest::Ascii;
using mediatest::WString;

class MediaTreeTest : public mediatest::MediaDocumentTest {};

TEST_F(MediaTreeTest, RecordsAreFilledByteForByte) {
    const WCHAR id64[] = HMI_W("0123456789012345678901234567890123456789012345678901234567890123");
    ASSERT_TRUE(Load(mediatest::MediumDocument(mediatest::FullMediumBody())));
    HMIXMLMediaDetail full;
    ASSERT_TRUE(full.SetId(id64));
    ASSERT_TRUE(full.ParseDocument(document.get()));
    mediatest::ExpectFullTree(full, id64);
    HMIXMLMediaDetail tooLong;
    EXPECT_FALSE(tooLong.SetId((WString(id64) + HMI_W("X")).c_str()));
    EXPECT_EQ(tooLong.Info().id[0], 0);
}

// Over-long strings and unknown values leave their fields empty; the rest of the record is read.
TEST_F(MediaTreeTest, FieldsThatReadAsNothing) {
    auto odd = BuildMedium(HMI_W(R"(<operationflag>1F</operationflag><format_version>1.000</format_version>
        <medium_category/><printcolormode type="color"/>)"));
    _tagHMIMediaInfo medium;
    std::memset(&medium, 0, sizeof medium);
    medium.operationflag = 31;
    medium.medium_category = static_cast<tagHMI_MEDIACATEGORY>(16);
    EXPECT_TRUE(mediatest::HasRecord(odd.get(), medium, "medium"));

    auto overlong = BuildMedium(WString(HMI_W(R"(<printquality_index type="1" threeposition="fine"><output_icc>)")) +
                                mediatest::kIcc64 + HMI_W(R"(X</output_icc><app_filter_id>ABCDEFGHI</app_filter_id>
        <bit>12 bits</bit></printquality_index>)"));
    ASSERT_TRUE(overlong);
    auto expected = mediatest::QualityOf(HMI_PRINTQUALITY_1, HMI_3POS_FINE);
    expected.bit = 12;
    const HMIXMLNode* quality = overlong->FindChild(HMI_W("printquality_index"));
    EXPECT_TRUE(mediatest::HasRecord(dynamic_cast<const HMIXMLMediaPrintQuality*>(quality), expected, "quality"));
}

// The first node under a key stays; unknown types are a key like any other; element names match
// case-sensitively and without their prefix, as does the "type" attribute. Level elements anywhere
// else are typed, but filed nowhere.
TEST_F(MediaTreeTest, ColourModeDictionary) {
    auto detail = BuildMedium(HMI_W(R"(
        <printcolormode type="color"><availableborderlessprint>ON</availableborderlessprint></printcolormode>
        <printcolormode type="color"/><printcolormode type="Color"/><PrintColorMode type="monochrome"/>
        <iv:printcolormode iv:type="all"><extra><borderlessprint type="ON"/></extra></iv:printcolormode>
        <locale>WW<printcolormode type="monochrome"/></locale>)"));
    ASSERT_TRUE(detail);
    const auto& children = detail->Children();
    ASSERT_EQ(children.size(), 6u);
    const HMIXMLMediaColorModeDic& modes = detail->ColorModes();
    EXPECT_EQ(modes.size(), 3u);
    EXPECT_EQ(modes.Find(HMI_COLORMODE_COLOR), children[0]);
    EXPECT_EQ(modes.Find(HMI_COLORMODE_COLOR)->Info().availableborderlessprint.values[0], HMI_ON);
    EXPECT_EQ(modes.Find(HMI_COLORMODE_INVALID), children[2]);
    EXPECT_EQ(dynamic_cast<HMIXMLMediaColorMode*>(children[3]), nullptr);
    EXPECT_EQ(modes.Find(HMI_COLORMODE_MONOCHROME), nullptr);
    ASSERT_EQ(modes.Find(HMI_COLORMODE_ALL), children[4]);
    EXPECT_EQ(Ascii(children[4]->NamespaceURI()), Ascii(HMI_MEDIA_NAMESPACE));
    EXPECT_TRUE(modes.Find(HMI_COLORMODE_ALL)->BorderlessModes().empty());
    const HMIXMLNode* borderless = children[4]->FindChild(HMI_W("extra"))->FindChild(HMI_W("borderlessprint"));
    EXPECT_NE(dynamic_cast<const HMIXMLMediaBorderlessMode*>(borderless), nullptr);
    EXPECT_NE(dynamic_cast<HMIXMLMediaColorMode*>(children[5]->FindChild(HMI_W("printcolormode"))), nullptr);
}

TEST_F(MediaTreeTest, FirstMediumInNoNamespaceOnly) {
    auto first = Build(HMI_W(R"(<db><medium><format_version>A</format_version></medium>
        <medium><format_version>B</format_version></medium></db>)"));
    ASSERT_TRUE(first);
    EXPECT_EQ(Ascii(first->Info().format_version), "A");
    EXPECT_FALSE(Build(HMI_W("<iv:medium xmlns:iv=\"urn:x\"/>")));
    mediatest::RecordingObserver observer;
    EXPECT_FALSE(Build(WString(HMI_W("<medium xmlns=\"")) + HMI_MEDIA_NAMESPACE + HMI_W("\"/>"), &observer));
    EXPECT_EQ(observer.rejections, std::vector<std::string>{": no \"medium\" element in no namespace"});
}

TEST_F(MediaTreeTest, GenericNodeCopiesTextAttributesAndChildren) {
    auto node = ParseElement(HMI_W(R"(<v a="1" b="" iv:a="2" xmlns:iv="urn:x">first<!--c-->second<x/><y>
        <![CDATA[ raw ]]></y><x>3</x><z></z></v>)"));
    ASSERT_TRUE(node);
    EXPECT_EQ(Ascii(node->Text()), "second");
    ASSERT_EQ(node->Children().size(), 4u);
    EXPECT_EQ(node->FindChild(HMI_W("x")), node->Children()[0]);
    EXPECT_EQ(node->Children()[2]->Parent(), node.get());
    EXPECT_EQ(Ascii(node->FindChild(HMI_W("y"))->Text()), " raw ");
    EXPECT_EQ(node->FindChild(HMI_W("z"))->Text(), nullptr);
    EXPECT_EQ(node->FindChild(HMI_W("X")), nullptr);
    EXPECT_EQ(Ascii(node->FindAttribute(HMI_W("a"))->Text()), "1");
    EXPECT_EQ(node->FindAttribute(HMI_W("b"))->Text(), nullptr);
    EXPECT_EQ(node->AttributeIndex().count(HMI_W("a")), 2u);
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
        {HMI_W("<locale>WW<printcolormode/></locale>"), "medium/locale[1]/printcolormode[1]" + noType},
        // Unknown tokens are not counted, but the capacity is tested before a token is converted.
        {HMI_W("<availableprintcolormode>color,monochrome,xyz</availableprintcolormode>"),
         "medium: availableprintcolormode holds 3 values, capacity 2"},
        {HMI_W("<locale>xx,WW,JA,US,EU,xx</locale>"), "medium: locale holds 5 values, capacity 4"},
        {HMI_W("<printarea>1,0,2,3,4,5,6</printarea>"), "medium: printarea holds 6 values, capacity 4"},
        {purpose + HMI_W(R"(<printquality_rgb type="1" threeposition="fine">
             <availableclearcoat>none,auto,all,custom,none,none</availableclearcoat></printquality_rgb>)") + end,
         purposePath + "/printquality_rgb[1]: availableclearcoat holds 6 values, capacity 4"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Ascii(c.body.c_str()));
        mediatest::RecordingObserver observer;
        EXPECT_FALSE(Build(mediatest::MediumDocument(c.body), &observer));
        EXPECT_EQ(observer.rejections, std::vector<std::string>{c.rejection});
    }
    // An observer is only told about the parse it was given to.
    mediatest::RecordingObserver outer;
    HMIXMLRejectionScope scope(&outer);
    EXPECT_FALSE(BuildMedium(HMI_W("<printcolormode/>")));
    EXPECT_TRUE(outer.rejections.empty());
}

}  // namespace
