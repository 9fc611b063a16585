#include "media/media_level_fields.h"

namespace {

// Up to 16 hexadecimal digits after an optional "0x"; what _wcstoui64 reads in full.
bool IsHexFlag(const WCHAR* text) {
    if ((text[0] == '0') && (text[1] == 'x' || text[1] == 'X')) text += 2;
    size_t digits = 0;
    for (; *text; ++text, ++digits) {
        const WCHAR c = *text;
        if (!((c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'))) return false;
    }
    return digits > 0 && digits <= 16;
}

}  // namespace

void HMIReadHexValue(const HMIXMLNode& level, const WCHAR* name, uint64_t* field) noexcept {
    const HMIXMLNode* element = level.FindChild(name);
    if (!element || !element->Text()) return;
    *field = _wcstoui64(element->Text(), nullptr, 16);
    if (HMIXMLObserving() && !IsHexFlag(element->Text())) {
        HMIXMLDoubt(&level, name, {HMI_W("\""), element->Text(), HMI_W("\" is not up to 16 hexadecimal digits")});
    }
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
