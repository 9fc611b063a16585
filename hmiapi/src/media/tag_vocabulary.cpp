#include "media/tag_vocabulary.h"

namespace {

template <typename E, size_t N>
constexpr HMITagIDConverter<E> TableConverter(const HMITagIDEntry (&table)[N], E invalidValue) {
    return HMITagIDConverter<E>(table, N, invalidValue);
}

constexpr HMITagIDEntry kOnOff[] = {{HMI_W("all"), 3}, {HMI_W("OFF"), 0}, {HMI_W("ON"), 1}};

constexpr HMITagIDEntry kColorMode[] = {{HMI_W("all"), 3}, {HMI_W("color"), 0}, {HMI_W("monochrome"), 1}};

constexpr HMITagIDEntry kPrintPurpose[] = {
    {HMI_W("all"), 4}, {HMI_W("photo"), 0}, {HMI_W("proof"), 1}, {HMI_W("cad"), 2}};

constexpr HMITagIDEntry kPrintQuality[] = {{HMI_W("all"), 6}, {HMI_W("2"), 1}, {HMI_W("3"), 2},
                                           {HMI_W("4"), 3},   {HMI_W("1"), 0}, {HMI_W("5"), 4}};

constexpr HMITagIDEntry kPrintQuality3Pos[] = {
    {HMI_W("all"), 4}, {HMI_W("normal"), 1}, {HMI_W("fine"), 0}, {HMI_W("draft"), 2}};

// "all" is an ordinary member here.
constexpr HMITagIDEntry kClearCoat[] = {
    {HMI_W("none"), 0}, {HMI_W("auto"), 1}, {HMI_W("all"), 2}, {HMI_W("custom"), 3}};

constexpr HMITagIDEntry kDuplexPrint[] = {
    {HMI_W("all"), 4}, {HMI_W("OFF"), 0}, {HMI_W("manual"), 1}, {HMI_W("auto"), 2}};

constexpr HMITagIDEntry kCartridge[] = {{HMI_W("all"), 8},     {HMI_W("color"), 0},      {HMI_W("bk"), 1},
                                        {HMI_W("photo"), 2},   {HMI_W("bkcolor"), 3},    {HMI_W("photocolor"), 5},
                                        {HMI_W("auto"), 6}};

constexpr HMITagIDEntry kAppHagakiMedia[] = {{HMI_W("none"), 0}, {HMI_W("address"), 1}, {HMI_W("contents"), 2}};

constexpr HMITagIDEntry kHagakiAutoDuplexMode[] = {
    {HMI_W("normal"), 0}, {HMI_W("address"), 1}, {HMI_W("contents"), 2}};

constexpr HMITagIDEntry kMediaCategory[] = {
    {HMI_W("01"), 0}, {HMI_W("02"), 1}, {HMI_W("03"), 2},  {HMI_W("04"), 3},  {HMI_W("05"), 4},
    {HMI_W("06"), 5}, {HMI_W("07"), 6}, {HMI_W("08"), 7},  {HMI_W("09"), 8},  {HMI_W("10"), 9},
    {HMI_W("11"), 10}, {HMI_W("12"), 11}, {HMI_W("13"), 12}, {HMI_W("14"), 13}};

constexpr HMITagIDEntry kPaperSize[] = {
    {HMI_W("iso_a5_148x210mm"), 0},        {HMI_W("iso_a4_210x297mm"), 1},
    {HMI_W("iso_a3_297x420mm"), 2},        {HMI_W("iso_a2_420x594mm"), 3},
    {HMI_W("jis_b5_182x257mm"), 4},        {HMI_W("jis_b4_257x364mm"), 5},
    {HMI_W("iso_b3_353x500mm"), 6},        {HMI_W("na_letter_8.5x11in"), 7},
    {HMI_W("na_legal_8.5x14in"), 8},       {HMI_W("na_ledger_11x17in"), 9},
    {HMI_W("jpn_hagaki_100x148mm"), 10},   {HMI_W("custom_tolva_200x148mm"), 11},
    {HMI_W("custom_tolva_329x483mm"), 12}, {HMI_W("custom_tolva_89x127mm"), 13},
    {HMI_W("custom_tolva_127x178mm"), 14}, {HMI_W("na_index-4x6_4x6in"), 15},
    {HMI_W("custom_tolva_4x8in"), 16},     {HMI_W("na_5x7_5x7in"), 17},
    {HMI_W("custom_tolva_17x22in"), 18},   {HMI_W("custom_tolva_101x180mm"), 19},
    {HMI_W("custom_tolva_55x91mm"), 20},   {HMI_W("custom_tolva_54x86mm"), 21},
    {HMI_W("custom_tolva_98x190mm"), 22},  {HMI_W("custom_tolva_203x254mm"), 23},
    {HMI_W("custom_tolva_254x304mm"), 24}, {HMI_W("custom_tolva_355x431mm"), 25}};

constexpr HMITagIDEntry kLocale[] = {{HMI_W("WW"), 0}, {HMI_W("JA"), 1}, {HMI_W("US"), 2}, {HMI_W("EU"), 3}};

constexpr HMITagIDEntry kBkInkType[] = {{HMI_W("PBk"), 0}, {HMI_W("MBk"), 1}};

constexpr HMITagIDEntry kInputBin[] = {{HMI_W("all"), 12},   {HMI_W("AUTO"), 0},   {HMI_W("MANUAL03"), 1},
                                       {HMI_W("asf"), 2},    {HMI_W("manual"), 3}, {HMI_W("DISCTRAY"), 10}};

constexpr HMITagIDEntry kFinisher[] = {{HMI_W("all"), 3}, {HMI_W("autocut"), 0}, {HMI_W("banner"), 1}};

}  // namespace

