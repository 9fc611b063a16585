// Media documents for tests: a medium whose every record field has its own value, the records it
// must give, and the writer that puts a medium into a test printer.
#ifndef HMI_TEST_FULL_MEDIUM_H
#define HMI_TEST_FULL_MEDIUM_H

#include <algorithm>
#include <initializer_list>
#include <string>
#include <tuple>

#include "support/media_database.h"

namespace hmitest {

// The content of the "medium" element: one colour mode "color", borderless "ON", purpose "photo" and
// one print quality per variant (rgb "3", cmyk_4DLUT "all", cmyk_1DLUT "1", index "5").
WString FullMediumBody();
extern const WCHAR* const kIcc64;  // 64 characters: fills output_icc up to its terminator
// "<media><medium>body</medium></media>" as the medium's document, in chunks of 512 units.
bool WriteMedium(TestPrinter& printer, DWORD mediaNumber, const WString& body);
// The records of FullMediumBody requested as id.
_tagHMIMediaInfo FullMediumInfo(const WCHAR* id);
_tagHMIAvailableBorderless FullColorBorderless();
_tagHMIAvailablePrintPurpose FullOnPurposes();
_tagHMIPrintPurposeInfo FullPhotoPurpose();
_tagHMIPrintQualityInfo FullRgbQuality();

template <size_t N>
void Put(WCHAR (&field)[N], const WCHAR* text) {
    std::char_traits<WCHAR>::copy(field, text, std::char_traits<WCHAR>::length(text) + 1);
}

// Field by field: assigning a whole list could carry indeterminate padding into a memcmp.
template <typename List, typename E>
List& SetList(List& list, std::initializer_list<E> values) {
    list.count = values.size();
    std::copy(values.begin(), values.end(), list.values);
    return list;
}

// A record of zero bytes but for its type (and three-position setting) where it has one.
template <typename Record, typename... Key>
Record Zeroed(Key... key) {
    Record r;
    std::memset(&r, 0, sizeof r);
    if constexpr (sizeof...(Key) > 0) r.type = std::get<0>(std::make_tuple(key...));
    if constexpr (sizeof...(Key) > 1) r.threeposition = std::get<1>(std::make_tuple(key...));
    return r;
}

}  // namespace hmitest

#endif
