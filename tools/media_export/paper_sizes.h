// The paper sizes of the library's vocabulary (_tagHMI_PAPERSIZE 0 .. 25) as CUPS names them.
#ifndef MEDIA_EXPORT_PAPER_SIZES_H
#define MEDIA_EXPORT_PAPER_SIZES_H

#include <string>

namespace mediaexport {

constexpr int kPaperSizeCount = 26;

struct PaperSize {
    const char* pwg;  // the vocabulary's keyword, a PWG self-describing name
    const char* ppd;  // the PPD name cupstestppd expects for the dimensions: Adobe's, else dimensional
};

struct Dimensions {
    double width = 0;  // points
    double length = 0;
};

// Null for a number outside the vocabulary and for a size that is not exported.
const PaperSize* PaperSizeOf(int size);

// The dimensions a PWG self-describing name ends with ("_210x297mm", "_8.5x11in").
Dimensions DimensionsOf(const PaperSize& size);

// The whole-sheet variant's PPD name: "A4.Fullbleed".
std::string FullbleedName(const PaperSize& size);

// Hundredths of millimetres, as IPP's media-size members give them.
int HundredthsOfMm(double points);

}  // namespace mediaexport

#endif
