#include "media/tag_list_reader.h"

#include <iterator>

bool ReadPrintArea(const HMIXMLNode* element, _tagHMIPrintArea* area) noexcept {
    area->constrained = 0;
    const WCHAR* text = element ? element->Text() : nullptr;
    if (!text || lstrcmpW(text, HMI_W("unconstrained")) == 0) return true;
    HMIHeapString copy(HMIStrDup(text));
    if (!copy) return false;
    const HMITagULongConverter converter;
    size_t kept = 0;
    const bool fits = HMIForEachToken(copy.get(), [&](const WCHAR* token) {
        if (kept == std::size(area->values)) return false;
        // A zero stays in its slot only until the next number overwrites it.
        area->values[kept] = converter.Convert(token);
        if (area->values[kept] != 0) ++kept;
        return true;
    });
    if (!fits) return false;
    area->constrained = 1;
    return true;
}
