// The exported records' fields in words, written to an outline: shared by the commands that print
// a medium's option tree, whether they read it from the parser (tree) or through the exports (show).
#ifndef HMITOOL_RECORD_FIELDS_H
#define HMITOOL_RECORD_FIELDS_H

#include <string>
#include <vector>

#include "media/tag_vocabulary.h"
#include "outline_writer.h"
#include "text.h"

namespace hmitool {

// Element names of the four print-quality variants, by variant number.
extern const char* const kQualityVariants[4];

// The keyword that names value, read backwards from the library's own table.
template <typename E>
std::string Word(const HMITagIDConverter<E>& converter, E value) {
    if (const WCHAR* keyword = converter.KeywordOf(value)) return Narrow(keyword);
    if (value == converter.InvalidValue()) return "(unknown keyword)";
    return "#" + std::to_string(static_cast<uint32_t>(value));
}

template <typename E, size_t N>
std::vector<std::string> Words(const HMITagIDConverter<E>& converter, const E (&values)[N], uint64_t count) {
    std::vector<std::string> words;
    for (uint64_t i = 0; i < count && i < N; ++i) words.push_back(Word(converter, values[i]));
    return words;
}

template <typename E, size_t N>
void WriteList(OutlineWriter& out, const char* field, const HMITagIDConverter<E>& converter,
               const HMITagList<E, N>& list) {
    out.List(field, Words(converter, list.values, list.count));
}

template <typename E, size_t N>
void WriteList(OutlineWriter& out, const char* field, const HMITagIDConverter<E>& converter,
               const HMITagListWithDefault<E, N>& list) {
    out.ListWithDefault(field, Word(converter, list.defaultValue), Words(converter, list.values, list.count));
}

void WriteMediaInfoFields(OutlineWriter& out, const _tagHMIMediaInfo& info);
void WritePrintPurposeFields(OutlineWriter& out, const _tagHMIPrintPurposeInfo& info);
void WritePrintQualityFields(OutlineWriter& out, const _tagHMIPrintQualityInfo& info);

}  // namespace hmitool

#endif
