// hmitool doc PRINTER MEDIA_ID: a medium's media-information document, reassembled from its chunks.
#include <cstdio>
#include <string>

#include "command.h"
#include "json_output.h"
#include "database.h"
#include "stored_document.h"
#include "xml_print.h"

namespace hmitool {
namespace {

int RunDoc(const std::vector<std::string>& args, const Options& options) {
    Database db;
    if (!db.Open(args[0])) return kUnreadable;
    StoredDocument document;
    std::string error;
    if (document.Load(db, args[1], &error) != kOk) {
        std::fprintf(stderr, "hmitool: %s: %s\n", args[1].c_str(), error.c_str());
        return kUnreadable;
    }
    std::string xml;
    if (!PrintXml(document.get(), &xml)) {
        std::fprintf(stderr, "hmitool: the document cannot be walked\n");
        return kUnreadable;
    }
    if (options.json) {
        PrintJson({{"key", document.key()}, {"document", xml}});
    } else {
        std::fputs(xml.c_str(), stdout);
    }
    return kOk;
}

}  // namespace

HMITOOL_COMMAND("doc", "PRINTER MEDIA_ID", "a medium's media-information document, pretty-printed",
                "doc samples/sample-printer.reg PlainPaper", RunDoc);

}  // namespace hmitool
