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
    if (*field == converter.InvalidValue()) {
        HMIXMLDoubt(&level, name, {HMI_W("unknown keyword \""), attribute->Text(), HMI_W("\"")}, true);
    }
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
    const HMIXMLNode* element = level.FindChild(name);
    if (element && !HMIBoundedCopy(field, element->Text()) && element->Text()) {
        HMIXMLDoubt(&level, name, {HMI_W("too long for its field, read as empty")});
    }
}

// An element without text, or with an unknown keyword, gives the invalid value.
template <typename E>
void HMIReadKeywordValue(const HMIXMLNode& level, const WCHAR* name, const IHMITagConverter<E>& converter,
                         E* field) noexcept {
    const HMIXMLNode* element = level.FindChild(name);
    if (!element) return;
    *field = converter.Convert(element->Text());
    if (*field == converter.InvalidValue() && element->Text() && *element->Text()) {
        HMIXMLDoubt(&level, name, {HMI_W("unknown keyword \""), element->Text(), HMI_W("\"")});
    }
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

// Doubts about a list that was read: every value that no table knows, and a default that is unknown
// or not in the list.
template <typename T>
void HMIDoubtListValues(const HMIXMLNode& level, const WCHAR* name, const HMIXMLNode& element,
                        const IHMITagConverter<T>& converter) noexcept {
    HMIHeapString copy(HMIStrDup(element.Text()));
    if (!copy) return;
    HMIForEachToken(copy.get(), [&](const WCHAR* token) {
        if (converter.Convert(token) == converter.InvalidValue()) {
            HMIXMLDoubt(&level, name, {HMI_W("unknown value \""), token, HMI_W("\"")});
        }
        return true;
    });
}

template <typename T, typename E, size_t N>
void HMIDoubtDefault(const HMIXMLNode&, const WCHAR*, const HMIXMLNode&, const IHMITagConverter<T>&,
                     const HMITagList<E, N>&) noexcept {}

template <typename T, typename E, size_t N>
void HMIDoubtDefault(const HMIXMLNode& level, const WCHAR* name, const HMIXMLNode& element,
                     const IHMITagConverter<T>& converter, const HMITagListWithDefault<E, N>& list) noexcept {
    const HMIXMLNode* attribute = element.FindAttribute(HMI_W("default"));
    if (!attribute) return;
    const WCHAR* text = attribute->Text() ? attribute->Text() : HMI_W("");
    if (list.defaultValue == static_cast<E>(converter.InvalidValue())) {
        return HMIXMLDoubt(&level, name, {HMI_W("unknown default \""), text, HMI_W("\"")});
    }
    for (uint64_t i = 0; i < list.count; ++i) {
        if (list.values[i] == list.defaultValue) return;
    }
    HMIXMLDoubt(&level, name, {HMI_W("default \""), text, HMI_W("\" is not in the list")});
}

// A list value element; absent, the list stays as created. Too many values reject the medium.
template <typename T, typename List>
bool HMIReadListValue(const HMIXMLNode& level, const WCHAR* name, const IHMITagConverter<T>& converter,
                      List* list) noexcept {
    const HMIXMLNode* element = level.FindChild(name);
    if (!element) return true;
    if (HMIReadList(element, converter, list)) {
        if (HMIXMLObserving()) {
            HMIDoubtListValues(level, name, *element, converter);
            HMIDoubtDefault(level, name, *element, converter, *list);
        }
        return true;
    }
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
