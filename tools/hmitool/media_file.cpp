#include "media_file.h"

#include "text.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_xml_document.h"

namespace hmitool {
namespace {

class FirstRejection final : public HMIXMLRejectionObserver {
public:
    void OnRejected(const WCHAR* path, const WCHAR* reason) override {
        element = Narrow(path);
        this->reason = Narrow(reason);
    }
    std::string element;
    std::string reason = "no reason given";
};

}  // namespace

std::string MediumFile::UnreadableMessage(const std::string& path) {
    return path + " cannot be loaded: missing, unreadable, not well-formed XML, or with a DTD";
}

MediumFile::Outcome MediumFile::Load(const std::string& path) {
    HMIComApartment com;
    if (!com.ok()) return Outcome::kUnreadable;
    HMIComPtr<IXMLDOMDocument2> document(HMILoadXMLFile(Widen(path).c_str()));
    if (!document) return Outcome::kUnreadable;
    return Parse(document.get());
}

MediumFile::Outcome MediumFile::Parse(IXMLDOMDocument2* document) {
    FirstRejection rejection;
    detail_ = std::make_unique<HMIXMLMediaDetail>();
    if (detail_->ParseDocument(document, &rejection)) return Outcome::kBuilt;
    detail_.reset();
    rejectedElement_ = rejection.element;
    rejectionReason_ = rejection.reason;
    return Outcome::kRejected;
}

std::string MediumFile::Rejection() const {
    return rejectedElement_.empty() ? rejectionReason_ : rejectedElement_ + ": " + rejectionReason_;
}

ExitCode MediumFile::ExplainUnloaded(Outcome outcome, std::string* reason) const {
    if (outcome == Outcome::kRejected) {
        *reason = "rejected: " + Rejection();
        return kRejected;
    }
    *reason = "the library does not load it, though its document parses";
    return kUnreadable;
}

}  // namespace hmitool
