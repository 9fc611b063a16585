// hmitool tree FILE: the option cascade of the medium in a media-information file, level by level,
// with every record's fields in words.
#include <cinttypes>
#include <cstdio>
#include <string>
#include <vector>

#include "command.h"
#include "media/tag_vocabulary.h"
#include "media_file.h"
#include "outline_writer.h"
#include "text.h"

namespace hmitool {
namespace {

// The keyword that names value, read backwards from the library's own table.
template <typename E>
std::string Word(const HMITagIDConverter<E>& converter, E value) {
    if (const WCHAR* keyword = converter.KeywordOf(value)) return Narrow(keyword);
    if (value == converter.InvalidValue()) return "(unknown keyword)";
    return "#" + std::to_string(static_cast<uint32_t>(value));
}

template <typename E, size_t N>
std::vector<std::string> Words(const HMITagIDConverter<E>& converter, const E (&values)[N], uint64_t count) {
    std::vector<std::string> words;
    for (uint64_t i = 0; i < count && i < N; ++i) words.push_back(Word(converter, values[i]));
    return words;
}

template <typename E, size_t N>
void WriteList(OutlineWriter& out, const char* field, const HMITagIDConverter<E>& converter,
               const HMITagList<E, N>& list) {
    out.List(field, Words(converter, list.values, list.count));
}

template <typename E, size_t N>
void WriteList(OutlineWriter& out, const char* field, const HMITagIDConverter<E>& converter,
               const HMITagListWithDefault<E, N>& list) {
    out.ListWithDefault(field, Word(converter, list.defaultValue), Words(converter, list.values, list.count));
}

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

void WriteQuality(OutlineWriter& out, const char* kind, const HMIXMLMediaPrintQuality& quality) {
    const _tagHMIPrintQualityInfo& info = quality.Info();
    out.Open(kind, Word(HMIPrintQualityConverter, info.type), info.type == HMI_PRINTQUALITY_ALL);
    out.Scalar("threeposition", Word(HMIPrintQuality3PosConverter, info.threeposition));
    out.Scalar("operationflag", Hex(info.operationflag));
    out.Scalar("output_icc", Narrow(info.output_icc));
    out.Scalar("bit", std::to_string(info.bit));
    out.Scalar("app_filter_id", Narrow(info.app_filter_id));
    std::vector<std::string> resolutions;
    for (uint64_t i = 0; i < info.availableresolution.count; ++i) {
        resolutions.push_back(std::to_string(info.availableresolution.values[i]));
    }
    out.ListWithDefault("availableresolution", std::to_string(info.availableresolution.defaultValue), resolutions);
    WriteList(out, "availableclearcoat", HMIClearCoatConverter, info.availableclearcoat);
    out.Close();
}

void WritePurpose(OutlineWriter& out, const HMIXMLMediaPrintPurpose& purpose) {
    const _tagHMIPrintPurposeInfo& info = purpose.Info();
    out.Open("print_purpose", Word(HMIPrintPurposeConverter, info.type), info.type == HMI_PRINTPURPOSE_ALL);
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
    static const char* const kVariants[] = {"printquality_rgb", "printquality_cmyk_4DLUT", "printquality_cmyk_1DLUT",
                                            "printquality_index"};
    for (DWORD variant = 0; variant < 4; ++variant) {
        for (const auto& entry : *purpose.Qualities(variant)) WriteQuality(out, kVariants[variant], *entry.second);
    }
    out.Close();
}

void WriteBorderless(OutlineWriter& out, const HMIXMLMediaBorderlessMode& mode) {
    const HMIBorderlessModeRecord& info = mode.Info();
    out.Open("borderlessprint", Word(HMIOnOffConverter, info.type), info.type == HMI_ONOFF_ALL);
    WriteList(out, "availableprint_purpose", HMIPrintPurposeConverter, info.availableprint_purpose);
    for (const auto& entry : mode.PrintPurposes()) WritePurpose(out, *entry.second);
    out.Close();
}

void WriteColorMode(OutlineWriter& out, const HMIXMLMediaColorMode& mode) {
    const HMIColorModeRecord& info = mode.Info();
    out.Open("printcolormode", Word(HMIColorModeConverter, info.type), info.type == HMI_COLORMODE_ALL);
    WriteList(out, "availableborderlessprint", HMIOnOffConverter, info.availableborderlessprint);
    for (const auto& entry : mode.BorderlessModes()) WriteBorderless(out, *entry.second);
    out.Close();
}

void WriteMedium(OutlineWriter& out, const HMIXMLMediaDetail& detail) {
    const _tagHMIMediaInfo& info = detail.Info();
    out.Open("medium", Narrow(info.id), false);
    out.Scalar("operationflag", Hex(info.operationflag));
    out.Scalar("format_version", Narrow(info.format_version));
    out.Scalar("medium_category", Word(HMIMediaCategoryConverter, info.medium_category));
    WriteList(out, "unsuported_papersize", HMIPaperSizeConverter, info.unsuported_papersize);
    out.Scalar("printarea", PrintArea(info.printarea));
    WriteList(out, "locale", HMILocaleConverter, info.locale);
    WriteList(out, "bk_ink_type", HMIBkInkTypeConverter, info.bk_ink_type);
    WriteList(out, "availableinputbinid", HMIInputBinConverter, info.availableinputbinid);
    WriteList(out, "availableprintcolormode", HMIColorModeConverter, info.availableprintcolormode);
    for (const auto& entry : detail.ColorModes()) WriteColorMode(out, *entry.second);
    out.Close();
}

int RunTree(const std::vector<std::string>& args, const Options& options) {
    MediumFile file;
    switch (file.Load(args[0])) {
        case MediumFile::Outcome::kUnreadable:
            std::fprintf(stderr, "hmitool: %s\n", MediumFile::UnreadableMessage(args[0]).c_str());
            return kUnreadable;
        case MediumFile::Outcome::kRejected:
            std::fprintf(stderr, "hmitool: the medium of %s is rejected (hmitool check %s says why)\n",
                         args[0].c_str(), args[0].c_str());
            return kRejected;
        case MediumFile::Outcome::kBuilt:
            break;
    }
    OutlineWriter out(options.json);
    WriteMedium(out, *file.detail());
    std::fputs(out.str().c_str(), stdout);
    return kOk;
}

}  // namespace

HMITOOL_COMMAND("tree", "FILE", "the option cascade of the medium in a media-information file", RunTree);

}  // namespace hmitool
