#include "database_snapshot.h"

#include <cstdio>
#include <filesystem>

#include "cascade_writer.h"
#include "database_entries.h"
#include "media_source.h"

namespace hmitool {
namespace {

namespace fs = std::filesystem;

// A level's step in a path: the value asked, with its level's name where the value alone is unclear.
std::string Step(const std::string& kind, const std::string& name) {
    if (kind == "borderlessprint") return "borderless " + name;
    if (kind.compare(0, 13, "printquality_") == 0) return kind.substr(13) + " quality " + name;
    return name;
}

std::string FieldText(const Json& value) {
    if (value.is_string()) return value.get<std::string>();
    if (value.is_array()) {
        std::string text;
        for (const Json& item : value) text += (text.empty() ? "" : ", ") + FieldText(item);
        return text.empty() ? "(none)" : text;
    }
    if (value.is_object() && value.contains("values")) {
        return FieldText(value["values"]) + " (default " + FieldText(value["default"]) + ")";
    }
    return value.dump();
}

// Every field of an outline node and its children, "path: field" -> text.
void Flatten(const Json& node, const std::string& path, Fields* fields) {
    const std::string here = path.empty() ? "" : path + ": ";
    if (node.value("all", false)) fields->emplace_back(here + "served by", "all");
    if (!node.value("branch", true)) fields->emplace_back(here + "served by", "nothing");
    for (const auto& [key, value] : node.items()) {
        if (key == "kind" || key == "name" || key == "all" || key == "default" || key == "branch" || key == "children") {
            continue;
        }
        fields->emplace_back(here + key, FieldText(value));
    }
    if (!node.contains("children")) return;
    for (const Json& child : node["children"]) {
        const std::string step = Step(child["kind"], child["name"]);
        Flatten(child, path.empty() ? step : path + " / " + step, fields);
    }
}

void Snapshot(const MediaSource& source, const std::map<std::string, DatabaseEntry>& entries, DatabaseSnapshot* out) {
    for (const WString& wide : source.MediaIds()) {
        MediumSnapshot medium;
        medium.id = Narrow(wide.c_str());
        _tagHMIMediaInfoHeader header;
        if (source.Header(wide, &header)) {
            // The File reader gives no number and no valid switch; the entry as written has them.
            const auto entry = entries.find(medium.id);
            const bool fromFile = entry != entries.end();
            medium.header = {{"media_number", fromFile ? Narrow(AsciiUpper(entry->second.number).c_str()) : Hex8(header.media_number)},
                             {"valid", fromFile ? (entry->second.valid == HMI_W("ON") ? "1" : "0") : std::to_string(header.valid)},
                             {"visible", std::to_string(header.visible)},
                             {"checksum", Narrow(header.checksum, 33)}};
        }
        std::string error;
        if (source.NamesReadable(medium.id, &error)) {
            for (const MediumName& name : source.AllNames(medium.id)) {
                if (name.found) medium.names[Narrow(name.language.c_str())] = Narrow(name.name.c_str());
            }
        }
        if (const Detail detail = source.Filter(medium.id)) {
            OutlineWriter outline(true);
            WriteCascade(outline, source.access(), detail.get(), medium.id);
            Flatten(Json::parse(outline.str()), "", &medium.cascade);
        } else {
            std::string reason;
            source.ExplainUnloaded(medium.id, &reason);
            medium.cascade.emplace_back("(not loaded)", reason);
        }
        out->media.push_back(std::move(medium));
    }
}

}  // namespace

bool TakeSnapshot(const std::string& name, DatabaseSnapshot* snapshot) {
    std::error_code error;
    const bool directory = fs::is_directory(fs::u8path(name), error);
    Options options;
    options.fromFiles = directory;
    const std::unique_ptr<MediaSource> source = OpenMediaSource(name, options);
    if (!source) return false;
    _tagHMICommonInfo info;
    if (!source->CommonInfo(&info)) {
        std::fprintf(stderr, "hmitool: no common information in '%s'\n", source->DatabaseName().c_str());
        return false;
    }
    char version[32];
    std::snprintf(version, sizeof version, "%g", static_cast<double>(info.db_format_ver));
    snapshot->common = {{"db_format_ver", version},
                        {"product_id", Narrow(info.product_id, 9)},
                        {"pop_db_time", Narrow(info.pop_db_time, 21)}};
    std::map<std::string, DatabaseEntry> entries;
    std::vector<DatabaseEntry> listed;
    WString common[3];
    if (directory && ReadDatabaseEntries(source->DatabaseName(), &listed, common)) {
        for (DatabaseEntry& entry : listed) entries.emplace(Narrow(entry.id.c_str()), std::move(entry));
    }
    Snapshot(*source, entries, snapshot);
    return true;
}

}  // namespace hmitool
