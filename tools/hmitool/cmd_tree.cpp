// hmitool tree FILE: the option cascade of the medium in a media-information file, level by level,
// with every record's fields in words.
#include <cstdio>
#include <string>
#include <vector>

#include "command.h"
#include "media_file.h"
#include "record_fields.h"

namespace hmitool {
namespace {

void WriteQuality(OutlineWriter& out, const char* kind, const HMIXMLMediaPrintQuality& quality) {
    const _tagHMIPrintQualityInfo& info = quality.Info();
    out.Open(kind, Word(HMIPrintQualityConverter, info.type), info.type == HMI_PRINTQUALITY_ALL);
    WritePrintQualityFields(out, info);
    out.Close();
}

void WritePurpose(OutlineWriter& out, const HMIXMLMediaPrintPurpose& purpose) {
    const _tagHMIPrintPurposeInfo& info = purpose.Info();
    out.Open("print_purpose", Word(HMIPrintPurposeConverter, info.type), info.type == HMI_PRINTPURPOSE_ALL);
    WritePrintPurposeFields(out, info);
    for (DWORD variant = 0; variant < 4; ++variant) {
        for (const auto& entry : *purpose.Qualities(variant)) {
            WriteQuality(out, kQualityVariants[variant], *entry.second);
        }
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
    WriteMediaInfoFields(out, info);
    for (const auto& entry : detail.ColorModes()) WriteColorMode(out, *entry.second);
    out.Close();
}

int RunTree(const std::vector<std::string>& args, const Options& options) {
    MediumFile file;
    switch (file.Load(args[0])) {
        case MediumFile::Outcome::kUnreadable:
            std::fprintf(stderr, "hmitool: %s\n", file.UnreadableMessage(args[0]).c_str());
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

HMITOOL_COMMAND("tree", "FILE", "the option cascade of the medium in a media-information file",
                "tree samples/sample-printer/media/EnvelopePlain.xml", RunTree);

}  // namespace hmitool
