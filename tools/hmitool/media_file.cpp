#include "media_file.h"

#include <filesystem>
#include <fstream>

#include "text.h"
#include "xml/hmi_bstr.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_xml_document.h"

namespace hmitool {
namespace {

class Observer final : public HMIXMLRejectionObserver {
public:
    explicit Observer(std::vector<MediumFile::Doubt>* doubts) : doubts_(doubts) {}
    void OnRejected(const WCHAR* path, const WCHAR* reason) override {
        element = Narrow(path);
        this->reason = Narrow(reason);
    }
    void OnDoubtful(const WCHAR* path, const WCHAR* finding) override {
        doubts_->push_back({Narrow(path), Narrow(finding)});
    }
    std::string element;
    std::string reason = "no reason given";

private:
    std::vector<MediumFile::Doubt>* doubts_;
};

bool Readable(const std::string& path) {
    const std::filesystem::path file = std::filesystem::u8path(path);
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) && std::ifstream(file, std::ios::binary).good();
}

// The parser's account of why the last load of document failed.
MediumFile::SyntaxError ParseErrorOf(IXMLDOMDocument2* document) {
    MediumFile::SyntaxError error;
    HMIComPtr<IXMLDOMParseError> parseError;
    BSTR reason = nullptr;
    LONG line = 0, column = 0;
    if (SUCCEEDED(document->get_parseError(parseError.put())) && parseError &&
        SUCCEEDED(parseError->get_line(&line)) && SUCCEEDED(parseError->get_linepos(&column))) {
        parseError->get_reason(&reason);
    }
    error.line = line;
    error.column = column;
    error.reason = reason ? Narrow(reason) : "";
    SysFreeString(reason);
    while (!error.reason.empty() && (error.reason.back() == '\n' || error.reason.back() == '\r')) error.reason.pop_back();
    if (error.reason.empty()) error.reason = "not well-formed";
    return error;
}

}  // namespace

std::string MediumFile::UnreadableMessage(const std::string& path) const {
    if (const SyntaxError* error = syntaxError()) {
        return path + ":" + std::to_string(error->line) + ":" + std::to_string(error->column) +
               ": not well-formed XML: " + error->reason;
    }
    return path + " cannot be read: missing, not a file, or not readable";
}

MediumFile::Outcome MediumFile::Load(const std::string& path) {
    HMIComApartment com;
    if (!com.ok() || !Readable(path)) return Outcome::kUnreadable;
    HMIComPtr<IXMLDOMDocument2> document(HMICreateXMLDocument());
    HMIBSTR source;
    VARIANT_BOOL loaded = VARIANT_FALSE;
    if (!document || !source.assign(Widen(path).c_str())) return Outcome::kUnreadable;
    if (FAILED(document->load(source.var, &loaded)) || loaded == VARIANT_FALSE) {
        syntaxError_ = ParseErrorOf(document.get());
        return Outcome::kUnreadable;
    }
    return Parse(document.get());
}

MediumFile::Outcome MediumFile::Parse(IXMLDOMDocument2* document) {
    Observer rejection(&doubts_);
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
