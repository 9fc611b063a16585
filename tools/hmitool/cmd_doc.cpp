// hmitool doc PRINTER MEDIA_ID: a medium's media-information document, reassembled from its chunks.
#include <cstdio>
#include <string>

#include "command.h"
#include "database.h"
#include "printerdata/media_info_document.h"
#include "printerdata/printer_data_read.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"
#include "xml_print.h"

namespace hmitool {
namespace {

int RunDoc(const std::vector<std::string>& args, const Options& options) {
    Database db;
    if (!db.Open(args[0])) return kUnreadable;
    _tagHMIMediaInfoHeader header;
    if (!HMIGetMediaInfoHeader(db.access(), Widen(args[1]).c_str(), &header)) {
        std::fprintf(stderr, "hmitool: no medium '%s' in the database of '%s'\n", args[1].c_str(), args[0].c_str());
        return kUnreadable;
    }
    WCHAR key[HMI_KEY_NAME_CAPACITY];
    HMIComApartment com;
    if (!com.ok() || !FormatMediumKey(key, header.media_number, HMI_W("HMI"))) {
        std::fprintf(stderr, "hmitool: COM cannot be initialised\n");
        return kUnreadable;
    }
    HMIComPtr<IXMLDOMDocument2> document(LoadMediaInfoDocument(db.printer(), key));
    if (!document) {
        std::fprintf(stderr,
                     "hmitool: the media-information document under %s is missing, incomplete or not "
                     "well-formed\n",
                     Narrow(key).c_str());
        return kUnreadable;
    }
    std::string xml;
    if (!PrintXml(document.get(), &xml)) {
        std::fprintf(stderr, "hmitool: the document cannot be walked\n");
        return kUnreadable;
    }
    if (options.json) {
        std::printf("{\"key\": %s, \"document\": %s}\n", JsonQuote(Narrow(key)).c_str(), JsonQuote(xml).c_str());
    } else {
        std::fputs(xml.c_str(), stdout);
    }
    return kOk;
}

}  // namespace

HMITOOL_COMMAND("doc", "PRINTER MEDIA_ID", "a medium's media-information document, pretty-printed", RunDoc);

}  // namespace hmitool
