// hmitool media PRINTER (or --from-files DIR): the common information and every medium's header;
// with --all, every medium's option cascade instead, and the reason for each medium the library does
// not load.
#include <algorithm>
#include <cstdio>
#include <string>

#include "cascade_writer.h"
#include "command.h"
#include "json_output.h"
#include "media_source.h"

namespace hmitool {
namespace {

void PrintText(const _tagHMICommonInfo& info, const std::vector<WString>& ids, const MediaSource& source) {
    std::printf("format version  %g\n", static_cast<double>(info.db_format_ver));
    std::printf("product id      %s\n", Narrow(info.product_id, 9).c_str());
    std::printf("database time   %s\n", Narrow(info.pop_db_time, 21).c_str());
    std::printf("media           %zu\n\n", ids.size());
    std::printf("%-4s %-32s %-8s %-5s %-7s %s\n", "#", "id", "number", "valid", "visible", "checksum");
    size_t index = 0;
    for (const WString& id : ids) {
        _tagHMIMediaInfoHeader header;
        ++index;
        if (!source.Header(id, &header)) {
            std::printf("%-4zu %-32s (no header)\n", index, Narrow(id.c_str()).c_str());
            continue;
        }
        std::printf("%-4zu %-32s %-8s %-5u %-7d %s\n", index, Narrow(header.id, 65).c_str(),
                    Hex8(header.media_number).c_str(), static_cast<unsigned>(header.valid), header.visible,
                    Narrow(header.checksum, 33).c_str());
    }
}

void PrintMediaJson(const _tagHMICommonInfo& info, const std::vector<WString>& ids, const MediaSource& source) {
    Json media = Json::array();
    for (const WString& id : ids) {
        Json medium = {{"id", Narrow(id.c_str())}};
        _tagHMIMediaInfoHeader header;
        if (source.Header(id, &header)) {
            medium["media_number"] = Hex8(header.media_number);
            medium["valid"] = header.valid;
            medium["visible"] = header.visible;
            medium["checksum"] = Narrow(header.checksum, 33);
        }
        media.push_back(medium);
    }
    PrintJson({{"db_format_ver", info.db_format_ver},
               {"product_id", Narrow(info.product_id, 9)},
               {"pop_db_time", Narrow(info.pop_db_time, 21)},
               {"media", media}});
}

int WriteEveryCascade(const std::string& printerName, const MediaSource& source, bool json) {
    OutlineWriter out(json);
    out.Open("printer", printerName, false);
    int result = kOk;
    size_t unloaded = 0;
    const std::vector<WString> ids = source.MediaIds();
    for (const WString& id : ids) {
        const std::string name = Narrow(id.c_str());
        if (const Detail detail = source.Filter(name)) {
            WriteCascade(out, source.access(), detail.get(), name);
            continue;
        }
        std::string reason;
        result = std::max<int>(result, source.ExplainUnloaded(name, &reason));
        ++unloaded;
        out.Open("medium", name, false);
        out.Scalar("error", reason);
        out.Close();
    }
    out.Close();
    std::fputs(out.str().c_str(), stdout);
    if (unloaded) std::fprintf(stderr, "hmitool: %zu of %zu media not loaded\n", unloaded, ids.size());
    return result;
}

int RunMedia(const std::vector<std::string>& args, const Options& options) {
    const std::unique_ptr<MediaSource> source = OpenMediaSource(args[0], options);
    if (!source) return kUnreadable;
    _tagHMICommonInfo info;
    if (!source->CommonInfo(&info)) {
        std::fprintf(stderr, "hmitool: no common information in '%s'\n", source->DatabaseName().c_str());
        return kUnreadable;
    }
    if (options.all) return WriteEveryCascade(args[0], *source, options.json);
    const std::vector<WString> ids = source->MediaIds();
    if (options.json) {
        PrintMediaJson(info, ids, *source);
    } else {
        PrintText(info, ids, *source);
    }
    return kOk;
}

}  // namespace

HMITOOL_COMMAND("media", "PRINTER",
                "the database's common information and every medium's header; with --all every medium's cascade",
                "media --all samples/sample-printer.reg", RunMedia, kAllOption | kFromFilesOption);

}  // namespace hmitool
