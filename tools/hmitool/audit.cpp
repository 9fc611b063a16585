#include "audit.h"

namespace hmitool {

std::vector<Finding> DocumentFindings(const MediumFile& file, MediumFile::Outcome outcome, const std::string& subject,
                                      const std::string& location) {
    std::vector<Finding> findings;
    if (const MediumFile::SyntaxError* error = file.syntaxError()) {
        findings.push_back({"syntax", subject,
                            location + ":" + std::to_string(error->line) + ":" + std::to_string(error->column),
                            error->reason});
    }
    for (const MediumFile::Doubt& doubt : file.doubts()) findings.push_back({"doubt", subject, doubt.path, doubt.finding});
    if (outcome == MediumFile::Outcome::kRejected) {
        const std::string& element = file.rejectedElement();
        findings.push_back({"rejected", subject, element.empty() ? location : element, file.rejectionReason()});
    }
    return findings;
}

}  // namespace hmitool
