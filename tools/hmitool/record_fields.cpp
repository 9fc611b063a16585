#include "record_fields.h"

#include <cinttypes>
#include <cstdio>

namespace hmitool {
namespace {

std::string Hex(uint64_t value) {
    char text[24];
    std::snprintf(text, sizeof text, "0x%" PRIX64, value);
    return text;
}

std::string PrintArea(const _tagHMIPrintArea& area) {
    if (!area.constrained) return "unconstrained";
    std::string text;
    for (uint64_t v : area.values) text += (text.empty() ? "" : ", ") + std::to_string(v);
    return text;
}

}  // namespace

const char* const kQualityVariants[4] = {"printquality_rgb", "printquality_cmyk_4DLUT", "printquality_cmyk_1DLUT",
                                         "printquality_index"};

void WriteMediaInfoFields(OutlineWriter& out, const _tagHMIMediaInfo& info) {
    out.Scalar("operationflag", Hex(info.operationflag));
    out.Scalar("format_version", Narrow(info.format_version, 5));
    out.Scalar("medium_category", Word(HMIMediaCategoryConverter, info.medium_category));
    WriteList(out, "unsuported_papersize", HMIPaperSizeConverter, info.unsuported_papersize);
    out.Scalar("printarea", PrintArea(info.printarea));
    WriteList(out, "locale", HMILocaleConverter, info.locale);
    WriteList(out, "bk_ink_type", HMIBkInkTypeConverter, info.bk_ink_type);
    WriteList(out, "availableinputbinid", HMIInputBinConverter, info.availableinputbinid);
    WriteList(out, "availableprintcolormode", HMIColorModeConverter, info.availableprintcolormode);
}

void WritePrintPurposeFields(OutlineWriter& out, const _tagHMIPrintPurposeInfo& info) {
    out.Scalar("operationflag", Hex(info.operationflag));
    WriteList(out, "availableduplexprint", HMIDuplexPrintConverter, info.availableduplexprint);
    WriteList(out, "availablecartridge", HMICartridgeConverter, info.availablecartridge);
    WriteList(out, "availableAppPostcardMedia", HMIAppHagakiMediaConverter, info.availableAppPostcardMedia);
    WriteList(out, "availableHagakiAutoDuplexMode", HMIHagakiAutoDuplexModeConverter,
              info.availableHagakiAutoDuplexMode);
    WriteList(out, "availableprintquality_rgb", HMIPrintQualityConverter, info.availableprintquality_rgb);
    WriteList(out, "availableprintquality_cmyk_4DLUT", HMIPrintQualityConverter,
              info.availableprintquality_cmyk_4DLUT);
    WriteList(out, "availableprintquality_cmyk_1DLUT", HMIPrintQualityConverter,
              info.availableprintquality_cmyk_1DLUT);
    WriteList(out, "printquality_index", HMIPrintQualityConverter, info.printquality_index);
}

void WritePrintQualityFields(OutlineWriter& out, const _tagHMIPrintQualityInfo& info) {
    out.Scalar("threeposition", Word(HMIPrintQuality3PosConverter, info.threeposition));
    out.Scalar("operationflag", Hex(info.operationflag));
    out.Scalar("output_icc", Narrow(info.output_icc, 65));
    out.Scalar("bit", std::to_string(info.bit));
    out.Scalar("app_filter_id", Narrow(info.app_filter_id, 9));
    std::vector<std::string> resolutions;
    for (uint64_t i = 0; i < info.availableresolution.count && i < 8; ++i) {
        resolutions.push_back(std::to_string(info.availableresolution.values[i]));
    }
    out.ListWithDefault("availableresolution", std::to_string(info.availableresolution.defaultValue), resolutions);
    WriteList(out, "availableclearcoat", HMIClearCoatConverter, info.availableclearcoat);
}

}  // namespace hmitool
