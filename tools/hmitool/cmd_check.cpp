// hmitool check FILE: what in a media-information file the library rejects, what it accepts but is
// probably a mistake, and where the XML itself is broken. hmitool check PRINTER (or --from-files DIR):
// the same for every medium of a media database, with the database's own faults; identical findings
// of several media are folded into one line.
#include <cstdio>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "audit.h"
#include "command.h"
#include "json_output.h"

namespace hmitool {
namespace {

bool IsDocumentFile(const std::string& name) {
    return name.size() > 4 && (name.compare(name.size() - 4, 4, ".xml") == 0 || name.compare(name.size() - 4, 4, ".XML") == 0);
}

std::string Line(const Finding& f) {
    const bool kindSaid = f.kind == "doubt" || f.kind == f.subject;  // a doubt goes without a word
    return (f.path.empty() ? "" : f.path + ": ") + (kindSaid ? "" : f.kind + ": ") + f.message;
}

int CheckFile(const std::string& path, const Options& options) {
    MediumFile file;
    const MediumFile::Outcome outcome = file.Load(path);
    if (outcome == MediumFile::Outcome::kUnreadable && !file.syntaxError()) {
        std::fprintf(stderr, "hmitool: %s\n", file.UnreadableMessage(path).c_str());
        return kUnreadable;
    }
    const std::vector<Finding> findings = DocumentFindings(file, outcome, path, path);
    if (options.json) {
        Json list = Json::array();
        for (const Finding& f : findings) list.push_back({{"kind", f.kind}, {"path", f.path}, {"message", f.message}});
        PrintJson({{"accepted", outcome == MediumFile::Outcome::kBuilt}, {"findings", list}});
    } else {
        for (const Finding& f : findings) std::printf("%s\n", Line(f).c_str());
        if (findings.empty()) std::puts("ok");
    }
    return findings.empty() ? kOk : kRejected;
}

// Findings that differ only in their medium, in the order of their first appearance.
struct Folded {
    Finding finding;
    std::vector<std::string> subjects;
};

std::vector<Folded> Fold(const std::vector<Finding>& findings) {
    std::vector<Folded> folded;
    std::map<std::tuple<std::string, std::string, std::string>, size_t> index;
    for (const Finding& f : findings) {
        const auto [it, added] = index.emplace(std::make_tuple(f.kind, f.path, f.message), folded.size());
        if (added) folded.push_back({f, {}});
        folded[it->second].subjects.push_back(f.subject);
    }
    return folded;
}

std::string Subjects(const std::vector<std::string>& subjects) {
    std::string out;
    for (size_t i = 0; i < subjects.size() && i < 5; ++i) out += (i ? ", " : "") + subjects[i];
    return subjects.size() > 5 ? out + ", ..." : out;
}

int CheckDatabase(const std::string& name, const Options& options) {
    const Audit audit = options.fromFiles ? AuditSources(name) : AuditPrinter(name);
    if (!audit.readable) {
        if (!audit.error.empty()) std::fprintf(stderr, "hmitool: %s\n", audit.error.c_str());
        return kUnreadable;
    }
    const std::vector<Folded> folded = Fold(audit.findings);
    for (const std::string& note : audit.notes) std::fprintf(stderr, "hmitool: note: %s\n", note.c_str());
    if (options.json) {
        Json list = Json::array();
        for (const Folded& f : folded) {
            list.push_back({{"kind", f.finding.kind}, {"path", f.finding.path}, {"message", f.finding.message},
                            {"count", f.subjects.size()}, {"subjects", f.subjects}});
        }
        PrintJson({{"media", audit.media}, {"findings", list}, {"notes", audit.notes}});
    } else {
        for (const Folded& f : folded) {
            if (f.subjects.size() == 1) {
                std::printf("%s: %s\n", f.subjects[0].c_str(), Line(f.finding).c_str());
            } else {
                std::printf("%zu media: %s (%s)\n", f.subjects.size(), Line(f.finding).c_str(),
                            Subjects(f.subjects).c_str());
            }
        }
        std::printf("%zu media checked, %zu finding%s\n", audit.media, audit.findings.size(),
                    audit.findings.size() == 1 ? "" : "s");
    }
    return audit.findings.empty() ? kOk : kRejected;
}

int RunCheck(const std::vector<std::string>& args, const Options& options) {
    if (!options.fromFiles && IsDocumentFile(args[0])) return CheckFile(args[0], options);
    return CheckDatabase(args[0], options);
}

}  // namespace

HMITOOL_COMMAND("check", "TARGET",
                "a media-information file (TARGET ending in .xml) or a whole printer's media database: what the "
                "library rejects, what looks like a mistake, XML errors, and the database's own faults",
                "check samples/sample-printer.reg", RunCheck, kFromFilesOption);

}  // namespace hmitool
