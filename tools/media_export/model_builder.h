// Builds the capability model from the library's answers, through its exports only.
#ifndef MEDIA_EXPORT_MODEL_BUILDER_H
#define MEDIA_EXPORT_MODEL_BUILDER_H

#include <string>
#include <vector>

#include "capability_model.h"

namespace mediaexport {

// Where the answers come from: a printer's data or a directory of files, opened by the caller.
class MediaReader {
public:
    virtual ~MediaReader() = default;

    struct Entry {
        std::string id;  // UTF-8
        bool valid = false;
        bool visible = false;
    };

    virtual HMIAccess* access() const = 0;
    virtual std::string Product() const = 0;
    // The database's media in list order; false with a one-line reason when it cannot be read.
    virtual bool Entries(std::vector<Entry>* entries, std::string* error) const = 0;
    // The names the library can read, in stored order.
    virtual std::vector<MediumName> Names(const std::string& id) const = 0;
    // The medium's tree, or null with the reason in one line; a tree from Open goes back to Close.
    virtual HMIXMLMediaDetail* Open(const std::string& id, std::string* reason) const = 0;
    virtual void Close(HMIXMLMediaDetail* detail) const = 0;
};

struct BuildResult {
    bool ok = false;        // false: the database could not be read (error says why)
    std::string error;
    size_t rejected = 0;    // media whose document the library does not load
};

// Media that are not valid or not visible are left out silently; media whose document does not load,
// that offer no complete combination, or that support none of the paper sizes are left out with a
// warning naming them.
BuildResult BuildModel(const MediaReader& reader, QualityVariant variant, PrinterModel* model);

// The text with control characters as '?', for a one-line message.
std::string PrintableText(const std::string& text);

// The cascade of one loaded medium (exposed for tests that build trees of their own).
Node WalkMedium(HMIAccess* access, HMIXMLMediaDetail* detail, QualityVariant variant, _tagHMIMediaInfo* info);

}  // namespace mediaexport

#endif
