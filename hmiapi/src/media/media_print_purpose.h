// The print-purpose level: its settings and its print qualities in four variants.
#ifndef HMI_MEDIA_PRINT_PURPOSE_H
#define HMI_MEDIA_PRINT_PURPOSE_H

#include "media/media_dictionaries.h"
#include "media/media_print_quality.h"

class HMIXMLMediaPrintPurpose : public HMIXMLMediaLevel<_tagHMIPrintPurposeInfo> {
public:
    // type starts as the invalid print purpose.
    explicit HMIXMLMediaPrintPurpose(HMIXMLNode* parent) noexcept;
    ~HMIXMLMediaPrintPurpose() override;
    static HMIXMLNode* Create(HMIXMLNode* parent) noexcept;

    const HMIXMLMediaPrintQualityDic& QualitiesRGB() const { return qualitiesRGB; }
    const HMIXMLMediaPrintQualityDic& QualitiesCMYK4D() const { return qualitiesCMYK4D; }
    const HMIXMLMediaPrintQualityDic& QualitiesCMYK1D() const { return qualitiesCMYK1D; }
    const HMIXMLMediaPrintQualityDic& QualitiesINDEX() const { return qualitiesINDEX; }
    // The dictionary of quality variant 0 (RGB) to 3 (index); null for any other variant.
    const HMIXMLMediaPrintQualityDic* Qualities(DWORD variant) const;

protected:
    void OnAddChild(HMIXMLNode* child) override;
    bool Keeps(const HMIXMLNode* child) const noexcept override;
    bool OnParsed() override;

private:
    HMIXMLMediaPrintQualityDic qualitiesRGB;
    HMIXMLMediaPrintQualityDic qualitiesCMYK4D;
    HMIXMLMediaPrintQualityDic qualitiesCMYK1D;
    HMIXMLMediaPrintQualityDic qualitiesINDEX;
    bool filingFailed = false;
};

#endif
