// Readers with which the levels fill their records from their attributes and value elements in
// OnParsed. The list and attribute readers return false, and explain why, when the medium is rejected.
#ifndef HMI_MEDIA_LEVEL_FIELDS_H
#define HMI_MEDIA_LEVEL_FIELDS_H

#include <cstdint>
#include <iterator>

#include "common/hmi_string.h"
#include "media/hmi_xml_node.h"
#include "media/tag_list_reader.h"
#include "media/xml_rejection.h"

// A required keyword attribute ("type", "threeposition"); its absence rejects the medium.
template <typename E>
bool HMIReadRequiredAttribute(const HMIXMLNode& level, const WCHAR* name, const IHMITagConverter<E>& converter,
                              E* field) noexcept {
    const HMIXMLNode* attribute = level.FindAttribute(name);
    if (!attribute) return HMIXMLReject(&level, {HMI_W("missing attribute \""), name, HMI_W("\"")});
    *field = converter.Convert(attribute->Text());
    return true;
}

// Hexadecimal ("1F", "0x1F"); an element without text leaves the field as it is.
void HMIReadHexValue(const HMIXMLNode& level, const WCHAR* name, uint64_t* field) noexcept;

// Signed decimal; an element without text gives 0.
void HMIReadDecimalValue(const HMIXMLNode& level, const WCHAR* name, int32_t* field) noexcept;

// Copied when it fits with its terminator; otherwise, or without text, the zero-filled field stays as
// it is (the bounded copy writes nothing of a text that does not fit).
template <size_t N>
void HMIReadTextValue(const HMIXMLNode& level, const WCHAR* name, WCHAR (&field)[N]) noexcept {
    if (const HMIXMLNode* element = level.FindChild(name)) HMIBoundedCopy(field, element->Text());
}

// An element without text, or with an unknown keyword, gives the invalid value.
template <typename E>
void HMIReadKeywordValue(const HMIXMLNode& level, const WCHAR* name, const IHMITagConverter<E>& converter,
                         E* field) noexcept {
    if (const HMIXMLNode* element = level.FindChild(name)) *field = converter.Convert(element->Text());
}

template <typename T, typename E, size_t N>
bool HMIReadList(const HMIXMLNode* element, const IHMITagConverter<T>& converter, HMITagList<E, N>* list) noexcept {
    return ReadTagList(element, converter, list);
}

template <typename T, typename E, size_t N>
bool HMIReadList(const HMIXMLNode* element, const IHMITagConverter<T>& converter,
                 HMITagListWithDefault<E, N>* list) noexcept {
    return ReadTagListWithDefault(element, converter, list);
}

// A list value element; absent, the list stays as created. Too many values reject the medium.
template <typename T, typename List>
bool HMIReadListValue(const HMIXMLNode& level, const WCHAR* name, const IHMITagConverter<T>& converter,
                      List* list) noexcept {
    const HMIXMLNode* element = level.FindChild(name);
    if (!element || HMIReadList(element, converter, list)) return true;
    const size_t capacity = std::size(list->values);
    const long held = HMICountListValues(element->Text(), converter, capacity);
    if (held > static_cast<long>(capacity)) {
        return HMIXMLRejectOverflow(&level, name, static_cast<size_t>(held), capacity);
    }
    return HMIXMLReject(&level, {HMI_W("out of memory reading "), name});
}

// The "printarea" value element.
bool HMIReadPrintAreaValue(const HMIXMLNode& level, _tagHMIPrintArea* area) noexcept;

#endif
