// The whole check of a sources directory: what pack would refuse, every document as check FILE reports
// it, and files that no listed medium uses.
#include <filesystem>
#include <set>

#include "audit.h"
#include "media_source.h"
#include "pack_sources.h"

namespace hmitool {
namespace {

namespace fs = std::filesystem;

void CheckUnusedFiles(const fs::path& directory, const std::set<std::string>& ids, Audit* audit) {
    for (const char* folder : {"media", "names"}) {
        std::error_code error;
        for (const fs::directory_entry& entry : fs::directory_iterator(directory / folder, error)) {
            const fs::path file = entry.path();
            if (file.extension() == ".xml" && !ids.count(file.stem().u8string())) {
                audit->findings.push_back({"database", "database", (fs::path(folder) / file.filename()).u8string(),
                                           "no listed medium uses it"});
            }
        }
    }
}

}  // namespace

Audit AuditSources(const std::string& directory) {
    Audit audit;
    const std::unique_ptr<MediaSource> source = OpenFileSource(directory);
    if (!source) return audit;  // OpenFileSource said why
    _tagHMICommonInfo info;
    if (!source->CommonInfo(&info)) {
        audit.error = source->DatabaseName() + ": the library cannot read its common information";
        return audit;
    }
    audit.readable = true;
    PackSettings settings;
    settings.keepRejected = true;  // rejections are reported below, with the doubts
    for (const std::string& error : PackSources(directory, settings).errors) {
        audit.findings.push_back({"database", "database", "", error});
    }
    std::set<std::string> ids;
    const fs::path root = fs::u8path(directory);
    for (const WString& wide : source->MediaIds()) {
        const std::string id = Narrow(wide.c_str());
        ids.insert(id);
        ++audit.media;
        MediumFile file;
        const std::string path = (root / "media" / fs::u8path(id + ".xml")).make_preferred().u8string();
        const MediumFile::Outcome outcome = file.Load(path);
        if (outcome == MediumFile::Outcome::kUnreadable) continue;  // pack's errors have it
        for (Finding& finding : DocumentFindings(file, outcome, id, path)) audit.findings.push_back(std::move(finding));
    }
    CheckUnusedFiles(root, ids, &audit);
    return audit;
}

}  // namespace hmitool
