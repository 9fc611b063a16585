// What is wrong with a whole media database, a printer's or a sources directory's: the database itself,
// every medium's document (as check FILE reports it) and its names.
#ifndef HMITOOL_AUDIT_H
#define HMITOOL_AUDIT_H

#include <string>
#include <vector>

#include "media_file.h"

namespace hmitool {

struct Finding {
    std::string kind;     // "database", "document", "names", "syntax", "rejected" or "doubt"
    std::string subject;  // the medium, or "database"
    std::string path;     // the element, key or file the message is about
    std::string message;
};

// A loaded document's findings, as check FILE reports them; location names the document in a syntax error.
std::vector<Finding> DocumentFindings(const MediumFile& file, MediumFile::Outcome outcome, const std::string& subject,
                                      const std::string& location);

struct Audit {
    bool readable = false;  // false: the printer or its database cannot be read at all (reason in error)
    std::string error;
    size_t media = 0;
    std::vector<Finding> findings;
    std::vector<std::string> notes;  // what could not be looked at, and why
};

Audit AuditPrinter(const std::string& printer);
Audit AuditSources(const std::string& directory);

}  // namespace hmitool

#endif