constexpr HMITagIDConverter<_tagHMI_ONOFF> HMIOnOffConverter = TableConverter(kOnOff, HMI_ONOFF_INVALID);
constexpr HMITagIDConverter<tagHMI_COLORMODE> HMIColorModeConverter =
    TableConverter(kColorMode, HMI_COLORMODE_INVALID);
constexpr HMITagIDConverter<tagHMI_PRINTPURPOSE> HMIPrintPurposeConverter =
    TableConverter(kPrintPurpose, HMI_PRINTPURPOSE_INVALID);
constexpr HMITagIDConverter<tagHMI_PRINTQUALITY> HMIPrintQualityConverter =
    TableConverter(kPrintQuality, HMI_PRINTQUALITY_INVALID);
constexpr HMITagIDConverter<tagHMI_PRINTQUALITY3POS> HMIPrintQuality3PosConverter =
    TableConverter(kPrintQuality3Pos, HMI_3POS_INVALID);
constexpr HMITagIDConverter<tagHMI_CLEARCOAT> HMIClearCoatConverter =
    TableConverter(kClearCoat, HMI_CLEARCOAT_INVALID);
constexpr HMITagIDConverter<tagHMI_DUPLEXPRINT> HMIDuplexPrintConverter =
    TableConverter(kDuplexPrint, HMI_DUPLEX_INVALID);
constexpr HMITagIDConverter<tagHMI_CARTRIDGE> HMICartridgeConverter =
    TableConverter(kCartridge, HMI_CARTRIDGE_INVALID);
constexpr HMITagIDConverter<tagHMI_APPHAGAKIMEDIA> HMIAppHagakiMediaConverter =
    TableConverter(kAppHagakiMedia, HMI_APPHAGAKI_INVALID);
constexpr HMITagIDConverter<tagHMI_HAGAKIAUTODUPLEXMODE> HMIHagakiAutoDuplexModeConverter =
    TableConverter(kHagakiAutoDuplexMode, HMI_HAGAKIDUPLEX_INVALID);
constexpr HMITagIDConverter<tagHMI_MEDIACATEGORY> HMIMediaCategoryConverter =
    TableConverter(kMediaCategory, HMI_MEDIACATEGORY_INVALID);
constexpr HMITagIDConverter<_tagHMI_PAPERSIZE> HMIPaperSizeConverter =
    TableConverter(kPaperSize, HMI_PAPERSIZE_INVALID);
constexpr HMITagIDConverter<_tagHMI_LOCALE> HMILocaleConverter = TableConverter(kLocale, HMI_LOCALE_INVALID);
constexpr HMITagIDConverter<_tagHMI_BKINKTYPE> HMIBkInkTypeConverter =
    TableConverter(kBkInkType, HMI_BKINK_INVALID);
constexpr HMITagIDConverter<_tagHMI_INPUTBIN> HMIInputBinConverter = TableConverter(kInputBin, HMI_INPUTBIN_INVALID);
constexpr HMITagIDConverter<_tagHMI_FINISHER> HMIFinisherConverter = TableConverter(kFinisher, HMI_FINISHER_INVALID);
