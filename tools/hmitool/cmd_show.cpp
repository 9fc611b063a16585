// hmitool show PRINTER MEDIA_ID (or --from-files DIR MEDIA_ID): a medium's whole option cascade as
// the exports answer it.
#include <cstdio>
#include <string>

#include "cascade_walk.h"
#include "cascade_writer.h"
#include "command.h"
#include "media_source.h"

namespace hmitool {
namespace {

int RunShow(const std::vector<std::string>& args, const Options& options) {
    const std::unique_ptr<MediaSource> source = OpenMediaSource(args[0], options);
    if (!source) return kUnreadable;
    int code = kOk;
    const Detail detail = LoadMedium(*source, args[1], &code);
    if (!detail) return code;
    OutlineWriter out(options.json);
    WriteCascade(out, source->access(), detail.get(), args[1]);
    std::fputs(out.str().c_str(), stdout);
    return kOk;
}

}  // namespace

HMITOOL_COMMAND("show", "PRINTER MEDIA_ID",
                "a medium's option cascade as the library answers it, with the branches reached through \"all\"",
                "show samples/sample-printer.reg TransparencyFilm", RunShow, kFromFilesOption);

}  // namespace hmitool
