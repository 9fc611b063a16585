// Media-tree test support: documents loaded through the library's DOM configuration, trees built
// from them, and a medium that uses every field of every level with the records it must produce.
#ifndef HMI_TEST_MEDIA_SUPPORT_H
#define HMI_TEST_MEDIA_SUPPORT_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "media/media_detail.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_media_namespace.h"
#include "xml/hmi_xml_document.h"

namespace mediatest {

using WString = std::basic_string<WCHAR>;

inline std::string Ascii(const WCHAR* text) {
    std::string out;
    for (; text && *text; ++text) out += static_cast<char>(*text < 0x80 ? *text : '?');
    return text ? out : std::string("(null)");
}

// A media-information document whose one medium holds body.
inline WString MediumDocument(const WString& body) {
    return WString(HMI_W("<iv:mediainfo xmlns:iv=\"")) + HMI_MEDIA_NAMESPACE + HMI_W("\"><medium>") + body +
           HMI_W("</medium></iv:mediainfo>");
}

// Keeps every rejection as "path: reason".
class RecordingObserver final : public HMIXMLRejectionObserver {
public:
    void OnRejected(const WCHAR* path, const WCHAR* reason) override {
        rejections.push_back(Ascii(path) + ": " + Ascii(reason));
    }
    std::vector<std::string> rejections;
};

class MediaDocumentTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(com.ok()); }

    bool Load(const WString& text) {
        *document.put() = HMILoadXMLText(text.c_str());
        return static_cast<bool>(document);
    }

    // The tree of text's first medium, or null when the document is rejected.
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
        if (!Load(text) || !query.assign(HMI_W("/*")) || FAILED(document->selectSingleNode(query.str, root.put())) ||
            !root) {
            return nullptr;
        }
        auto node = std::make_unique<HMIXMLNode>(parent);
        return node->Parse(root.get(), nullptr) ? std::move(node) : nullptr;
    }

    HMIComApartment com;
    HMIComPtr<IXMLDOMDocument2> document;
};

// 64 characters: fills output_icc up to its terminator.
inline const WCHAR* kIcc64 = HMI_W("profile-0123456789abcdef0123456789abcdef0123456789abcdef-64chars");

