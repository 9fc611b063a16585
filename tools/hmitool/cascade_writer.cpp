#include "cascade_writer.h"

#include <algorithm>
#include <vector>

#include "record_fields.h"

namespace hmitool {
namespace {

// The list's values, then its default when the list lacks it; nothing for an empty list, whose
// default means nothing.
template <typename E, size_t N>
std::vector<E> AskedValues(const HMITagListWithDefault<E, N>& list) {
    std::vector<E> values(list.values, list.values + std::min<uint64_t>(list.count, N));
    if (!values.empty() && std::find(values.begin(), values.end(), list.defaultValue) == values.end()) {
        values.push_back(list.defaultValue);
    }
    return values;
}

// One filtered level: filter(value) is the level's filter export, below(node) writes the node's content.
template <typename E, size_t N, typename Filter, typename Below>
void WriteLevel(OutlineWriter& out, const char* kind, const HMITagIDConverter<E>& words,
                const HMITagListWithDefault<E, N>& available, E allValue, Filter filter, Below below) {
    const auto* const all = filter(allValue);
    for (E value : AskedValues(available)) {
        const auto node = filter(value);
        out.Open(kind, Word(words, value), {node && node == all, value == available.defaultValue, !node});
        if (node) below(node);
        out.Close();
    }
}

// Print qualities have no filter: a record whose type differs from the value asked came from "all".
void WriteQualities(OutlineWriter& out, HMIAccess* access, HMIXMLMediaPrintPurpose* purpose, DWORD variant) {
    _tagHMIAvailablePrintQuality available;
    if (!HMIGetAvailablePrintQuality(access, purpose, variant, &available)) return;
    for (tagHMI_PRINTQUALITY value : AskedValues(available)) {
        _tagHMIPrintQualityInfo info;
        const bool found = HMIGetPrintQualityInfo(access, purpose, variant, value, &info);
        out.Open(kQualityVariants[variant], Word(HMIPrintQualityConverter, value),
                 {found && info.type != value, value == available.defaultValue, !found});
        if (found) WritePrintQualityFields(out, info);
        out.Close();
    }
}

void WritePrintPurpose(OutlineWriter& out, HMIAccess* access, HMIXMLMediaPrintPurpose* purpose) {
    _tagHMIPrintPurposeInfo info;
    if (HMIGetPrintPurposeInfo(access, purpose, &info)) WritePrintPurposeFields(out, info);
    for (DWORD variant = 0; variant < 4; ++variant) WriteQualities(out, access, purpose, variant);
}

void WriteBorderless(OutlineWriter& out, HMIAccess* access, HMIXMLMediaBorderlessMode* borderless) {
    _tagHMIAvailablePrintPurpose available;
    if (!HMIGetAvailablePrintPurpose(access, borderless, &available)) return;
    WriteList(out, "availableprint_purpose", HMIPrintPurposeConverter, available);
    WriteLevel(
        out, "print_purpose", HMIPrintPurposeConverter, available, HMI_PRINTPURPOSE_ALL,
        [&](tagHMI_PRINTPURPOSE v) { return HMIFilterPrintPurpose(access, borderless, v); },
        [&](HMIXMLMediaPrintPurpose* purpose) { WritePrintPurpose(out, access, purpose); });
}

void WriteColorMode(OutlineWriter& out, HMIAccess* access, HMIXMLMediaColorMode* colorMode) {
    _tagHMIAvailableBorderless available;
    if (!HMIGetAvailableBorderless(access, colorMode, &available)) return;
    WriteList(out, "availableborderlessprint", HMIOnOffConverter, available);
    WriteLevel(
        out, "borderlessprint", HMIOnOffConverter, available, HMI_ONOFF_ALL,
        [&](_tagHMI_ONOFF v) { return HMIFilterBorderless(access, colorMode, v); },
        [&](HMIXMLMediaBorderlessMode* borderless) { WriteBorderless(out, access, borderless); });
}

}  // namespace

void WriteCascade(OutlineWriter& out, HMIAccess* access, HMIXMLMediaDetail* detail, const std::string& mediaId) {
    out.Open("medium", mediaId, false);
    _tagHMIMediaInfo info;
    _tagHMIAvailableColorMode available;
    if (HMIGetMediaInfo(access, detail, &info) && HMIGetAvailableColorMode(access, detail, &available)) {
        WriteMediaInfoFields(out, info);
        WriteLevel(
            out, "printcolormode", HMIColorModeConverter, available, HMI_COLORMODE_ALL,
            [&](tagHMI_COLORMODE v) { return HMIFilterColorMode(access, detail, v); },
            [&](HMIXMLMediaColorMode* colorMode) { WriteColorMode(out, access, colorMode); });
    }
    out.Close();
}

}  // namespace hmitool
