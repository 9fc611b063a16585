#include "media/media_borderless_mode.h"

#include "media/media_level_fields.h"
#include "media/tag_vocabulary.h"

HMIXMLMediaBorderlessMode::HMIXMLMediaBorderlessMode(HMIXMLNode* parent) noexcept : HMIXMLMediaBranch(parent) {
    info.type = HMI_ONOFF_INVALID;
}

HMIXMLNode* HMIXMLMediaBorderlessMode::Create(HMIXMLNode* parent) noexcept {
    return HMICreateLevel<HMIXMLMediaBorderlessMode>(parent);
}

bool HMIXMLMediaBorderlessMode::OnParsed() {
    return ChildrenFiled() &&
           HMIReadRequiredAttribute(*this, HMI_W("type"), HMIOnOffConverter, &info.type) &&
           HMIReadListValue(*this, HMI_W("availableprint_purpose"), HMIPrintPurposeConverter,
                            &info.availableprint_purpose);
}
