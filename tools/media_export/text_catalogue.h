// Texts of the fixed options and their choices in the languages we translate (en, de, fr, ja), and the
// languages an export lists.
#ifndef MEDIA_EXPORT_TEXT_CATALOGUE_H
#define MEDIA_EXPORT_TEXT_CATALOGUE_H

#include <string>
#include <vector>

#include "capability_model.h"

namespace mediaexport {

// Keys: an option ("ColorModel") or an option's choice ("ColorModel.RGB"): PageSize, PageRegion, Borderless (the
// word added to a whole-sheet size), MediaType, ColorModel.{RGB,Gray}, PrintPurpose.{photo,proof,cad},
// PrintQualityLevel.{1..5}, InputSlot.{AUTO,MANUAL03,asf,manual,DISCTRAY},
// Cartridge.{color,bk,photo,bkcolor,photocolor,auto}, Duplex.{None,DuplexNoTumble,DuplexTumble}.
// UTF-8 text; a language the catalogue lacks gets the English text. Null for an unknown key.
const char* FixedText(const std::string& key, const std::string& language);
bool CatalogueHas(const std::string& language);

// The languages an export lists: base first, then every other language a medium's name is stored in, in
// order of first appearance. Languages are two lowercase letters; others are left out.
std::vector<std::string> ExportLanguages(const PrinterModel& model, const std::string& base);

// The medium's name in language, else in base, else its id; *missing tells which fell back.
std::string MediumText(const Medium& medium, const std::string& language, const std::string& base,
                       bool* missing);

}  // namespace mediaexport

#endif
