#include "media/media_print_purpose.h"

#include "media/media_level_fields.h"
#include "media/tag_vocabulary.h"

HMIXMLMediaPrintPurpose::HMIXMLMediaPrintPurpose(HMIXMLNode* parent) noexcept : HMIXMLMediaLevel(parent) {
    info.type = HMI_PRINTPURPOSE_INVALID;
}

HMIXMLMediaPrintPurpose::~HMIXMLMediaPrintPurpose() {
    qualitiesRGB.clear();
    qualitiesCMYK4D.clear();
    qualitiesCMYK1D.clear();
    qualitiesINDEX.clear();
}

HMIXMLNode* HMIXMLMediaPrintPurpose::Create(HMIXMLNode* parent) noexcept {
    return HMICreateLevel<HMIXMLMediaPrintPurpose>(parent);
}

const HMIXMLMediaPrintQualityDic* HMIXMLMediaPrintPurpose::Qualities(DWORD variant) const {
    switch (variant) {
        case HMIXMLMediaPrintQualityRGB::kVariant: return &qualitiesRGB;
        case HMIXMLMediaPrintQualityCMYK4D::kVariant: return &qualitiesCMYK4D;
        case HMIXMLMediaPrintQualityCMYK1D::kVariant: return &qualitiesCMYK1D;
        case HMIXMLMediaPrintQualityINDEX::kVariant: return &qualitiesINDEX;
        default: return nullptr;
    }
}

void HMIXMLMediaPrintPurpose::OnAddChild(HMIXMLNode* child) {
    HMIFileChild<HMIXMLMediaPrintQualityRGB>(child, qualitiesRGB, &filingFailed) ||
        HMIFileChild<HMIXMLMediaPrintQualityCMYK4D>(child, qualitiesCMYK4D, &filingFailed) ||
        HMIFileChild<HMIXMLMediaPrintQualityCMYK1D>(child, qualitiesCMYK1D, &filingFailed) ||
        HMIFileChild<HMIXMLMediaPrintQualityINDEX>(child, qualitiesINDEX, &filingFailed);
}

bool HMIXMLMediaPrintPurpose::Keeps(const HMIXMLNode* child) const noexcept {
    return HMIFiled<HMIXMLMediaPrintQualityRGB>(child, qualitiesRGB) ||
           HMIFiled<HMIXMLMediaPrintQualityCMYK4D>(child, qualitiesCMYK4D) ||
           HMIFiled<HMIXMLMediaPrintQualityCMYK1D>(child, qualitiesCMYK1D) ||
           HMIFiled<HMIXMLMediaPrintQualityINDEX>(child, qualitiesINDEX);
}

bool HMIXMLMediaPrintPurpose::OnParsed() {
    if (filingFailed) return HMIXMLReject(this, {HMI_W("out of memory filing a print quality")});
    if (!HMIReadRequiredAttribute(*this, HMI_W("type"), HMIPrintPurposeConverter, &info.type)) return false;
    HMIReadHexValue(*this, HMI_W("operationflag"), &info.operationflag);
    return HMIReadListValue(*this, HMI_W("availableduplexprint"), HMIDuplexPrintConverter,
                            &info.availableduplexprint) &&
           HMIReadListValue(*this, HMI_W("availablecartridge"), HMICartridgeConverter, &info.availablecartridge) &&
           HMIReadListValue(*this, HMI_W("availableAppPostcardMedia"), HMIAppHagakiMediaConverter,
                            &info.availableAppPostcardMedia) &&
           HMIReadListValue(*this, HMI_W("availableHagakiAutoDuplexMode"), HMIHagakiAutoDuplexModeConverter,
                            &info.availableHagakiAutoDuplexMode) &&
           HMIReadListValue(*this, HMI_W("availableprintquality_rgb"), HMIPrintQualityConverter,
                            &info.availableprintquality_rgb) &&
           HMIReadListValue(*this, HMI_W("availableprintquality_cmyk_4DLUT"), HMIPrintQualityConverter,
                            &info.availableprintquality_cmyk_4DLUT) &&
           HMIReadListValue(*this, HMI_W("availableprintquality_cmyk_1DLUT"), HMIPrintQualityConverter,
                            &info.availableprintquality_cmyk_1DLUT) &&
           // The index list shares its element name with the index-variant print qualities.
           HMIReadListValue(*this, HMI_W("printquality_index"), HMIPrintQualityConverter, &info.printquality_index);
}
