// hmitool coverage PRINTER (or --from-files DIR): which media have a name in which language, as a
// table of media by languages with the gaps marked and each language's share of named media.
#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "command.h"
#include "media_source.h"

namespace hmitool {
namespace {

struct Row {
    std::string id;
    std::set<std::string> named;  // languages with a name
};

int RunCoverage(const std::vector<std::string>& args, const Options& options) {
    const std::unique_ptr<MediaSource> source = OpenMediaSource(args[0], options);
    if (!source) return kUnreadable;
    const std::vector<WString> ids = source->MediaIds();
    if (ids.empty()) {
        std::fprintf(stderr, "hmitool: %s lists no media\n", source->DatabaseName().c_str());
        return kUnreadable;
    }
    std::vector<Row> rows;
    std::map<std::string, size_t> named;  // media with a name, by language; sorted, as on every platform
    for (const WString& id : ids) {
        Row row{Narrow(id.c_str()), {}};
        std::string error;
        if (source->NamesReadable(row.id, &error)) {
            for (const MediumName& name : source->AllNames(row.id)) {
                const std::string language = Narrow(name.language.c_str());
                named[language] += name.found;
                if (name.found) row.named.insert(language);
            }
        }
        rows.push_back(row);
    }
    size_t width = 8;
    for (const Row& row : rows) width = std::max(width, row.id.size());
    bool gaps = false;
    if (options.json) std::printf("{\"languages\": {");
    else std::printf("%-*s", static_cast<int>(width), "medium");
    const auto share = [&](size_t count) { return 100.0 * static_cast<double>(count) / static_cast<double>(rows.size()); };
    const char* separator = "";
    for (const auto& [language, count] : named) {
        gaps = gaps || count < rows.size();
        if (options.json) std::printf("%s%s: %.1f", separator, JsonQuote(language).c_str(), share(count)), separator = ", ";
        else std::printf(" %5s", language.c_str());
    }
    std::printf(options.json ? "}, \"missing\": {" : "\n");
    separator = "";
    for (const Row& row : rows) {
        gaps = gaps || row.named.empty();
        std::string missing;
        if (!options.json) std::printf("%-*s", static_cast<int>(width), row.id.c_str());
        for (const auto& entry : named) {
            const std::string& language = entry.first;
            const bool has = row.named.count(language) != 0;
            if (!options.json) std::printf(" %5s", has ? "x" : "-");
            if (!has) missing += std::string(missing.empty() ? "" : ", ") + JsonQuote(language);
        }
        if (options.json && !missing.empty()) {
            std::printf("%s%s: [%s]", separator, JsonQuote(row.id).c_str(), missing.c_str()), separator = ", ";
        }
        if (!options.json) std::printf("\n");
    }
    if (options.json) {
        std::printf("}}\n");
    } else {
        std::printf("%-*s", static_cast<int>(width), "named %");
        for (const auto& entry : named) std::printf(" %5.0f", share(entry.second));
        std::printf("\n");
    }
    return gaps ? kRejected : kOk;
}

}  // namespace

HMITOOL_COMMAND("coverage", "PRINTER",
                "which media have a name in which language, gaps marked (exit 1 when there are gaps)", RunCoverage, true);

}  // namespace hmitool
