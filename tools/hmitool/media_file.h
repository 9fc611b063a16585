// A media-information file built into its medium's option tree by the library's own parser, with
// the reason of a rejection that the exports never give.
#ifndef HMITOOL_MEDIA_FILE_H
#define HMITOOL_MEDIA_FILE_H

#include <memory>
#include <string>
#include <vector>

#include "command.h"
#include "media/media_detail.h"

namespace hmitool {

class MediumFile {
public:
    enum class Outcome { kBuilt, kRejected, kUnreadable };

    // Something the library accepts that is probably a mistake, at the path of a value element or
    // attribute (from "medium").
    struct Doubt {
        std::string path, finding;
    };
    // Where a document is not well-formed XML (or is refused by the parser, as for a DTD).
    struct SyntaxError {
        long line = 0, column = 0;
        std::string reason;
    };

    // Loads path inside a COM bracket and builds the tree of its first medium; kUnreadable when the
    // file cannot be read or (with syntaxError() set) is not well-formed.
    Outcome Load(const std::string& path);
    // Builds the tree of the first medium of a loaded document; kBuilt or kRejected.
    Outcome Parse(IXMLDOMDocument2* document);

    // Why Load answered kUnreadable: the syntax error with its position, or that the file cannot be read.
    std::string UnreadableMessage(const std::string& path) const;
    const SyntaxError* syntaxError() const { return syntaxError_.reason.empty() ? nullptr : &syntaxError_; }
    // What the parser doubted while building, in document order; complete only for a built medium.
    const std::vector<Doubt>& doubts() const { return doubts_; }

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
    SyntaxError syntaxError_;
    std::vector<Doubt> doubts_;
};

}  // namespace hmitool

#endif
