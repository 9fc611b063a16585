// hmitool diff A B: what differs between two media databases, each a printer (a store file on Linux)
// or a sources directory: the common information, media added, removed and reordered, and per medium
// its header, its names and its cascade, level path by level path.
#include <algorithm>
#include <cstdio>
#include <optional>
#include <map>
#include <set>
#include <string>

#include "command.h"
#include "database_snapshot.h"
#include "json_output.h"

namespace hmitool {
namespace {

struct Difference {
    std::string medium;  // empty for the database
    std::string what;    // the field, with its path
    std::optional<std::string> a;  // none: absent from A
    std::optional<std::string> b;
};

class Differ {
public:
    void Fields(const std::string& medium, const std::string& prefix, const hmitool::Fields& a, const hmitool::Fields& b) {
        std::map<std::string, std::string> inB(b.begin(), b.end());
        std::set<std::string> inA;
        for (const auto& [field, value] : a) {
            inA.insert(field);
            const auto other = inB.find(field);
            if (other == inB.end()) {
                Add(medium, prefix + field, value, std::nullopt);
            } else if (other->second != value) {
                Add(medium, prefix + field, value, other->second);
            }
        }
        for (const auto& [field, value] : b) {
            if (!inA.count(field)) Add(medium, prefix + field, std::nullopt, value);
        }
    }

    void Media(const std::vector<MediumSnapshot>& a, const std::vector<MediumSnapshot>& b) {
        std::map<std::string, const MediumSnapshot*> inB;
        for (const MediumSnapshot& m : b) inB.emplace(m.id, &m);
        std::vector<std::string> commonA, commonB;
        for (const MediumSnapshot& m : a) {
            const auto other = inB.find(m.id);
            if (other == inB.end()) {
                Add(m.id, "medium", "present", std::nullopt);
                continue;
            }
            commonA.push_back(m.id);
            Fields(m.id, "header ", m.header, other->second->header);
            Fields(m.id, "name ", Listed(m.names), Listed(other->second->names));
            Fields(m.id, "", m.cascade, other->second->cascade);
        }
        std::set<std::string> inA(commonA.begin(), commonA.end());
        for (const MediumSnapshot& m : b) {
            if (inA.count(m.id)) commonB.push_back(m.id);
            else Add(m.id, "medium", std::nullopt, "present");
        }
        for (size_t i = 0; i < commonA.size(); ++i) {
            if (commonA[i] == commonB[i]) continue;
            const size_t j = std::find(commonB.begin(), commonB.end(), commonA[i]) - commonB.begin();
            Add(commonA[i], "position among the common media", std::to_string(i + 1), std::to_string(j + 1));
        }
    }

    const std::vector<Difference>& differences() const { return differences_; }

private:
    static hmitool::Fields Listed(const std::map<std::string, std::string>& names) {
        return hmitool::Fields(names.begin(), names.end());
    }
    void Add(const std::string& medium, const std::string& what, std::optional<std::string> a,
             std::optional<std::string> b) {
        differences_.push_back({medium, what, a, b});
    }

    std::vector<Difference> differences_;
};

std::string Quoted(const std::optional<std::string>& value) { return value ? "\"" + *value + "\"" : "(absent)"; }

void PrintText(const std::vector<Difference>& differences) {
    for (const Difference& d : differences) {
        const std::string subject = d.medium.empty() ? "database" : d.medium;
        if (d.what == "medium") {
            std::printf("%s: %s\n", subject.c_str(), d.a ? "only in A (removed)" : "only in B (added)");
        } else if (d.what.compare(0, 8, "position") == 0) {
            std::printf("%s: reordered: %s %s -> %s\n", subject.c_str(), d.what.c_str(), d.a->c_str(), d.b->c_str());
        } else {
            std::printf("%s / %s: %s -> %s\n", subject.c_str(), d.what.c_str(), Quoted(d.a).c_str(), Quoted(d.b).c_str());
        }
    }
}

int RunDiff(const std::vector<std::string>& args, const Options& options) {
    DatabaseSnapshot a, b;
    if (!TakeSnapshot(args[0], &a) || !TakeSnapshot(args[1], &b)) return kUnreadable;
    Differ differ;
    differ.Fields("", "", a.common, b.common);
    differ.Media(a.media, b.media);
    const std::vector<Difference>& differences = differ.differences();
    if (options.json) {
        Json list = Json::array();
        for (const Difference& d : differences) {
            list.push_back({{"medium", d.medium.empty() ? Json() : Json(d.medium)}, {"what", d.what},
                            {"a", d.a ? Json(*d.a) : Json()}, {"b", d.b ? Json(*d.b) : Json()}});
        }
        PrintJson({{"equal", differences.empty()}, {"differences", list}});
    } else {
        PrintText(differences);
    }
    return differences.empty() ? kOk : kRejected;
}

}  // namespace

HMITOOL_COMMAND("diff", "A B",
                "what differs between two media databases, each a printer or a sources directory: common "
                "information, media added, removed and reordered, headers, names, and every cascade field by "
                "level path (exit 1 when they differ)",
                "diff samples/sample-printer samples/sample-printer.reg", RunDiff);

}  // namespace hmitool
