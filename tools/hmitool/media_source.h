// Where media and their names come from: a printer's data, asked through the exports of a handle
// opened on the printer, or a directory of files (database.xml, names/ID.xml, media/ID.xml) asked
// through the File exports of a handle opened without one. Both answer in the same records.
#ifndef HMITOOL_MEDIA_SOURCE_H
#define HMITOOL_MEDIA_SOURCE_H

#include <memory>
#include <string>
#include <vector>

#include "command.h"
#include "text.h"
#include "xrvhmi.h"

namespace hmitool {

struct MediumName {
    WString language;
    bool found = false;
    WString name;
};

// A medium's tree, closed on destruction when the caller owns it (read from a file).
struct DetailCloser {
    HMIAccess* access = nullptr;
    bool owned = false;
    void operator()(HMIXMLMediaDetail* detail) const {
        if (owned) HMICloseMediaFile(access, detail);
    }
};
using Detail = std::unique_ptr<HMIXMLMediaDetail, DetailCloser>;

class MediaSource {
public:
    virtual ~MediaSource() = default;

    // For the queries on a detail and its nodes.
    virtual HMIAccess* access() const = 0;
    // What the common information and the media list are read from, for messages.
    virtual std::string DatabaseName() const = 0;

    virtual bool CommonInfo(_tagHMICommonInfo* info) const = 0;
    // Empty when the list cannot be read.
    virtual std::vector<WString> MediaIds() const = 0;
    virtual bool Header(const WString& id, _tagHMIMediaInfoHeader* header) const = 0;

    // False with a one-line error when the medium's names cannot be read at all.
    virtual bool NamesReadable(const std::string& id, std::string* error) const = 0;
    // Every stored language in the source's order; a language whose name cannot be read is not found.
    virtual std::vector<MediumName> AllNames(const std::string& id) const = 0;
    virtual MediumName Name(const std::string& id, const WString& language) const = 0;

    // Null when the library does not load the medium; ExplainUnloaded then says why.
    virtual Detail Filter(const std::string& id) const = 0;
    // The parser's rejection (kRejected) or why the document cannot be read (kUnreadable), in one line.
    virtual ExitCode ExplainUnloaded(const std::string& id, std::string* reason) const = 0;
};

// Each prints the reason to stderr and gives null when its source cannot be opened.
std::unique_ptr<MediaSource> OpenPrinterSource(const std::string& printerName);
std::unique_ptr<MediaSource> OpenFileSource(const std::string& directory);
// The printer named, or with options.fromFiles the directory.
std::unique_ptr<MediaSource> OpenMediaSource(const std::string& name, const Options& options);

}  // namespace hmitool

#endif
