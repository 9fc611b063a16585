// A medium's media-information document as the printer data stores it, reassembled from its chunks,
// for what the exports cannot say: the document itself, and why the library rejects it.
#ifndef HMITOOL_STORED_DOCUMENT_H
#define HMITOOL_STORED_DOCUMENT_H

#include <string>

#include "command.h"
#include "database.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"

namespace hmitool {

class StoredDocument {
public:
    // kOk, or kUnreadable with error set: no such medium, no COM, or a missing, incomplete or
    // not well-formed document.
    ExitCode Load(const Database& db, const std::string& mediaId, std::string* error);

    IXMLDOMDocument2* get() const { return document_.get(); }
    // The printer-data key the document was read from.
    const std::string& key() const { return key_; }

private:
    HMIComApartment com_;  // outlives the document
    HMIComPtr<IXMLDOMDocument2> document_;
    std::string key_;
};

// Why HMIFilterMedia gives nothing for mediaId: the parser's rejection (kRejected) or why the
// document cannot be read (kUnreadable), in one line.
ExitCode ExplainUnloadedMedium(const Database& db, const std::string& mediaId, std::string* reason);

}  // namespace hmitool

#endif
