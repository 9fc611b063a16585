#include "export_reader.h"

namespace hmitool {

std::string ExportReader::Product() const {
    _tagHMICommonInfo info;
    return source_.CommonInfo(&info) ? Narrow(info.product_id, 9) : std::string();
}

bool ExportReader::Entries(std::vector<Entry>* entries, std::string* error) const {
    const std::vector<WString> ids = source_.MediaIds();
    if (ids.empty()) {
        *error = "no media list in " + source_.DatabaseName();
        return false;
    }
    for (const WString& id : ids) {
        _tagHMIMediaInfoHeader header;
        const bool found = source_.Header(id, &header);
        const std::string name = Narrow(id.c_str());
        const auto validSwitch = validSwitches_.find(name);
        const bool valid = validSwitch != validSwitches_.end() ? validSwitch->second : found && header.valid != 0;
        entries->push_back({name, valid, found && header.visible != 0});
    }
    return true;
}

std::vector<mediaexport::MediumName> ExportReader::Names(const std::string& id) const {
    std::vector<mediaexport::MediumName> names;
    for (const MediumName& name : source_.AllNames(id)) {
        if (name.found) names.push_back({Narrow(name.language.c_str()), Narrow(name.name.c_str())});
    }
    return names;
}

HMIXMLMediaDetail* ExportReader::Open(const std::string& id, std::string* reason) const {
    Detail detail = source_.Filter(id);
    if (!detail) {
        source_.ExplainUnloaded(id, reason);
        return nullptr;
    }
    HMIXMLMediaDetail* const raw = detail.get();
    open_.emplace(raw, std::move(detail));
    return raw;
}

}  // namespace hmitool
