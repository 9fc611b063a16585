// A media-information file built into its medium's option tree by the library's own parser, with
// the reason of a rejection that the exports never give.
#ifndef HMITOOL_MEDIA_FILE_H
#define HMITOOL_MEDIA_FILE_H

#include <memory>
#include <string>

#include "command.h"
#include "media/media_detail.h"

namespace hmitool {

class MediumFile {
public:
    enum class Outcome { kBuilt, kRejected, kUnreadable };

    // Loads path inside a COM bracket and builds the tree of its first medium.
    Outcome Load(const std::string& path);
    // Builds the tree of the first medium of a loaded document; kBuilt or kRejected.
    Outcome Parse(IXMLDOMDocument2* document);

    static std::string UnreadableMessage(const std::string& path);

    const HMIXMLMediaDetail* detail() const { return detail_.get(); }
    // Set after kRejected: the element, as a path from "medium", and what is wrong with it.
    const std::string& rejectedElement() const { return rejectedElement_; }
    const std::string& rejectionReason() const { return rejectionReason_; }
    // "element: reason", or the reason alone when no element is named.
    std::string Rejection() const;
    // Why the library gives no tree for the medium, whose document loaded and parsed with outcome:
    // kRejected with "rejected: " and the rejection, or kUnreadable when the parser built it.
    ExitCode ExplainUnloaded(Outcome outcome, std::string* reason) const;

private:
    std::unique_ptr<HMIXMLMediaDetail> detail_;
    std::string rejectedElement_;
    std::string rejectionReason_;
};

}  // namespace hmitool

#endif
