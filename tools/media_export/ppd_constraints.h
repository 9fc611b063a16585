// The PPD's *cupsUIConstraints and *cupsUIResolver lines for the model's constraint plan.
#ifndef MEDIA_EXPORT_PPD_CONSTRAINTS_H
#define MEDIA_EXPORT_PPD_CONSTRAINTS_H

#include <ostream>
#include <string>
#include <vector>

#include "capability_model.h"
#include "ppd_writer.h"

namespace mediaexport {

// keywords: the MediaType choice of each medium; twoSided: the PPD has the two-sided Duplex choices.
// Fills the counts of the summary.
PpdSummary WritePpdConstraints(const PrinterModel& model, const std::vector<std::string>& keywords, bool twoSided,
                               std::ostream& out);

}  // namespace mediaexport

#endif
