// A printer's media as a neutral capability model: what a CUPS queue may offer, read from the library's
// answers alone. Both writers (PPD and IPP) read this model; neither asks the library.
//
// The cascade is a tree of offered values: a medium offers colour modes; a colour mode, borderless
// settings; a borderless setting, print purposes; a purpose, the qualities of one variant. A value is
// offered when it is in the available list of the node the values above it lead to, and some complete
// choice (down to a quality) exists below it: a value that leads nowhere is dropped, which leaves the
// set of offered complete combinations as it is.
#ifndef MEDIA_EXPORT_CAPABILITY_MODEL_H
#define MEDIA_EXPORT_CAPABILITY_MODEL_H

#include <cstdint>
#include <string>
#include <vector>

#include "xrvhmi.h"

namespace mediaexport {

// Cascade levels, top to bottom; a Node at level L offers values of level L + 1.
enum Level { kMediumLevel = 0, kColorLevel, kBorderlessLevel, kPurposeLevel, kQualityLevel };

// Values are the library's enumeration values (tagHMI_COLORMODE, _tagHMI_ONOFF, ...).
struct Offer {
    std::vector<int> values;  // in the library's list order
    int defaultValue = -1;    // the list's default when offered, else the first offered value

    bool Has(int value) const;
    bool empty() const { return values.empty(); }
};

struct Node {
    Offer below;                  // the next level's offered values
    std::vector<Node> children;   // one per value of below, in the same order (none at the quality level)
    // Print purpose nodes only (the purpose's own record):
    Offer duplex;                 // tagHMI_DUPLEXPRINT
    Offer cartridges;             // tagHMI_CARTRIDGE

    const Node* Child(int value) const;  // null when value is not offered
};

struct MediumName {
    std::string language;  // as stored, e.g. "en"
    std::string text;      // UTF-8
};

struct Medium {
    std::string id;                 // UTF-8, as in the database
    std::vector<MediumName> names;  // every stored language the library could read, in stored order
    int category = -1;              // tagHMI_MEDIACATEGORY
    uint32_t unsupportedSizes = 0;  // bit s set: _tagHMI_PAPERSIZE s is not supported
    Offer inputSlots;               // _tagHMI_INPUTBIN; empty: the medium names none
    Node cascade;                   // below: colour modes

    // An exported paper size (PaperSizeOf) the medium does not list as unsupported.
    bool Supports(int paperSize) const;
    bool SupportsAnySize() const;
};

// Which quality list of a purpose the model keeps (the variant argument of HMIGetAvailablePrintQuality).
enum QualityVariant : DWORD { kRgb = 0, kCmyk4D = 1, kCmyk1D = 2, kIndex = 3 };
// "rgb", "cmyk4d", "cmyk1d", "index"; false for any other word.
bool ParseQualityVariant(const std::string& word, QualityVariant* variant);

struct PrinterModel {
    std::string product;         // the database's product id
    QualityVariant variant = kRgb;
    int defaultPaperSize = HMI_PAPERSIZE_ISO_A4;  // the default size where the default medium supports it
    std::vector<Medium> media;   // exportable media, in database order
    std::vector<std::string> warnings;  // one line each: media left out, names missing, ...
};

}  // namespace mediaexport

#endif
