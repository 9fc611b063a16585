// The media queries: a medium from the handle's cache, its records, and the branch for each choice.
#include <cstring>

#include "access/export_guard.h"
#include "access/hmi_access.h"
#include "media/media_queries.h"

namespace {

// Copies record, byte for byte, when both it and out are given.
template <typename Record>
bool CopyOut(const Record* record, Record* out) noexcept {
    if (!record || !out) return false;
    std::memcpy(out, record, sizeof *out);
    return true;
}

// Copies the record that read(node) names when access, node and out are all given.
template <typename Node, typename Record, typename Read>
BOOL CopyRecord(const HMIAccess* access, const Node* node, Record* out, Read read) {
    return HMIGuardedBool([&] { return access && node && CopyOut(&read(*node), out); });
}

// Filters below node when access and node are given.
template <typename Result, typename Node, typename Filter>
Result* FilterBelow(const HMIAccess* access, const Node* node, Filter filter) {
    return HMIGuarded<Result*>(nullptr, [&]() -> Result* {
        if (!access || !node) return nullptr;
        return const_cast<Result*>(filter(*node));
    });
}

// Walks down from the medium named by mediaId; null at the first step that yields nothing.
template <typename Result, typename Walk>
Result* FilterDirect(HMIAccess* access, const WCHAR* mediaId, Walk walk) {
    return HMIGuarded<Result*>(nullptr, [&]() -> Result* {
        const HMIXMLMediaDetail* detail = access ? access->FindOrLoadDetail(mediaId) : nullptr;
        return detail ? const_cast<Result*>(walk(*detail)) : nullptr;
    });
}

const HMIXMLMediaBorderlessMode* BorderlessBelow(const HMIXMLMediaDetail& detail, int32_t mode, int32_t onoff) {
    const HMIXMLMediaColorMode* colorMode = HMIFilterColorModeNode(detail, mode);
    return colorMode ? HMIFilterBorderlessNode(*colorMode, onoff) : nullptr;
}

}  // namespace

