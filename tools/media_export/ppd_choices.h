// The PPD's fixed options: each choice's keyword and PostScript code, by the library's value.
#ifndef MEDIA_EXPORT_PPD_CHOICES_H
#define MEDIA_EXPORT_PPD_CHOICES_H

#include <cstddef>
#include <string>

namespace mediaexport {

struct ChoiceWord {
    int value;
    const char* keyword;
    const char* code;  // PostScript for the choice
};

// The choices of one option: all of a table, or its first count.
struct ChoiceWords {
    const ChoiceWord* words;
    size_t count;
    template <size_t N>
    ChoiceWords(const ChoiceWord (&table)[N], size_t first = N) : words(table), count(first < N ? first : N) {}
    const ChoiceWord* begin() const { return words; }
    const ChoiceWord* end() const { return words + count; }
};

extern const ChoiceWord kColorModels[2];
extern const ChoiceWord kPurposes[3];
extern const ChoiceWord kQualities[5];
extern const ChoiceWord kInputSlots[5];
extern const ChoiceWord kCartridges[6];
extern const ChoiceWord kDuplexModes[3];  // one-sided, then the two bindings of two-sided

// The keyword of value; the first choice's for a value the table lacks.
const char* KeywordOf(ChoiceWords words, int value);

// A paper size's PPD name, or its whole-sheet variant's.
std::string SizeName(int size, bool borderless);

}  // namespace mediaexport

#endif
