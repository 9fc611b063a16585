// hmitool names PRINTER MEDIA_ID [LANG] (or --from-files DIR MEDIA_ID [LANG]): a medium's names, in
// one language or in all stored ones, sorted by language.
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "command.h"
#include "json_output.h"
#include "media_source.h"

namespace hmitool {
namespace {

int RunNames(const std::vector<std::string>& args, const Options& options) {
    const std::unique_ptr<MediaSource> source = OpenMediaSource(args[0], options);
    if (!source) return kUnreadable;
    const std::string& id = args[1];
    std::string error;
    if (!source->NamesReadable(id, &error)) {
        std::fprintf(stderr, "hmitool: %s\n", error.c_str());
        return kUnreadable;
    }
    std::vector<MediumName> names =
        args.size() == 3 ? std::vector<MediumName>{source->Name(id, Widen(args[2]))} : source->AllNames(id);
    // Sorted, as the spoolers enumerate in different orders (written order on Linux, by name under Wine).
    std::sort(names.begin(), names.end(),
              [](const MediumName& a, const MediumName& b) { return a.language < b.language; });
    int missing = 0;
    Json json = Json::object();
    for (const MediumName& name : names) {
        const std::string language = Narrow(name.language.c_str());
        missing += !name.found;
        if (options.json) {
            json[language] = name.found ? Json(Narrow(name.name.c_str())) : Json();
        } else if (name.found) {
            std::printf("%-4s %s\n", language.c_str(), Narrow(name.name.c_str()).c_str());
        } else {
            std::fprintf(stderr, "hmitool: no name in language '%s'\n", language.c_str());
        }
    }
    if (options.json) PrintJson(json);
    if (names.empty()) std::fprintf(stderr, "hmitool: no names stored for '%s'\n", id.c_str());
    return names.empty() || missing ? kRejected : kOk;
}

}  // namespace

HMITOOL_COMMAND("names", "PRINTER MEDIA_ID [LANG]", "a medium's names, in one language or in every stored one",
                "names samples/sample-printer.reg PhotoGlossyPro de", RunNames, kFromFilesOption);

}  // namespace hmitool
