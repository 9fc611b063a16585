// What the library offers for a printer given as a directory of files, asked through its File exports
// and the cascade alone: the answers an export is compared with. Nothing here uses tools/media_export.
#ifndef HMI_TESTS_EXPORT_EXPORT_ORACLE_H
#define HMI_TESTS_EXPORT_EXPORT_ORACLE_H

#include <cstdint>
#include <string>
#include <vector>

#include "xrvhmi.h"

namespace exporttest {

constexpr int kPaperSizes = 26, kColors = 2, kBorderless = 2, kPurposes = 3, kQualities = 5;
// The concrete values of the slot and cartridge vocabularies (_tagHMI_INPUTBIN, tagHMI_CARTRIDGE).
extern const int kInputSlots[5], kCartridges[6];
enum Sides { kOneSided, kLongEdge, kShortEdge };  // what CUPS can ask of duplex

// A list as the library returns it, less "all" and values outside the vocabulary, each value once.
struct List {
    std::vector<int> values;
    int defaultValue = -1;  // as returned, whether listed or not
    bool Has(int value) const;
    bool Allows(int value) const { return values.empty() || Has(value); }  // naming no value places no limit
};

struct Purpose {
    List qualities, duplex, cartridges;  // qualities of the variant asked for
};

struct Medium {
    std::string id;       // UTF-8
    std::string leftOut;  // why the exports leave it out ("invalid", "invisible", "rejected", "no combination",
                          // "no paper size"); empty when exported
    uint32_t unsupported = 0, named = 0;  // bit s: size s is listed as unsupported; the export names it
    List slots, colors, borderless[kColors], purposes[kColors][kBorderless];  // a level's list below each node
    Purpose purpose[kColors][kBorderless][kPurposes];

    bool Supports(int size) const { return (named >> size & 1u) && !(unsupported >> size & 1u); }
    // Whether the combination is offered; -1 at a level asks whether some value there completes it.
    bool Offered(int color, int borderless = -1, int purpose = -1, int quality = -1) const;
    bool SidesAllowed(int color, int borderless, int purpose, Sides sides) const;
};

struct Printer {
    std::vector<Medium> media;  // every database entry, in database order
    std::vector<const Medium*> Exported() const;
};

// Reads the printer in directory with quality variant (0 rgb, 1 cmyk_4DLUT, 2 cmyk_1DLUT, 3 index);
// namedSizes has bit s set for each paper size the exports can name. The valid switch is read from
// database.xml's text, since the File header export does not give it.
Printer ReadPrinter(const std::string& directory, DWORD variant, uint32_t namedSizes);

// One combination of a medium's values (quality: tagHMI_PRINTQUALITY; sides: Sides); -1 beside the
// cascade where the lists place no limit.
struct Choice {
    int color, borderless, purpose, quality, size, slot, cartridge, sides;
};
// What the defaults should be: below the first exported medium, at each level, the list's default when it
// is offered, else the first offered value; the paper size A4 when supported, else the first.
Choice DefaultsOf(const Printer& printer);

}  // namespace exporttest

#endif
