// The export component's reader over a media source: the printer's data or a sources directory.
#ifndef HMITOOL_EXPORT_READER_H
#define HMITOOL_EXPORT_READER_H

#include <map>
#include <string>
#include <utility>

#include "media_source.h"
#include "model_builder.h"

namespace hmitool {

class ExportReader final : public mediaexport::MediaReader {
public:
    // The File readers give no valid switch (a header from a file says 4): for a sources directory,
    // validSwitches holds database.xml's ("ON" or not) by id.
    ExportReader(const MediaSource& source, std::map<std::string, bool> validSwitches)
        : source_(source), validSwitches_(std::move(validSwitches)) {}

    HMIAccess* access() const override { return source_.access(); }
    std::string Product() const override;
    bool Entries(std::vector<Entry>* entries, std::string* error) const override;
    std::vector<mediaexport::MediumName> Names(const std::string& id) const override;
    HMIXMLMediaDetail* Open(const std::string& id, std::string* reason) const override;
    void Close(HMIXMLMediaDetail* detail) const override { open_.erase(detail); }

private:
    const MediaSource& source_;
    const std::map<std::string, bool> validSwitches_;
    mutable std::map<HMIXMLMediaDetail*, Detail> open_;
};

}  // namespace hmitool

#endif
