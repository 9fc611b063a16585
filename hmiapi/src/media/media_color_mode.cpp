#include "media/media_color_mode.h"

#include "media/media_level_fields.h"
#include "media/tag_vocabulary.h"

HMIXMLMediaColorMode::HMIXMLMediaColorMode(HMIXMLNode* parent) noexcept : HMIXMLMediaBranch(parent) {
    info.type = HMI_COLORMODE_INVALID;
}

HMIXMLNode* HMIXMLMediaColorMode::Create(HMIXMLNode* parent) noexcept {
    return HMICreateLevel<HMIXMLMediaColorMode>(parent);
}

bool HMIXMLMediaColorMode::OnParsed() {
    return ChildrenFiled() &&
           HMIReadRequiredAttribute(*this, HMI_W("type"), HMIColorModeConverter, &info.type) &&
           HMIReadListValue(*this, HMI_W("availableborderlessprint"), HMIOnOffConverter,
                            &info.availableborderlessprint);
}