extern "C" {

HMIXMLMediaDetail* HMIFilterMedia(HMIAccess* access, const WCHAR* mediaId) {
    return FilterDirect<HMIXMLMediaDetail>(access, mediaId, [](const HMIXMLMediaDetail& detail) { return &detail; });
}

BOOL HMIGetMediaInfo(HMIAccess* access, HMIXMLMediaDetail* detail, _tagHMIMediaInfo* out) {
    return CopyRecord(access, detail, out, [](const HMIXMLMediaDetail& d) -> const auto& { return d.Info(); });
}

BOOL HMIGetMediaInfoDirect(HMIAccess* access, const WCHAR* mediaId, _tagHMIMediaInfo* out) {
    return HMIGuardedBool([&] {
        const HMIXMLMediaDetail* detail = access && out ? access->FindOrLoadDetail(mediaId) : nullptr;
        return detail && CopyOut(&detail->Info(), out);
    });
}

BOOL HMIGetAvailableColorMode(HMIAccess* access, HMIXMLMediaDetail* detail, _tagHMIAvailableColorMode* out) {
    return CopyRecord(access, detail, out,
                      [](const HMIXMLMediaDetail& d) -> const auto& { return d.Info().availableprintcolormode; });
}

HMIXMLMediaColorMode* HMIFilterColorMode(HMIAccess* access, HMIXMLMediaDetail* detail, tagHMI_COLORMODE colorMode) {
    const int32_t mode = HMIEnumArgument(colorMode);
    return FilterBelow<HMIXMLMediaColorMode>(
        access, detail, [&](const HMIXMLMediaDetail& d) { return HMIFilterColorModeNode(d, mode); });
}

HMIXMLMediaColorMode* HMIFilterColorModeDirect(HMIAccess* access, const WCHAR* mediaId, tagHMI_COLORMODE colorMode) {
    const int32_t mode = HMIEnumArgument(colorMode);
    return FilterDirect<HMIXMLMediaColorMode>(
        access, mediaId, [&](const HMIXMLMediaDetail& d) { return HMIFilterColorModeNode(d, mode); });
}

BOOL HMIGetAvailableBorderless(HMIAccess* access, HMIXMLMediaColorMode* colorMode, _tagHMIAvailableBorderless* out) {
    return CopyRecord(access, colorMode, out, [](const HMIXMLMediaColorMode& m) -> const auto& {
        return m.Info().availableborderlessprint;
    });
}

HMIXMLMediaBorderlessMode* HMIFilterBorderless(HMIAccess* access, HMIXMLMediaColorMode* colorMode,
                                               _tagHMI_ONOFF borderless) {
    const int32_t onoff = HMIEnumArgument(borderless);
    return FilterBelow<HMIXMLMediaBorderlessMode>(
        access, colorMode, [&](const HMIXMLMediaColorMode& m) { return HMIFilterBorderlessNode(m, onoff); });
}

HMIXMLMediaBorderlessMode* HMIFilterBorderlessDirect(HMIAccess* access, const WCHAR* mediaId,
                                                     tagHMI_COLORMODE colorMode, _tagHMI_ONOFF borderless) {
    const int32_t mode = HMIEnumArgument(colorMode), onoff = HMIEnumArgument(borderless);
    return FilterDirect<HMIXMLMediaBorderlessMode>(
        access, mediaId, [&](const HMIXMLMediaDetail& d) { return BorderlessBelow(d, mode, onoff); });
}

BOOL HMIGetAvailablePrintPurpose(HMIAccess* access, HMIXMLMediaBorderlessMode* borderless,
                                 _tagHMIAvailablePrintPurpose* out) {
    return CopyRecord(access, borderless, out, [](const HMIXMLMediaBorderlessMode& b) -> const auto& {
        return b.Info().availableprint_purpose;
    });
}

HMIXMLMediaPrintPurpose* HMIFilterPrintPurpose(HMIAccess* access, HMIXMLMediaBorderlessMode* borderless,
                                               tagHMI_PRINTPURPOSE purpose) {
    const int32_t value = HMIEnumArgument(purpose);
    return FilterBelow<HMIXMLMediaPrintPurpose>(
        access, borderless, [&](const HMIXMLMediaBorderlessMode& b) { return HMIFilterPrintPurposeNode(b, value); });
}

HMIXMLMediaPrintPurpose* HMIFilterPrintPurposeDirect(HMIAccess* access, const WCHAR* mediaId,
                                                     tagHMI_COLORMODE colorMode, _tagHMI_ONOFF borderless,
                                                     tagHMI_PRINTPURPOSE purpose) {
    const int32_t mode = HMIEnumArgument(colorMode), onoff = HMIEnumArgument(borderless);
    const int32_t value = HMIEnumArgument(purpose);
    return FilterDirect<HMIXMLMediaPrintPurpose>(access, mediaId, [&](const HMIXMLMediaDetail& d) {
        const HMIXMLMediaBorderlessMode* b = BorderlessBelow(d, mode, onoff);
        return b ? HMIFilterPrintPurposeNode(*b, value) : nullptr;
    });
}

BOOL HMIGetPrintPurposeInfo(HMIAccess* access, HMIXMLMediaPrintPurpose* purpose, _tagHMIPrintPurposeInfo* out) {
    return CopyRecord(access, purpose, out, [](const HMIXMLMediaPrintPurpose& p) -> const auto& { return p.Info(); });
}

BOOL HMIGetAvailablePrintQuality(HMIAccess* access, HMIXMLMediaPrintPurpose* purpose, DWORD variant,
                                 _tagHMIAvailablePrintQuality* out) {
    return HMIGuardedBool([&] {
        return access && purpose && CopyOut(HMIAvailablePrintQuality(*purpose, variant), out);
    });
}

BOOL HMIGetPrintQualityInfo(HMIAccess* access, HMIXMLMediaPrintPurpose* purpose, DWORD variant,
                            tagHMI_PRINTQUALITY quality, _tagHMIPrintQualityInfo* out) {
    const int32_t value = HMIEnumArgument(quality);
    return HMIGuardedBool([&] {
        const HMIXMLMediaPrintQuality* node =
            access && purpose && out ? HMIFilterPrintQualityNode(*purpose, variant, value) : nullptr;
        return node && CopyOut(&node->Info(), out);
    });
}

}  // extern "C"
