#include "support/full_medium.h"

namespace hmitest {

const WCHAR* const kIcc64 = HMI_W("profile-0123456789abcdef0123456789abcdef0123456789abcdef-64chars");

WString FullMediumBody() {
    return WString(HMI_W(R"(<operationflag>0x1F</operationflag><format_version>1.00</format_version>
  <medium_category>03</medium_category><printarea>3,5,0,7</printarea><locale>WW,JA</locale>
  <bk_ink_type>PBk</bk_ink_type><unsuported_papersize>iso_a4_210x297mm,na_letter_8.5x11in</unsuported_papersize>
  <availableinputbinid default="asf">AUTO,asf</availableinputbinid>
  <availableprintcolormode default="monochrome">color,monochrome</availableprintcolormode>
  <printcolormode type="color"><availableborderlessprint default="OFF">OFF,ON</availableborderlessprint>
  <borderlessprint type="ON"><availableprint_purpose default="photo">photo,cad</availableprint_purpose>
  <print_purpose type="photo"><operationflag>A0</operationflag>
  <availableduplexprint default="OFF">OFF,auto</availableduplexprint>
  <availablecartridge default="auto">auto,bkcolor,photocolor</availablecartridge>
  <availableAppPostcardMedia>contents,address</availableAppPostcardMedia>
  <availableHagakiAutoDuplexMode>normal</availableHagakiAutoDuplexMode>
  <availableprintquality_rgb default="3">1,3,5</availableprintquality_rgb>
  <availableprintquality_cmyk_4DLUT default="2">2,4</availableprintquality_cmyk_4DLUT>
  <availableprintquality_cmyk_1DLUT>all</availableprintquality_cmyk_1DLUT>
  <printquality_rgb type="3" threeposition="normal"><operationflag>ff</operationflag><output_icc>)")) + kIcc64 +
           HMI_W(R"(</output_icc><bit>-16</bit><app_filter_id>ABCDEFGH</app_filter_id>
  <availableresolution default="600">300,600</availableresolution><availableclearcoat>none,auto</availableclearcoat>
  </printquality_rgb><printquality_cmyk_4DLUT type="all" threeposition="all"/>
  <printquality_cmyk_1DLUT type="1" threeposition="fine"/>
  <printquality_index type="5" threeposition="draft">4,5</printquality_index>
  <printquality_index type="2" threeposition="fine">1</printquality_index>
  </print_purpose></borderlessprint></printcolormode>)");
}

bool WriteMedium(TestPrinter& printer, DWORD mediaNumber, const WString& body) {
    return WriteMediaDocument(printer, mediaNumber, HMI_W("<media><medium>") + body + HMI_W("</medium></media>"), 512);
}

_tagHMIMediaInfo FullMediumInfo(const WCHAR* id) {
    auto medium = Zeroed<_tagHMIMediaInfo>();
    Put(medium.id, id);
    medium.operationflag = 0x1F;
    Put(medium.format_version, HMI_W("1.00"));
    medium.medium_category = HMI_MEDIACATEGORY_03;
    SetList(medium.unsuported_papersize, {HMI_PAPERSIZE_ISO_A4, HMI_PAPERSIZE_NA_LETTER});
    medium.printarea = {1, 0, {3, 5, 7, 0}};
    SetList(medium.locale, {HMI_LOCALE_WW, HMI_LOCALE_JA});
    SetList(medium.bk_ink_type, {HMI_BKINK_PBK});
    SetList(medium.availableinputbinid, {HMI_INPUTBIN_AUTO, HMI_INPUTBIN_ASF}).defaultValue = HMI_INPUTBIN_ASF;
    SetList(medium.availableprintcolormode, {HMI_COLORMODE_COLOR, HMI_COLORMODE_MONOCHROME}).defaultValue =
        HMI_COLORMODE_MONOCHROME;
    return medium;
}

_tagHMIAvailableBorderless FullColorBorderless() {
    auto list = Zeroed<_tagHMIAvailableBorderless>();
    SetList(list, {HMI_OFF, HMI_ON}).defaultValue = HMI_OFF;
    return list;
}

_tagHMIAvailablePrintPurpose FullOnPurposes() {
    auto list = Zeroed<_tagHMIAvailablePrintPurpose>();
    SetList(list, {HMI_PRINTPURPOSE_PHOTO, HMI_PRINTPURPOSE_CAD}).defaultValue = HMI_PRINTPURPOSE_PHOTO;
    return list;
}

_tagHMIPrintPurposeInfo FullPhotoPurpose() {
    auto purpose = Zeroed<_tagHMIPrintPurposeInfo>(HMI_PRINTPURPOSE_PHOTO);
    purpose.operationflag = 0xA0;
    SetList(purpose.availableduplexprint, {HMI_DUPLEX_OFF, HMI_DUPLEX_AUTO}).defaultValue = HMI_DUPLEX_OFF;
    SetList(purpose.availablecartridge, {HMI_CARTRIDGE_AUTO, HMI_CARTRIDGE_BKCOLOR, HMI_CARTRIDGE_PHOTOCOLOR})
        .defaultValue = HMI_CARTRIDGE_AUTO;
    SetList(purpose.availableAppPostcardMedia, {HMI_APPHAGAKI_CONTENTS, HMI_APPHAGAKI_ADDRESS});
    SetList(purpose.availableHagakiAutoDuplexMode, {HMI_HAGAKIDUPLEX_NORMAL});
    SetList(purpose.availableprintquality_rgb, {HMI_PRINTQUALITY_1, HMI_PRINTQUALITY_3, HMI_PRINTQUALITY_5})
        .defaultValue = HMI_PRINTQUALITY_3;
    SetList(purpose.availableprintquality_cmyk_4DLUT, {HMI_PRINTQUALITY_2, HMI_PRINTQUALITY_4}).defaultValue =
        HMI_PRINTQUALITY_2;
    SetList(purpose.availableprintquality_cmyk_1DLUT, {HMI_PRINTQUALITY_ALL}).defaultValue = HMI_PRINTQUALITY_INVALID;
    // Read from the text of the first index-variant quality element.
    SetList(purpose.printquality_index, {HMI_PRINTQUALITY_4, HMI_PRINTQUALITY_5}).defaultValue =
        HMI_PRINTQUALITY_INVALID;
    return purpose;
}

_tagHMIPrintQualityInfo FullRgbQuality() {
    auto rgb = Zeroed<_tagHMIPrintQualityInfo>(HMI_PRINTQUALITY_3, HMI_3POS_NORMAL);
    rgb.operationflag = 0xFF;
    Put(rgb.output_icc, kIcc64);
    rgb.bit = -16;
    Put(rgb.app_filter_id, HMI_W("ABCDEFGH"));
    SetList(rgb.availableresolution, {300, 600}).defaultValue = 600;
    SetList(rgb.availableclearcoat, {HMI_CLEARCOAT_NONE, HMI_CLEARCOAT_AUTO});
    return rgb;
}

}  // namespace hmitest
