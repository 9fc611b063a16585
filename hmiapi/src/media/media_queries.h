// What the media queries ask of a medium's tree: the "all" fallback of every level and the records
// that the copying entry points hand out.
#ifndef HMI_MEDIA_QUERIES_H
#define HMI_MEDIA_QUERIES_H

#include <cstdint>
#include <cstring>

#include "media/media_detail.h"

// The 32 bits of an enumeration argument as the caller passed them, read without an enumeration-typed
// load: a caller may pass any value, not only the enumeration's own.
template <typename E>
int32_t HMIEnumArgument(const E& value) noexcept {
    static_assert(sizeof(E) == sizeof(int32_t), "enumerations cross the boundary as 32-bit values");
    int32_t raw;
    std::memcpy(&raw, &value, sizeof raw);
    return raw;
}

// The node filed under value, else the node filed under the level's "all" value, else null.
template <typename Dictionary>
auto HMIFilterStep(const Dictionary& dictionary, int32_t value, int32_t all) noexcept {
    auto node = dictionary.Find(value);
    return node ? node : dictionary.Find(all);
}

inline const HMIXMLMediaColorMode* HMIFilterColorModeNode(const HMIXMLMediaDetail& detail, int32_t mode) noexcept {
    return HMIFilterStep(detail.ColorModes(), mode, HMI_COLORMODE_ALL);
}

inline const HMIXMLMediaBorderlessMode* HMIFilterBorderlessNode(const HMIXMLMediaColorMode& mode,
                                                                int32_t onoff) noexcept {
    return HMIFilterStep(mode.BorderlessModes(), onoff, HMI_ONOFF_ALL);
}

inline const HMIXMLMediaPrintPurpose* HMIFilterPrintPurposeNode(const HMIXMLMediaBorderlessMode& borderless,
                                                                int32_t purpose) noexcept {
    return HMIFilterStep(borderless.PrintPurposes(), purpose, HMI_PRINTPURPOSE_ALL);
}

// The print quality of one variant (0 to 3), with the "all" fallback; null for any other variant.
inline const HMIXMLMediaPrintQuality* HMIFilterPrintQualityNode(const HMIXMLMediaPrintPurpose& purpose,
                                                                DWORD variant, int32_t quality) noexcept {
    const HMIXMLMediaPrintQualityDic* qualities = purpose.Qualities(variant);
    return qualities ? HMIFilterStep(*qualities, quality, HMI_PRINTQUALITY_ALL) : nullptr;
}

// The available print qualities of one variant (0 to 3) in the print purpose's record; null otherwise.
inline const _tagHMIAvailablePrintQuality* HMIAvailablePrintQuality(const HMIXMLMediaPrintPurpose& purpose,
                                                                    DWORD variant) noexcept {
    const _tagHMIAvailablePrintQuality* lists[] = {
        &purpose.Info().availableprintquality_rgb, &purpose.Info().availableprintquality_cmyk_4DLUT,
        &purpose.Info().availableprintquality_cmyk_1DLUT, &purpose.Info().printquality_index};
    return variant < 4 ? lists[variant] : nullptr;
}

#endif