inline WString FullMediumBody() {
    return WString(HMI_W(R"(<operationflag>0x1F</operationflag><format_version>1.00</format_version>
  <medium_category>03</medium_category><printarea>3,5,0,7</printarea><locale>WW,JA</locale>
  <unsuported_papersize>iso_a4_210x297mm,na_letter_8.5x11in</unsuported_papersize><bk_ink_type>PBk</bk_ink_type>
  <availableinputbinid default="asf">AUTO,asf</availableinputbinid>
  <availableprintcolormode default="monochrome">color,monochrome</availableprintcolormode><printcolormode type="all"/>
  <printcolormode type="color"><availableborderlessprint default="OFF">OFF,ON</availableborderlessprint>
    <borderlessprint type="ON"><availableprint_purpose default="photo">photo,cad</availableprint_purpose>
      <print_purpose type="photo"><operationflag>A0</operationflag>
        <availableduplexprint default="OFF">OFF,auto</availableduplexprint>
        <availablecartridge default="auto">auto,bkcolor,photocolor</availablecartridge>
        <availableAppPostcardMedia>address,contents</availableAppPostcardMedia>
        <availableHagakiAutoDuplexMode>normal</availableHagakiAutoDuplexMode>
        <availableprintquality_rgb default="3">1,3,5</availableprintquality_rgb>
        <availableprintquality_cmyk_4DLUT default="2">2</availableprintquality_cmyk_4DLUT>
        <availableprintquality_cmyk_1DLUT>all</availableprintquality_cmyk_1DLUT>
        <printquality_rgb type="3" threeposition="normal"><operationflag>ff</operationflag><output_icc>)")) +
           kIcc64 + HMI_W(R"(</output_icc><bit>-16</bit><app_filter_id>ABCDEFGH</app_filter_id>
          <availableresolution default="600">300,600</availableresolution>
          <availableclearcoat>none,auto</availableclearcoat></printquality_rgb>
      <printquality_cmyk_4DLUT type="all" threeposition="all"/><printquality_cmyk_1DLUT type="1" threeposition="fine"/>
        <printquality_index type="5" threeposition="draft"/></print_purpose></borderlessprint></printcolormode>)");
}

template <size_t N>
void Put(WCHAR (&field)[N], const WCHAR* text) {
    std::char_traits<WCHAR>::copy(field, text, std::char_traits<WCHAR>::length(text) + 1);
}

// Field by field: assigning a whole list could carry indeterminate padding into a memcmp.
template <typename List, typename E>
void SetList(List& list, std::initializer_list<E> values) {
    list.count = values.size();
    std::copy(values.begin(), values.end(), list.values);
}

template <typename List, typename E>
void SetList(List& list, E defaultValue, std::initializer_list<E> values) {
    list.defaultValue = defaultValue;
    SetList(list, values);
}

template <typename Record, typename Type = decltype(Record::type)>
Record Zeroed(Type type = Type()) {
    Record r;
    std::memset(&r, 0, sizeof r);
    r.type = type;
    return r;
}

inline _tagHMIPrintQualityInfo QualityOf(tagHMI_PRINTQUALITY type, tagHMI_PRINTQUALITY3POS threeposition) {
    auto e = Zeroed<_tagHMIPrintQualityInfo>(type);
    e.threeposition = threeposition;
    return e;
}

// True when node exists; its record must then equal expected byte for byte.
template <typename Node, typename Record>
bool HasRecord(const Node* node, const Record& expected, const char* what) {
    if (!node) return false;
    EXPECT_EQ(std::memcmp(&node->Info(), &expected, sizeof(Record)), 0) << what << " record differs";
    return true;
}

// Every record and dictionary of the tree of FullMediumBody requested as id.
inline void ExpectFullTree(const HMIXMLMediaDetail& detail, const WCHAR* id) {
    _tagHMIMediaInfo medium;
    std::memset(&medium, 0, sizeof medium);
    Put(medium.id, id);
    medium.operationflag = 0x1F;
    Put(medium.format_version, HMI_W("1.00"));
    medium.medium_category = HMI_MEDIACATEGORY_03;
    SetList(medium.unsuported_papersize, {HMI_PAPERSIZE_ISO_A4, HMI_PAPERSIZE_NA_LETTER});
    medium.printarea = {1, 0, {3, 5, 7, 0}};
    SetList(medium.locale, {HMI_LOCALE_WW, HMI_LOCALE_JA});
    SetList(medium.bk_ink_type, {HMI_BKINK_PBK});
    SetList(medium.availableinputbinid, HMI_INPUTBIN_ASF, {HMI_INPUTBIN_AUTO, HMI_INPUTBIN_ASF});
    SetList(medium.availableprintcolormode, HMI_COLORMODE_MONOCHROME, {HMI_COLORMODE_COLOR, HMI_COLORMODE_MONOCHROME});
    HasRecord(&detail, medium, "medium");
    ASSERT_EQ(detail.ColorModes().size(), 2u);
    ASSERT_NE(detail.ColorModes().Find(HMI_COLORMODE_ALL), nullptr);

    const HMIXMLMediaColorMode* color = detail.ColorModes().Find(HMI_COLORMODE_COLOR);
    auto colorRecord = Zeroed<HMIColorModeRecord>(HMI_COLORMODE_COLOR);
    SetList(colorRecord.availableborderlessprint, HMI_OFF, {HMI_OFF, HMI_ON});
    ASSERT_TRUE(HasRecord(color, colorRecord, "colour-mode"));
    ASSERT_EQ(color->BorderlessModes().size(), 1u);

    const HMIXMLMediaBorderlessMode* on = color->BorderlessModes().Find(HMI_ON);
    auto onRecord = Zeroed<HMIBorderlessModeRecord>(HMI_ON);
    SetList(onRecord.availableprint_purpose, HMI_PRINTPURPOSE_PHOTO, {HMI_PRINTPURPOSE_PHOTO, HMI_PRINTPURPOSE_CAD});
    ASSERT_TRUE(HasRecord(on, onRecord, "borderless"));
    ASSERT_EQ(on->PrintPurposes().size(), 1u);

    const HMIXMLMediaPrintPurpose* photo = on->PrintPurposes().Find(HMI_PRINTPURPOSE_PHOTO);
    auto purpose = Zeroed<_tagHMIPrintPurposeInfo>(HMI_PRINTPURPOSE_PHOTO);
    purpose.operationflag = 0xA0;
    SetList(purpose.availableduplexprint, HMI_DUPLEX_OFF, {HMI_DUPLEX_OFF, HMI_DUPLEX_AUTO});
    SetList(purpose.availablecartridge, HMI_CARTRIDGE_AUTO,
            {HMI_CARTRIDGE_AUTO, HMI_CARTRIDGE_BKCOLOR, HMI_CARTRIDGE_PHOTOCOLOR});
    SetList(purpose.availableAppPostcardMedia, {HMI_APPHAGAKI_ADDRESS, HMI_APPHAGAKI_CONTENTS});
    SetList(purpose.availableHagakiAutoDuplexMode, {HMI_HAGAKIDUPLEX_NORMAL});
    SetList(purpose.availableprintquality_rgb, HMI_PRINTQUALITY_3,
            {HMI_PRINTQUALITY_1, HMI_PRINTQUALITY_3, HMI_PRINTQUALITY_5});
    SetList(purpose.availableprintquality_cmyk_4DLUT, HMI_PRINTQUALITY_2, {HMI_PRINTQUALITY_2});
    SetList(purpose.availableprintquality_cmyk_1DLUT, HMI_PRINTQUALITY_INVALID, {HMI_PRINTQUALITY_ALL});
    // Read from the index-variant quality element, which has no text.
    SetList(purpose.printquality_index, HMI_PRINTQUALITY_INVALID, {});
    ASSERT_TRUE(HasRecord(photo, purpose, "print-purpose"));

    for (DWORD variant = 0; variant < 4; ++variant) ASSERT_EQ(photo->Qualities(variant)->size(), 1u) << variant;
    EXPECT_EQ(photo->Qualities(4), nullptr);
    auto rgb = QualityOf(HMI_PRINTQUALITY_3, HMI_3POS_NORMAL);
    rgb.operationflag = 0xFF;
    Put(rgb.output_icc, kIcc64);
    rgb.bit = -16;
    Put(rgb.app_filter_id, HMI_W("ABCDEFGH"));
    SetList(rgb.availableresolution, 600, {300, 600});
    SetList(rgb.availableclearcoat, {HMI_CLEARCOAT_NONE, HMI_CLEARCOAT_AUTO});
    EXPECT_TRUE(HasRecord(photo->QualitiesRGB().Find(HMI_PRINTQUALITY_3), rgb, "RGB quality"));
    EXPECT_TRUE(HasRecord(photo->QualitiesCMYK4D().Find(HMI_PRINTQUALITY_ALL),
                          QualityOf(HMI_PRINTQUALITY_ALL, HMI_3POS_ALL), "4D-LUT quality"));
    EXPECT_TRUE(HasRecord(photo->QualitiesCMYK1D().Find(HMI_PRINTQUALITY_1),
                          QualityOf(HMI_PRINTQUALITY_1, HMI_3POS_FINE), "1D-LUT quality"));
    EXPECT_TRUE(HasRecord(photo->QualitiesINDEX().Find(HMI_PRINTQUALITY_5),
                          QualityOf(HMI_PRINTQUALITY_5, HMI_3POS_DRAFT), "index quality"));
}

}  // namespace mediatest

#endif
