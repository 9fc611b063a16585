// hmitool check FILE: what in a media-information file the library rejects, what it accepts but is
// probably a mistake, and where the XML itself is broken.
#include <cstdio>
#include <string>
#include <vector>

#include "command.h"
#include "json_output.h"
#include "media_file.h"
#include "text.h"

namespace hmitool {
namespace {

struct Finding {
    std::string kind;  // "syntax", "rejected" or "doubt"
    std::string path;  // the element, or for a syntax error "FILE:LINE:COLUMN"
    std::string message;
};

std::vector<Finding> FindingsOf(const MediumFile& file, MediumFile::Outcome outcome, const std::string& path) {
    std::vector<Finding> findings;
    if (const MediumFile::SyntaxError* error = file.syntaxError()) {
        findings.push_back({"syntax", path + ":" + std::to_string(error->line) + ":" + std::to_string(error->column),
                            error->reason});
    }
    for (const MediumFile::Doubt& doubt : file.doubts()) findings.push_back({"doubt", doubt.path, doubt.finding});
    if (outcome == MediumFile::Outcome::kRejected) {
        const std::string& element = file.rejectedElement();
        findings.push_back({"rejected", element.empty() ? path : element, file.rejectionReason()});
    }
    return findings;
}

int RunCheck(const std::vector<std::string>& args, const Options& options) {
    MediumFile file;
    const MediumFile::Outcome outcome = file.Load(args[0]);
    if (outcome == MediumFile::Outcome::kUnreadable && !file.syntaxError()) {
        std::fprintf(stderr, "hmitool: %s\n", file.UnreadableMessage(args[0]).c_str());
        return kUnreadable;
    }
    const std::vector<Finding> findings = FindingsOf(file, outcome, args[0]);
    if (options.json) {
        Json list = Json::array();
        for (const Finding& f : findings) list.push_back({{"kind", f.kind}, {"path", f.path}, {"message", f.message}});
        PrintJson({{"accepted", outcome == MediumFile::Outcome::kBuilt}, {"findings", list}});
    } else {
        for (const Finding& f : findings) {
            std::printf("%s: %s%s\n", f.path.c_str(), f.kind == "doubt" ? "" : (f.kind + ": ").c_str(), f.message.c_str());
        }
        if (findings.empty()) std::puts("ok");
    }
    return findings.empty() ? kOk : kRejected;
}

}  // namespace

HMITOOL_COMMAND("check", "FILE",
                "what the library rejects in a media-information file, what looks like a mistake, and XML errors",
                "check samples/sample-printer/media/PlainPaper.xml", RunCheck);

}  // namespace hmitool
