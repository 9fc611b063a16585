// What the library offers for a printer given as a directory of files, asked through its File exports
// and the cascade alone: the answers an export is compared with. Nothing here uses tools/media_export.
#ifndef HMI_TESTS_EXPORT_EXPORT_ORACLE_H
#define HMI_TESTS_EXPORT_EXPORT_ORACLE_H

#include <cstdint>
#include <string>
#include <vector>

#include "xrvhmi.h"

namespace exporttest {

constexpr int kPaperSizes = 26;
constexpr int kColors = 2, kBorderless = 2, kPurposes = 3, kQualities = 5;
// The concrete values of the slot and cartridge vocabularies (_tagHMI_INPUTBIN, tagHMI_CARTRIDGE).
extern const int kInputSlots[5];
extern const int kCartridges[6];
// What CUPS can ask of duplex.
enum Sides { kOneSided = 0, kLongEdge = 1, kShortEdge = 2 };

// A list as the library returns it, less "all" and values outside the vocabulary, each value once.
struct List {
    std::vector<int> values;
    int defaultValue = -1;  // as returned, whether listed or not
    bool Has(int value) const;
};

struct Purpose {
    bool present = false;  // a node, with its record
    List qualities;        // of the variant asked for
    List duplex;           // tagHMI_DUPLEXPRINT
    List cartridges;
};

struct Medium {
    std::string id;           // UTF-8
    std::string leftOut;      // why the export leaves it out ("invalid", "invisible", "rejected",
                              // "no combination", "no paper size"); empty when exported
    uint32_t unsupported = 0;  // bit s: _tagHMI_PAPERSIZE s is listed as unsupported
    uint32_t named = 0;        // bit s: the export has a name for size s
    List slots;
    List colors;
    List borderless[kColors];             // of the node HMIFilterColorMode gives; empty without one
    List purposes[kColors][kBorderless];  // likewise below HMIFilterBorderless
    Purpose purpose[kColors][kBorderless][kPurposes];

    bool exported() const { return leftOut.empty(); }
    // A size the export names and the medium does not list as unsupported.
    bool Supports(int size) const { return (named >> size & 1u) && !(unsupported >> size & 1u); }
    // Whether the combination is offered; -1 at a level asks whether some value there completes it.
    bool Offered(int color, int borderless = -1, int purpose = -1, int quality = -1) const;
    // Conflicts of the options beside the cascade: the slot for the medium; cartridge and sides for the
    // purpose the (offered) path leads to.
    bool SlotAllowed(int slot) const;
    bool CartridgeAllowed(int color, int borderless, int purpose, int cartridge) const;
    bool SidesAllowed(int color, int borderless, int purpose, Sides sides) const;
};

struct Printer {
    std::vector<Medium> media;  // every database entry, in database order
    std::vector<const Medium*> Exported() const;
};

// Reads the printer in directory with quality variant (0 rgb, 1 cmyk_4DLUT, 2 cmyk_1DLUT, 3 index);
// namedSizes has bit s set for each paper size the export can name. The valid switch is read from
// database.xml's text, since the File header export does not give it.
Printer ReadPrinter(const std::string& directory, DWORD variant, uint32_t namedSizes);

// What ppdMarkDefaults should mark: below the first exported medium, at each level, the list's
// default when it is offered, else the first offered value. -1 where the lists place no limit.
struct Defaults {
    const Medium* medium = nullptr;
    int color = -1, borderless = -1, purpose = -1, quality = -1;
    int paperSize = -1;  // A4 when the medium supports it, else its first supported size
    int slot = -1, cartridge = -1;
    int sides = -1;      // Sides
};
Defaults DefaultsOf(const Printer& printer);

// UTF-8 <-> UTF-16.
std::u16string Widen(const std::string& text);
std::string Narrow(const WCHAR* text);

}  // namespace exporttest

#endif
