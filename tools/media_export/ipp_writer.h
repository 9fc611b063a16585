// The capability model as IPP printer attributes, in the ipptool ATTR syntax that `ippeveprinter -a`
// reads, and the media names as printer-strings files.
#ifndef MEDIA_EXPORT_IPP_WRITER_H
#define MEDIA_EXPORT_IPP_WRITER_H

#include <ostream>
#include <string>
#include <vector>

#include "capability_model.h"

namespace mediaexport {

// media-type keywords of the model's media, in model order: PlainMediaType of the id (ipp_keywords.h),
// and where that is no keyword or an earlier medium's, the same ("media-" before it when it is no
// keyword) with '-' and 8 hexadecimal digits of a hash of the id; every keyword distinct.
std::vector<std::string> IppMediaTypes(const PrinterModel& model);

// IPP print-quality (3 draft, 4 normal, 5 high) of a print quality level (tagHMI_PRINTQUALITY): levels 1
// and 2 are high, 3 normal, 4 and 5 draft; 0 for a value outside the vocabulary.
int IppPrintQuality(int level);

struct IppSummary {
    size_t constraints = 0;  // members of job-constraints-supported
    size_t collections = 0;  // members of media-col-database
};

// A complete printer description: ippeveprinter serves it and ipptool's get-printer-attributes.test
// passes on it. What ippeveprinter adds itself (document-format-*, media-col-supported,
// job-creation-attributes-supported, ...) is left out, since a second copy fails that test. warnings
// names media whose keyword carries a hash.
IppSummary WriteIppAttributes(const PrinterModel& model, std::ostream& out, std::vector<std::string>* warnings);

// The printer-strings file (CUPS ".strings" format) of one language: media-type and the vendor
// attributes' values with their texts; a name missing in language falls back as MediumText does.
void WriteIppStrings(const PrinterModel& model, const std::string& language, const std::string& base,
                     std::ostream& out);

}  // namespace mediaexport

#endif
