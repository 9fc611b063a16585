// hmitool show PRINTER MEDIA_ID: a medium's whole option cascade as the exports answer it.
#include <cstdio>
#include <string>

#include "cascade_writer.h"
#include "command.h"
#include "database.h"
#include "stored_document.h"

namespace hmitool {
namespace {

int RunShow(const std::vector<std::string>& args, const Options& options) {
    Database db;
    if (!db.Open(args[0])) return kUnreadable;
    HMIXMLMediaDetail* detail = HMIFilterMedia(db.access(), Widen(args[1]).c_str());
    if (!detail) {
        std::string reason;
        const ExitCode code = ExplainUnloadedMedium(db, args[1], &reason);
        std::fprintf(stderr, "hmitool: %s: %s\n", args[1].c_str(), reason.c_str());
        return code;
    }
    OutlineWriter out(options.json);
    WriteCascade(out, db.access(), detail, args[1]);
    std::fputs(out.str().c_str(), stdout);
    return kOk;
}

}  // namespace

HMITOOL_COMMAND("show", "PRINTER MEDIA_ID",
                "a medium's option cascade as the library answers it, with the branches reached through \"all\"",
                RunShow);

}  // namespace hmitool
