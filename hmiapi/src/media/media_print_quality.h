// The print-quality level: one quality of one colour-processing variant of a print purpose.
#ifndef HMI_MEDIA_PRINT_QUALITY_H
#define HMI_MEDIA_PRINT_QUALITY_H

#include "media/media_level.h"

class HMIXMLMediaPrintQuality : public HMIXMLMediaLevel<_tagHMIPrintQualityInfo> {
public:
    // The record starts all zero.
    explicit HMIXMLMediaPrintQuality(HMIXMLNode* parent) noexcept : HMIXMLMediaLevel(parent) {}

protected:
    bool OnParsed() override;
};

// The four variants differ only in their run-time type, which picks the print purpose's dictionary.
template <int Variant>
class HMIXMLMediaPrintQualityOf final : public HMIXMLMediaPrintQuality {
public:
    static constexpr int kVariant = Variant;
    using HMIXMLMediaPrintQuality::HMIXMLMediaPrintQuality;
    static HMIXMLNode* Create(HMIXMLNode* parent) noexcept { return HMICreateLevel<HMIXMLMediaPrintQualityOf>(parent); }
};

using HMIXMLMediaPrintQualityRGB = HMIXMLMediaPrintQualityOf<0>;
using HMIXMLMediaPrintQualityCMYK4D = HMIXMLMediaPrintQualityOf<1>;
using HMIXMLMediaPrintQualityCMYK1D = HMIXMLMediaPrintQualityOf<2>;
using HMIXMLMediaPrintQualityINDEX = HMIXMLMediaPrintQualityOf<3>;

#endif
