// Readers that fill the list shapes from the comma-separated text of a value element.
#ifndef HMI_MEDIA_TAG_LIST_READER_H
#define HMI_MEDIA_TAG_LIST_READER_H

#include <cstddef>
#include <cstdint>

#include "common/hmi_string.h"
#include "media/hmi_xml_node.h"
#include "media/tag_converter.h"

// Calls visit(token) for every token of text split at commas, in place; empty tokens are skipped and
// blanks belong to the token. Stops at the first false from visit and returns it.
template <typename Visit>
bool HMIForEachToken(WCHAR* text, Visit visit) {
    WCHAR* token = text;
    for (WCHAR* p = text;; ++p) {
        const bool end = *p == 0;
        if (end || *p == ',') {
            *p = 0;
            if (p != token && !visit(static_cast<const WCHAR*>(token))) return false;
            if (end) return true;
            token = p + 1;
        }
    }
}

// Converts the tokens of text into values, keeping those that are not the converter's invalid value.
// False, with *count 0, when a token arrives after N values are kept or the private copy of the text
// cannot be made.
template <typename T, typename E, size_t N>
bool HMIReadTokens(const WCHAR* text, const IHMITagConverter<T>& converter, E (&values)[N], uint64_t* count) noexcept {
    *count = 0;
    if (!text || !*text) return true;
    HMIHeapString copy(HMIStrDup(text));
    if (!copy) return false;
    const T invalid = converter.InvalidValue();
    uint64_t kept = 0;
    const bool fits = HMIForEachToken(copy.get(), [&](const WCHAR* token) {
        if (kept == N) return false;
        const T value = converter.Convert(token);
        values[kept] = static_cast<E>(value);
        if (value != invalid) ++kept;
        return true;
    });
    if (fits) *count = kept;
    return fits;
}

// The number of values text holds as HMIReadTokens counts them, with every token after the capacity
// counted as one more; -1 when the text cannot be copied. Used only to explain a rejection.
template <typename T>
long HMICountListValues(const WCHAR* text, const IHMITagConverter<T>& converter, size_t capacity) noexcept {
    if (!text || !*text) return 0;
    HMIHeapString copy(HMIStrDup(text));
    if (!copy) return -1;
    size_t kept = 0;
    size_t beyond = 0;
    HMIForEachToken(copy.get(), [&](const WCHAR* token) {
        if (kept == capacity) {
            ++beyond;
        } else if (converter.Convert(token) != converter.InvalidValue()) {
            ++kept;
        }
        return true;
    });
    return static_cast<long>(kept + beyond);
}

template <typename T, typename E, size_t N>
bool ReadTagList(const HMIXMLNode* element, const IHMITagConverter<T>& converter, HMITagList<E, N>* list) noexcept {
    return HMIReadTokens(element ? element->Text() : nullptr, converter, list->values, &list->count);
}

// defaultValue is the "default" attribute converted, or the invalid value without one.
template <typename T, typename E, size_t N>
bool ReadTagListWithDefault(const HMIXMLNode* element, const IHMITagConverter<T>& converter,
                            HMITagListWithDefault<E, N>* list) noexcept {
    list->defaultValue = static_cast<E>(converter.InvalidValue());
    const HMIXMLNode* defaultAttribute = element ? element->FindAttribute(HMI_W("default")) : nullptr;
    if (defaultAttribute) list->defaultValue = static_cast<E>(converter.Convert(defaultAttribute->Text()));
    return HMIReadTokens(element ? element->Text() : nullptr, converter, list->values, &list->count);
}

// Up to four non-zero unsigned numbers; "unconstrained", no element or no text leave constrained 0.
bool ReadPrintArea(const HMIXMLNode* element, _tagHMIPrintArea* area) noexcept;

#endif
