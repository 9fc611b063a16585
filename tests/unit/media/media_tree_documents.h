// A medium that uses every field of every level, and the records it must produce.
#ifndef HMI_TEST_MEDIA_TREE_DOCUMENTS_H
#define HMI_TEST_MEDIA_TREE_DOCUMENTS_H

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <string>

#include "media/media_detail.h"
#include "media_test_support.h"

namespace mediatest {

// 64 characters: fills output_icc up to its terminator.
inline const WCHAR* kIcc64 = HMI_W("profile-0123456789abcdef0123456789abcdef0123456789abcdef-64chars");

inline WString FullMediumBody() {
    return WString(HMI_W(R"(
  <operationflag>0x1F</operationflag>
  <format_version>1.00</format_version>
  <medium_category>03</medium_category>
  <unsuported_papersize>iso_a4_210x297mm,na_letter_8.5x11in</unsuported_papersize>
  <printarea>3,5,0,7</printarea>
  <locale>WW,JA</locale>
  <bk_ink_type>PBk</bk_ink_type>
  <availableinputbinid default="asf">AUTO,asf</availableinputbinid>
  <availableprintcolormode default="monochrome">color,monochrome</availableprintcolormode>
  <printcolormode type="color">
    <availableborderlessprint default="OFF">OFF,ON</availableborderlessprint>
    <borderlessprint type="ON">
      <availableprint_purpose default="photo">photo,cad</availableprint_purpose>
      <print_purpose type="photo">
        <operationflag>A0</operationflag>
        <availableduplexprint default="OFF">OFF,auto</availableduplexprint>
        <availablecartridge default="auto">auto,bkcolor,photocolor</availablecartridge>
        <availableAppPostcardMedia>address,contents</availableAppPostcardMedia>
        <availableHagakiAutoDuplexMode>normal</availableHagakiAutoDuplexMode>
        <availableprintquality_rgb default="3">1,3,5</availableprintquality_rgb>
        <availableprintquality_cmyk_4DLUT default="2">2</availableprintquality_cmyk_4DLUT>
        <availableprintquality_cmyk_1DLUT>all</availableprintquality_cmyk_1DLUT>
        <printquality_rgb type="3" threeposition="normal">
          <operationflag>ff</operationflag>
          <output_icc>)")) +
           kIcc64 + HMI_W(R"(</output_icc>
          <bit>-16</bit>
          <app_filter_id>ABCDEFGH</app_filter_id>
          <availableresolution default="600">300,600</availableresolution>
          <availableclearcoat>none,auto</availableclearcoat>
        </printquality_rgb>
        <printquality_cmyk_4DLUT type="all" threeposition="all"/>
        <printquality_cmyk_1DLUT type="1" threeposition="fine"/>
        <printquality_index type="5" threeposition="draft"/>
      </print_purpose>
    </borderlessprint>
  </printcolormode>
  <printcolormode type="all"/>
)");
}

template <size_t N>
void Put(WCHAR (&field)[N], const WCHAR* text) {
    std::char_traits<WCHAR>::copy(field, text, std::char_traits<WCHAR>::length(text) + 1);
}

// Field by field: assigning a whole list could carry indeterminate padding into a memcmp.
template <typename E, size_t N>
void SetList(HMITagListWithDefault<E, N>& list, E defaultValue, std::initializer_list<E> values) {
    list.defaultValue = defaultValue;
    list.count = values.size();
    size_t i = 0;
    for (E value : values) list.values[i++] = value;
}

template <typename E, size_t N>
void SetList(HMITagList<E, N>& list, std::initializer_list<E> values) {
    list.count = values.size();
    size_t i = 0;
    for (E value : values) list.values[i++] = value;
}

inline _tagHMIMediaInfo ExpectedMediumInfo(const WCHAR* id) {
    _tagHMIMediaInfo e;
    std::memset(&e, 0, sizeof e);
    Put(e.id, id);
    e.operationflag = 0x1F;
    Put(e.format_version, HMI_W("1.00"));
    e.medium_category = HMI_MEDIACATEGORY_03;
    e.unsuported_papersize.count = 2;
    e.unsuported_papersize.values[0] = HMI_PAPERSIZE_ISO_A4;
    e.unsuported_papersize.values[1] = HMI_PAPERSIZE_NA_LETTER;
    e.printarea.constrained = 1;
    e.printarea.values[0] = 3;
    e.printarea.values[1] = 5;
    e.printarea.values[2] = 7;
    e.locale.count = 2;
    e.locale.values[1] = HMI_LOCALE_JA;
    e.bk_ink_type.count = 1;
    e.availableinputbinid.defaultValue = HMI_INPUTBIN_ASF;
    e.availableinputbinid.count = 2;
    e.availableinputbinid.values[1] = HMI_INPUTBIN_ASF;
    e.availableprintcolormode.defaultValue = HMI_COLORMODE_MONOCHROME;
    e.availableprintcolormode.count = 2;
    e.availableprintcolormode.values[1] = HMI_COLORMODE_MONOCHROME;
    return e;
}

inline _tagHMIPrintPurposeInfo ExpectedPhotoInfo() {
    _tagHMIPrintPurposeInfo e;
    std::memset(&e, 0, sizeof e);
    e.type = HMI_PRINTPURPOSE_PHOTO;
    e.operationflag = 0xA0;
    SetList(e.availableduplexprint, HMI_DUPLEX_OFF, {HMI_DUPLEX_OFF, HMI_DUPLEX_AUTO});
    SetList(e.availablecartridge, HMI_CARTRIDGE_AUTO,
            {HMI_CARTRIDGE_AUTO, HMI_CARTRIDGE_BKCOLOR, HMI_CARTRIDGE_PHOTOCOLOR});
    SetList(e.availableAppPostcardMedia, {HMI_APPHAGAKI_ADDRESS, HMI_APPHAGAKI_CONTENTS});
    SetList(e.availableHagakiAutoDuplexMode, {HMI_HAGAKIDUPLEX_NORMAL});
    SetList(e.availableprintquality_rgb, HMI_PRINTQUALITY_3,
            {HMI_PRINTQUALITY_1, HMI_PRINTQUALITY_3, HMI_PRINTQUALITY_5});
    SetList(e.availableprintquality_cmyk_4DLUT, HMI_PRINTQUALITY_2, {HMI_PRINTQUALITY_2});
    SetList(e.availableprintquality_cmyk_1DLUT, HMI_PRINTQUALITY_INVALID, {HMI_PRINTQUALITY_ALL});
    // Read from the index-variant quality element, which has no text.
    SetList(e.printquality_index, HMI_PRINTQUALITY_INVALID, {});
    return e;
}

inline _tagHMIPrintQualityInfo ExpectedRgbQuality() {
    _tagHMIPrintQualityInfo e;
    std::memset(&e, 0, sizeof e);
    e.type = HMI_PRINTQUALITY_3;
    e.threeposition = HMI_3POS_NORMAL;
    e.operationflag = 0xFF;
    Put(e.output_icc, kIcc64);
    e.bit = -16;
    Put(e.app_filter_id, HMI_W("ABCDEFGH"));
    e.availableresolution.defaultValue = 600;
    e.availableresolution.count = 2;
    e.availableresolution.values[0] = 300;
    e.availableresolution.values[1] = 600;
    e.availableclearcoat.count = 2;
    e.availableclearcoat.values[1] = HMI_CLEARCOAT_AUTO;
    return e;
}

inline _tagHMIPrintQualityInfo QualityOf(tagHMI_PRINTQUALITY type, tagHMI_PRINTQUALITY3POS threeposition) {
    _tagHMIPrintQualityInfo e;
    std::memset(&e, 0, sizeof e);
    e.type = type;
    e.threeposition = threeposition;
    return e;
}

template <typename Record>
void ExpectSameBytes(const Record& actual, const Record& expected, const char* what) {
    EXPECT_EQ(std::memcmp(&actual, &expected, sizeof(Record)), 0) << what << " differs";
}

// Every record and dictionary of the tree of FullMediumBody requested as id.
inline void ExpectFullTree(const HMIXMLMediaDetail& detail, const WCHAR* id) {
    ExpectSameBytes(detail.Info(), ExpectedMediumInfo(id), "medium record");
    ASSERT_EQ(detail.ColorModes().size(), 2u);
    const HMIXMLMediaColorMode* color = detail.ColorModes().Find(HMI_COLORMODE_COLOR);
    ASSERT_NE(color, nullptr);
    ASSERT_NE(detail.ColorModes().Find(HMI_COLORMODE_ALL), nullptr);
    EXPECT_EQ(detail.ColorModes().Find(HMI_COLORMODE_MONOCHROME), nullptr);

    HMIColorModeRecord colorRecord;
    std::memset(&colorRecord, 0, sizeof colorRecord);
    colorRecord.type = HMI_COLORMODE_COLOR;
    SetList(colorRecord.availableborderlessprint, HMI_OFF, {HMI_OFF, HMI_ON});
    ExpectSameBytes(color->Info(), colorRecord, "colour-mode record");

    ASSERT_EQ(color->BorderlessModes().size(), 1u);
    const HMIXMLMediaBorderlessMode* on = color->BorderlessModes().Find(HMI_ON);
    ASSERT_NE(on, nullptr);
    HMIBorderlessModeRecord onRecord;
    std::memset(&onRecord, 0, sizeof onRecord);
    onRecord.type = HMI_ON;
    SetList(onRecord.availableprint_purpose, HMI_PRINTPURPOSE_PHOTO, {HMI_PRINTPURPOSE_PHOTO, HMI_PRINTPURPOSE_CAD});
    ExpectSameBytes(on->Info(), onRecord, "borderless record");

    ASSERT_EQ(on->PrintPurposes().size(), 1u);
    const HMIXMLMediaPrintPurpose* photo = on->PrintPurposes().Find(HMI_PRINTPURPOSE_PHOTO);
    ASSERT_NE(photo, nullptr);
    ExpectSameBytes(photo->Info(), ExpectedPhotoInfo(), "print-purpose record");

    for (DWORD variant = 0; variant < 4; ++variant) ASSERT_EQ(photo->Qualities(variant)->size(), 1u) << variant;
    EXPECT_EQ(photo->Qualities(4), nullptr);
    const HMIXMLMediaPrintQuality* rgb = photo->QualitiesRGB().Find(HMI_PRINTQUALITY_3);
    ASSERT_NE(rgb, nullptr);
    ExpectSameBytes(rgb->Info(), ExpectedRgbQuality(), "RGB quality record");
    const HMIXMLMediaPrintQuality* all4D = photo->QualitiesCMYK4D().Find(HMI_PRINTQUALITY_ALL);
    ASSERT_NE(all4D, nullptr);
    ExpectSameBytes(all4D->Info(), QualityOf(HMI_PRINTQUALITY_ALL, HMI_3POS_ALL), "4D-LUT quality record");
    const HMIXMLMediaPrintQuality* one1D = photo->QualitiesCMYK1D().Find(HMI_PRINTQUALITY_1);
    ASSERT_NE(one1D, nullptr);
    ExpectSameBytes(one1D->Info(), QualityOf(HMI_PRINTQUALITY_1, HMI_3POS_FINE), "1D-LUT quality record");
    const HMIXMLMediaPrintQuality* five = photo->QualitiesINDEX().Find(HMI_PRINTQUALITY_5);
    ASSERT_NE(five, nullptr);
    ExpectSameBytes(five->Info(), QualityOf(HMI_PRINTQUALITY_5, HMI_3POS_DRAFT), "index quality record");
}

}  // namespace mediatest

#endif
