// A media database as the library answers for it, flattened for comparison: the common information,
// and per medium its header, its names by language and every field of its cascade under the level
// path that leads to it.
#ifndef HMITOOL_DATABASE_SNAPSHOT_H
#define HMITOOL_DATABASE_SNAPSHOT_H

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace hmitool {

using Fields = std::vector<std::pair<std::string, std::string>>;  // in the order they were read

struct MediumSnapshot {
    std::string id;
    Fields header;                             // media_number, valid, visible, checksum
    std::map<std::string, std::string> names;  // language -> name
    Fields cascade;  // "color / borderless ON / photo / rgb quality 3: bit" -> "8"; or "(not loaded)" -> why
};

struct DatabaseSnapshot {
    Fields common;
    std::vector<MediumSnapshot> media;
};

// name: a directory of sources, else a printer. False (the reason printed) when it cannot be read.
bool TakeSnapshot(const std::string& name, DatabaseSnapshot* snapshot);

}  // namespace hmitool

#endif
