// The capability model as a PPD 4.3 file for CUPS.
#ifndef MEDIA_EXPORT_PPD_WRITER_H
#define MEDIA_EXPORT_PPD_WRITER_H

#include <ostream>
#include <string>
#include <vector>

#include "capability_model.h"
#include "ppd_text.h"

namespace mediaexport {

struct PpdSummary {
    size_t constraints = 0;  // *cupsUIConstraints lines
    size_t resolvers = 0;    // *cupsUIResolver lines, each shared by the constraints that resolve alike
    size_t languages = 0;
};

// Writes the PPD with texts in base and a translation for every other language of ExportLanguages;
// warnings tells of languages the catalogue lacks and names missing in a listed language.
PpdSummary WritePpd(const PrinterModel& model, const std::string& base, std::ostream& out,
                    std::vector<std::string>* warnings);

}  // namespace mediaexport

#endif
