#include "media/media_level_fields.h"

void HMIReadHexValue(const HMIXMLNode& level, const WCHAR* name, uint64_t* field) noexcept {
    const HMIXMLNode* element = level.FindChild(name);
    if (element && element->Text()) *field = _wcstoui64(element->Text(), nullptr, 16);
}

void HMIReadDecimalValue(const HMIXMLNode& level, const WCHAR* name, int32_t* field) noexcept {
    const HMIXMLNode* element = level.FindChild(name);
    if (element && element->Text()) *field = static_cast<int32_t>(wcstol(element->Text(), nullptr, 10));
}

bool HMIReadPrintAreaValue(const HMIXMLNode& level, _tagHMIPrintArea* area) noexcept {
    const HMIXMLNode* element = level.FindChild(HMI_W("printarea"));
    if (ReadPrintArea(element, area)) return true;
    const HMITagULongConverter converter;
    const long held = HMICountListValues(element->Text(), converter, std::size(area->values));
    if (held > static_cast<long>(std::size(area->values))) {
        return HMIXMLRejectOverflow(&level, HMI_W("printarea"), static_cast<size_t>(held), std::size(area->values));
    }
    return HMIXMLReject(&level, {HMI_W("out of memory reading printarea")});
}
