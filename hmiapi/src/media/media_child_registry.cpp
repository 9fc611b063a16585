#include "media/media_child_registry.h"

#include <iterator>

#include "media/media_color_mode.h"

namespace {

HMIXMLChildEntry Entry(const WCHAR* name, HMIXMLNode* (*create)(HMIXMLNode*)) {
    return {name, HMIStrSignature(name), create};
}

// Initialised while the library loads, so the signatures exist before any entry point runs.
const HMIXMLChildEntry entries[] = {
    Entry(HMI_W("printcolormode"), &HMIXMLMediaColorMode::Create),
    Entry(HMI_W("borderlessprint"), &HMIXMLMediaBorderlessMode::Create),
    Entry(HMI_W("print_purpose"), &HMIXMLMediaPrintPurpose::Create),
    Entry(HMI_W("printquality_rgb"), &HMIXMLMediaPrintQualityRGB::Create),
    Entry(HMI_W("printquality_cmyk_4DLUT"), &HMIXMLMediaPrintQualityCMYK4D::Create),
    Entry(HMI_W("printquality_cmyk_1DLUT"), &HMIXMLMediaPrintQualityCMYK1D::Create),
    Entry(HMI_W("printquality_index"), &HMIXMLMediaPrintQualityINDEX::Create),
};

}  // namespace

const HMIXMLChildRegistry HMIMediaChildRegistry = {std::size(entries), entries};
