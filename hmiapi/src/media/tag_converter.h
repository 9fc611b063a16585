// Converters from document text to the values of the vocabulary.
#ifndef HMI_MEDIA_TAG_CONVERTER_H
#define HMI_MEDIA_TAG_CONVERTER_H

#include <cstddef>
#include <cstdint>

#include "platform/platform.h"

template <typename T>
class IHMITagConverter {
public:
    virtual T Convert(const WCHAR* text) const = 0;
    virtual T InvalidValue() const = 0;

protected:
    // Converters are never destroyed through the interface.
    constexpr IHMITagConverter() = default;
    ~IHMITagConverter() = default;
};

struct HMITagIDEntry {
    const WCHAR* keyword;
    uint32_t value;
};

// The keyword-table converter of one enumeration; one constant object per enumeration.
template <typename E>
class HMITagIDConverter final : public IHMITagConverter<E> {
public:
    constexpr HMITagIDConverter(const HMITagIDEntry* table, size_t entryCount, E invalidValue)
        : table(table), entryCount(entryCount), invalidValue(invalidValue) {}

    E Convert(const WCHAR* text) const override {
        if (!text) return invalidValue;
        for (size_t i = 0; i < entryCount; ++i) {
            if (lstrcmpW(text, table[i].keyword) == 0) return static_cast<E>(table[i].value);
        }
        return invalidValue;
    }

    E InvalidValue() const override { return invalidValue; }

    // The first keyword naming value, or null: the table read backwards, for display.
    const WCHAR* KeywordOf(E value) const {
        for (size_t i = 0; i < entryCount; ++i) {
            if (table[i].value == static_cast<uint32_t>(value)) return table[i].keyword;
        }
        return nullptr;
    }

    const HMITagIDEntry* Table() const { return table; }
    size_t EntryCount() const { return entryCount; }

private:
    const HMITagIDEntry* table;
    size_t entryCount;
    E invalidValue;
};

// Unsigned decimal numbers (wcstoul, base 10); 0 is the invalid value.
class HMITagULongConverter final : public IHMITagConverter<ULONG> {
public:
    ULONG Convert(const WCHAR* text) const override {
        return text ? static_cast<ULONG>(wcstoul(text, nullptr, 10)) : 0;
    }
    ULONG InvalidValue() const override { return 0; }
};

// Signed decimal numbers (_wtol); 0 is the invalid value.
class HMITagLongConverter final : public IHMITagConverter<LONG> {
public:
    LONG Convert(const WCHAR* text) const override { return text ? static_cast<LONG>(_wtol(text)) : 0; }
    LONG InvalidValue() const override { return 0; }
};

#endif
