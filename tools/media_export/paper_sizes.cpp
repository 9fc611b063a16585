#include "paper_sizes.h"

#include <cmath>
#include <cstdlib>
#include <cstring>

namespace mediaexport {
namespace {

// Where the vocabulary's size matches a size CUPS knows (within its tolerance), the PPD name is CUPS's
// name for it: 200x148mm is "DoublePostcard", 89x127mm "3.5x5", 17x22in "AnsiC", 98x190mm "EnvYou6",
// 203x254mm "8x10". CUPS takes 127x178mm for 5x7in, which the vocabulary has too: it is not exported.
constexpr PaperSize kSizes[kPaperSizeCount] = {
    {"iso_a5_148x210mm", "A5"},
    {"iso_a4_210x297mm", "A4"},
    {"iso_a3_297x420mm", "A3"},
    {"iso_a2_420x594mm", "A2"},
    {"jis_b5_182x257mm", "B5"},
    {"jis_b4_257x364mm", "B4"},
    {"iso_b3_353x500mm", "ISOB3"},
    {"na_letter_8.5x11in", "Letter"},
    {"na_legal_8.5x14in", "Legal"},
    {"na_ledger_11x17in", "Tabloid"},
    {"jpn_hagaki_100x148mm", "Postcard"},
    {"custom_tolva_200x148mm", "DoublePostcard"},
    {"custom_tolva_329x483mm", "329x483mm"},
    {"custom_tolva_89x127mm", "3.5x5"},
    {"custom_tolva_127x178mm", nullptr},
    {"na_index-4x6_4x6in", "4x6"},
    {"custom_tolva_4x8in", "4x8"},
    {"na_5x7_5x7in", "5x7"},
    {"custom_tolva_17x22in", "AnsiC"},
    {"custom_tolva_101x180mm", "101x180mm"},
    {"custom_tolva_55x91mm", "55x91mm"},
    {"custom_tolva_54x86mm", "54x86mm"},
    {"custom_tolva_98x190mm", "EnvYou6"},
    {"custom_tolva_203x254mm", "8x10"},
    {"custom_tolva_254x304mm", "254x304mm"},
    {"custom_tolva_355x431mm", "355x431mm"},
};

}  // namespace

const PaperSize* PaperSizeOf(int size) {
    return size >= 0 && size < kPaperSizeCount && kSizes[size].ppd ? &kSizes[size] : nullptr;
}

Dimensions DimensionsOf(const PaperSize& size) {
    const char* const last = std::strrchr(size.pwg, '_');
    char* end = nullptr;
    Dimensions dimensions;
    const double width = std::strtod(last + 1, &end);
    const double length = std::strtod(end + 1, &end);
    const double pointsPerUnit = std::strcmp(end, "in") == 0 ? 72.0 : 72.0 / 25.4;
    dimensions.width = width * pointsPerUnit;
    dimensions.length = length * pointsPerUnit;
    return dimensions;
}

std::string FullbleedName(const PaperSize& size) { return std::string(size.ppd) + ".Fullbleed"; }

int HundredthsOfMm(double points) { return static_cast<int>(std::lround(points * 2540.0 / 72.0)); }

}  // namespace mediaexport
