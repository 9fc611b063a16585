// hmitool coverage PRINTER (or --from-files DIR): which media have a name in which language, as a
// table of media by languages with the gaps marked and each language's share of named media.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "command.h"
#include "json_output.h"
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
    const auto share = [&](size_t count) {
        return std::round(1000.0 * static_cast<double>(count) / static_cast<double>(rows.size())) / 10;
    };
    bool gaps = false;
    for (const auto& entry : named) gaps = gaps || entry.second < rows.size();
    for (const Row& row : rows) gaps = gaps || row.named.empty();
    if (options.json) {
        Json languages = Json::object(), missing = Json::object();
        for (const auto& [language, count] : named) languages[language] = share(count);
        for (const Row& row : rows) {
            for (const auto& entry : named) {
                if (!row.named.count(entry.first)) missing[row.id].push_back(entry.first);
            }
        }
        PrintJson({{"languages", languages}, {"missing", missing}});
        return gaps ? kRejected : kOk;
    }
    size_t width = 8;
    for (const Row& row : rows) width = std::max(width, row.id.size());
    std::printf("%-*s", static_cast<int>(width), "medium");
    for (const auto& entry : named) std::printf(" %5s", entry.first.c_str());
    std::printf("\n");
    for (const Row& row : rows) {
        std::printf("%-*s", static_cast<int>(width), row.id.c_str());
        for (const auto& entry : named) std::printf(" %5s", row.named.count(entry.first) ? "x" : "-");
        std::printf("\n");
    }
    std::printf("%-*s", static_cast<int>(width), "named %");
    for (const auto& entry : named) std::printf(" %5.0f", share(entry.second));
    std::printf("\n");
    return gaps ? kRejected : kOk;
}

}  // namespace

HMITOOL_COMMAND("coverage", "PRINTER",
                "which media have a name in which language, gaps marked (exit 1 when there are gaps)", 
                "coverage samples/sample-printer.reg", RunCoverage, kFromFilesOption);

}  // namespace hmitool
