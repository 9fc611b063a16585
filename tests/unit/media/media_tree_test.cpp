// Trees built from document text: records, dictionaries, the registry and the generic node.
#include <gtest/gtest.h>

#include "media/media_child_registry.h"
#include "media/media_detail.h"
#include "media_test_support.h"
#include "media_tree_documents.h"

namespace {

using mediatest::Ascii;
using mediatest::WString;

class MediaTreeTest : public mediatest::MediaDocumentTest {};

TEST_F(MediaTreeTest, EveryLevelFillsItsRecord) {
    ASSERT_TRUE(Load(mediatest::MediumDocument(mediatest::FullMediumBody())));
    HMIXMLMediaDetail detail;
    ASSERT_TRUE(detail.SetId(HMI_W("MEDIA-01")));
    ASSERT_TRUE(detail.ParseDocument(document.get()));
    mediatest::ExpectFullTree(detail, HMI_W("MEDIA-01"));
}

TEST_F(MediaTreeTest, MediumWithOnlyColourModesIsZeroButItsId) {
    const WCHAR id[] = HMI_W("0123456789012345678901234567890123456789012345678901234567890123");
    ASSERT_TRUE(Load(mediatest::MediumDocument(HMI_W("<printcolormode type=\"color\"/>"))));
    HMIXMLMediaDetail detail;
    ASSERT_TRUE(detail.SetId(id));
    ASSERT_TRUE(detail.ParseDocument(document.get()));
    _tagHMIMediaInfo expected;
    std::memset(&expected, 0, sizeof expected);
    mediatest::Put(expected.id, id);
    mediatest::ExpectSameBytes(detail.Info(), expected, "medium record");
    EXPECT_EQ(detail.ColorModes().size(), 1u);

    HMIXMLMediaDetail tooLong;
    EXPECT_FALSE(tooLong.SetId(HMI_W("0123456789012345678901234567890123456789012345678901234567890123X")));
    EXPECT_EQ(tooLong.Info().id[0], 0);
}

struct ValueCase {
    const WCHAR* body;
    uint64_t operationflag;
    const char* formatVersion;
    uint32_t category;
};

TEST_F(MediaTreeTest, MediumValueElements) {
    const std::vector<ValueCase> cases = {
        {HMI_W("<operationflag>1F</operationflag>"), 31, "", 0},
        {HMI_W("<operationflag> 0x1F zz</operationflag>"), 31, "", 0},
        {HMI_W("<operationflag/>"), 0, "", 0},
        {HMI_W("<format_version>1.000</format_version>"), 0, "", 0},
        {HMI_W("<format_version>2.1</format_version>"), 0, "2.1", 0},
        {HMI_W("<medium_category/>"), 0, "", 16},
        {HMI_W("<medium_category>1</medium_category>"), 0, "", 16},
        {HMI_W("<medium_category>14</medium_category>"), 0, "", 13},
    };
    for (const ValueCase& c : cases) {
        SCOPED_TRACE(Ascii(c.body));
        auto detail = BuildMedium(c.body);
        ASSERT_TRUE(detail);
        EXPECT_EQ(detail->Info().operationflag, c.operationflag);
        EXPECT_EQ(Ascii(detail->Info().format_version), c.formatVersion);
        EXPECT_EQ(static_cast<uint32_t>(detail->Info().medium_category), c.category);
    }
}

TEST_F(MediaTreeTest, OverlongStringsLeaveTheirFieldsEmpty) {
    auto detail = BuildMedium(WString(HMI_W(R"(<printcolormode type="color"><borderlessprint type="OFF">
        <print_purpose type="cad"><printquality_index type="1" threeposition="fine">
        <output_icc>)")) + mediatest::kIcc64 + HMI_W(R"(X</output_icc><app_filter_id>ABCDEFGHI</app_filter_id>
        <bit>12 bits</bit></printquality_index></print_purpose></borderlessprint></printcolormode>)"));
    ASSERT_TRUE(detail);
    const HMIXMLMediaPrintPurpose* cad = detail->ColorModes()
                                             .Find(HMI_COLORMODE_COLOR)
                                             ->BorderlessModes()
                                             .Find(HMI_OFF)
                                             ->PrintPurposes()
                                             .Find(HMI_PRINTPURPOSE_CAD);
    ASSERT_NE(cad, nullptr);
    const HMIXMLMediaPrintQuality* quality = cad->QualitiesINDEX().Find(HMI_PRINTQUALITY_1);
    ASSERT_NE(quality, nullptr);
    _tagHMIPrintQualityInfo expected = mediatest::QualityOf(HMI_PRINTQUALITY_1, HMI_3POS_FINE);
    expected.bit = 12;
    mediatest::ExpectSameBytes(quality->Info(), expected, "quality record");
}

TEST_F(MediaTreeTest, FirstNodeUnderAKeyStaysAndAllIsAKeyLikeAnyOther) {
    auto detail = BuildMedium(HMI_W(R"(
        <printcolormode type="color"><availableborderlessprint>ON</availableborderlessprint></printcolormode>
        <printcolormode type="color"><availableborderlessprint>OFF</availableborderlessprint></printcolormode>
        <printcolormode type="Color"/>
        <printcolormode type="all"/>)"));
    ASSERT_TRUE(detail);
    ASSERT_EQ(detail->Children().size(), 4u);
    const HMIXMLMediaColorModeDic& modes = detail->ColorModes();
    ASSERT_EQ(modes.size(), 3u);
    EXPECT_EQ(modes.Find(HMI_COLORMODE_COLOR), detail->Children()[0]);
    EXPECT_EQ(detail->FindChild(HMI_W("printcolormode")), detail->Children()[0]);
    EXPECT_EQ(modes.Find(HMI_COLORMODE_COLOR)->Info().availableborderlessprint.values[0], HMI_ON);
    EXPECT_EQ(modes.Find(HMI_COLORMODE_INVALID), detail->Children()[2]);
    EXPECT_EQ(modes.Find(HMI_COLORMODE_ALL), detail->Children()[3]);
}

TEST_F(MediaTreeTest, RegistryMatchesLocalNamesCaseSensitively) {
    auto detail = BuildMedium(HMI_W(R"(
        <PrintColorMode type="color"/>
        <iv:printcolormode type="monochrome"/>
        <printcolormode iv:type="all"/>)"));
    ASSERT_TRUE(detail);
    ASSERT_EQ(detail->Children().size(), 3u);
    EXPECT_EQ(dynamic_cast<HMIXMLMediaColorMode*>(detail->Children()[0]), nullptr);
    EXPECT_EQ(detail->ColorModes().size(), 2u);
    EXPECT_EQ(detail->ColorModes().Find(HMI_COLORMODE_MONOCHROME), detail->Children()[1]);
    EXPECT_EQ(Ascii(detail->Children()[1]->NamespaceURI()), Ascii(mediatest::kNamespace));
    EXPECT_EQ(detail->ColorModes().Find(HMI_COLORMODE_ALL), detail->Children()[2]);
}

TEST(MediaChildRegistry, SignaturesAndLookup) {
    EXPECT_EQ(HMIStrSignature(HMI_W("printcolormode")), 0x000E0065006C0070u);
    EXPECT_EQ(HMIStrSignature(HMI_W("printquality_cmyk_4DLUT")), 0x0017005400790070u);
    EXPECT_EQ(HMIStrSignature(HMI_W("printquality_cmyk_1DLUT")), 0x0017005400790070u);
    EXPECT_EQ(HMIStrSignature(HMI_W("a")), 0x0001006100610061u);
    EXPECT_EQ(HMIStrSignature(HMI_W("")), 0u);
    EXPECT_EQ(HMIStrSignature(nullptr), 0u);

    ASSERT_EQ(HMIMediaChildRegistry.count, 7u);
    for (uint64_t i = 0; i < HMIMediaChildRegistry.count; ++i) {
        const HMIXMLChildEntry& entry = HMIMediaChildRegistry.entries[i];
        EXPECT_EQ(entry.signature, HMIStrSignature(entry.name)) << i;
        EXPECT_EQ(HMIFindChildEntry(&HMIMediaChildRegistry, entry.name), &entry) << i;
    }
    EXPECT_EQ(HMIFindChildEntry(&HMIMediaChildRegistry, HMI_W("printquality_cmyk_2DLUT")), nullptr);
    EXPECT_EQ(HMIFindChildEntry(&HMIMediaChildRegistry, HMI_W("Printcolormode")), nullptr);
    EXPECT_EQ(HMIFindChildEntry(nullptr, HMI_W("printcolormode")), nullptr);
}

TEST_F(MediaTreeTest, NestedLevelElementIsTypedButFiledNowhere) {
    auto detail = BuildMedium(HMI_W(R"(<locale>WW<printcolormode type="color"/></locale>
        <printcolormode type="monochrome"><extra><borderlessprint type="ON"/></extra></printcolormode>)"));
    ASSERT_TRUE(detail);
    EXPECT_EQ(detail->Info().locale.count, 1u);
    const HMIXMLNode* nested = detail->FindChild(HMI_W("locale"))->FindChild(HMI_W("printcolormode"));
    ASSERT_NE(dynamic_cast<const HMIXMLMediaColorMode*>(nested), nullptr);
    ASSERT_EQ(detail->ColorModes().size(), 1u);
    const HMIXMLMediaColorMode* mono = detail->ColorModes().Find(HMI_COLORMODE_MONOCHROME);
    ASSERT_NE(mono, nullptr);
    EXPECT_TRUE(mono->BorderlessModes().empty());
    EXPECT_NE(dynamic_cast<const HMIXMLMediaBorderlessMode*>(
                  mono->FindChild(HMI_W("extra"))->FindChild(HMI_W("borderlessprint"))),
              nullptr);
}

TEST_F(MediaTreeTest, FirstMediumInNoNamespaceOnly) {
    auto first = Build(HMI_W(R"(<db><medium><format_version>A</format_version></medium>
        <medium><format_version>B</format_version></medium></db>)"));
    ASSERT_TRUE(first);
    EXPECT_EQ(Ascii(first->Info().format_version), "A");

    mediatest::RecordingObserver observer;
    EXPECT_FALSE(Build(WString(HMI_W("<medium xmlns=\"")) + mediatest::kNamespace + HMI_W("\"/>"), &observer));
    ASSERT_EQ(observer.rejections.size(), 1u);
    EXPECT_EQ(observer.rejections[0].path, "");
    EXPECT_EQ(observer.rejections[0].reason, "no \"medium\" element in no namespace");

    EXPECT_FALSE(Build(HMI_W("<iv:medium xmlns:iv=\"urn:x\"/>")));
    auto declaring = Build(WString(HMI_W("<medium xmlns:iv=\"")) + mediatest::kNamespace +
                           HMI_W("\"><iv:printcolormode type=\"color\"/></medium>"));
    ASSERT_TRUE(declaring);
    EXPECT_EQ(declaring->ColorModes().size(), 1u);
    ASSERT_EQ(declaring->Attributes().size(), 1u);
    EXPECT_EQ(Ascii(declaring->Attributes()[0]->Text()), Ascii(mediatest::kNamespace));

    auto bare = Build(HMI_W("<medium/>"));
    ASSERT_TRUE(bare);
    EXPECT_TRUE(bare->ColorModes().empty());
}

TEST_F(MediaTreeTest, GenericNodeCopiesTextAttributesAndChildren) {
    auto node = ParseElement(HMI_W(R"(<v a="1" b="" iv:a="2" xmlns:iv="urn:x">first<!--c-->second<x/><y>
        <![CDATA[ raw ]]></y><x>3</x><z></z><?pi data?></v>)"));
    ASSERT_TRUE(node);
    EXPECT_EQ(Ascii(node->Name()), "v");
    EXPECT_EQ(node->NamespaceURI(), nullptr);
    EXPECT_EQ(Ascii(node->Text()), "second");
    ASSERT_EQ(node->Children().size(), 4u);
    EXPECT_EQ(node->FindChild(HMI_W("x")), node->Children()[0]);
    EXPECT_EQ(node->Children()[2]->Parent(), node.get());
    EXPECT_EQ(Ascii(node->Children()[2]->Text()), "3");
    EXPECT_EQ(Ascii(node->FindChild(HMI_W("y"))->Text()), " raw ");
    EXPECT_EQ(node->FindChild(HMI_W("z"))->Text(), nullptr);
    EXPECT_EQ(node->FindChild(HMI_W("X")), nullptr);
    EXPECT_EQ(node->FindChild(nullptr), nullptr);

    EXPECT_EQ(Ascii(node->FindAttribute(HMI_W("a"))->Text()), "1");
    EXPECT_EQ(node->FindAttribute(HMI_W("b"))->Text(), nullptr);
    EXPECT_EQ(node->AttributeIndex().count(HMI_W("a")), 2u);
    EXPECT_EQ(node->FindAttribute(HMI_W("x")), nullptr);
    EXPECT_TRUE(node->FindAttribute(HMI_W("a"))->Children().empty());
}

}  // namespace
