#include "stored_document.h"

#include "media_file.h"
#include "printerdata/media_info_document.h"
#include "printerdata/printer_data_read.h"

namespace hmitool {

ExitCode StoredDocument::Load(const Database& db, const std::string& mediaId, std::string* error) {
    _tagHMIMediaInfoHeader header;
    if (!HMIGetMediaInfoHeader(db.access(), Widen(mediaId).c_str(), &header)) {
        *error = "no such medium in the paper-type database";
        return kUnreadable;
    }
    WCHAR key[HMI_KEY_NAME_CAPACITY];
    if (!com_.ok() || !FormatMediumKey(key, header.media_number, HMI_W("HMI"))) {
        *error = "COM cannot be initialised";
        return kUnreadable;
    }
    key_ = Narrow(key);
    *document_.put() = LoadMediaInfoDocument(db.printer(), key);
    if (!document_) {
        *error = "the media-information document under " + key_ + " is missing, incomplete or not well-formed";
        return kUnreadable;
    }
    return kOk;
}

ExitCode ExplainUnloadedMedium(const Database& db, const std::string& mediaId, std::string* reason) {
    StoredDocument document;
    const ExitCode loaded = document.Load(db, mediaId, reason);
    if (loaded != kOk) return loaded;
    MediumFile medium;
    return medium.ExplainUnloaded(medium.Parse(document.get()), reason);
}

}  // namespace hmitool
