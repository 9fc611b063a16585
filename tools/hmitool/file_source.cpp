// Media from a directory laid out as the sample printer's sources: database.xml, names/ID.xml and
// media/ID.xml, read by the File exports through a handle opened without a printer.
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "media_file.h"
#include "media_source.h"
#include "sized_read.h"
#include "xml/hmi_com_apartment.h"
#include "xml/hmi_com_ptr.h"
#include "xml/hmi_xml_document.h"

namespace hmitool {
namespace {

namespace fs = std::filesystem;

bool XmlFileLoads(const std::string& path) {
    HMIComApartment com;
    if (!com.ok()) return false;
    HMIComPtr<IXMLDOMDocument2> document(HMILoadXMLFile(Widen(path).c_str()));
    return static_cast<bool>(document);
}

class FileSource final : public MediaSource {
public:
    FileSource(const std::string& directory, HMIAccess* access)
        : directory_(fs::u8path(directory).make_preferred()), database_(Widen((directory_ / "database.xml").u8string())),
          access_(access) {}
    ~FileSource() override { HMIClose(access_); }

    HMIAccess* access() const override { return access_; }
    std::string DatabaseName() const override { return Narrow(database_.c_str()); }

    bool CommonInfo(_tagHMICommonInfo* info) const override {
        return HMIGetCommonInfoFile(access_, database_.c_str(), info);
    }
    std::vector<WString> MediaIds() const override {
        return ReadMediaIds([this](_tagHMIAvailableMedia* buffer, size_t bytes, size_t* required) {
            return HMIGetAvailableMediaFile(access_, database_.c_str(), buffer, bytes, required);
        });
    }
    bool Header(const WString& id, _tagHMIMediaInfoHeader* header) const override {
        return HMIGetMediaInfoHeaderFile(access_, database_.c_str(), id.c_str(), header);
    }

    bool NamesReadable(const std::string& id, std::string* error) const override {
        const std::string path = Path("names", id);
        if (XmlFileLoads(path)) return true;
        *error = path + " cannot be loaded: missing, unreadable, not well-formed XML, or with a DTD";
        return false;
    }

    std::vector<MediumName> AllNames(const std::string& id) const override {
        std::vector<MediumName> names;
        const WString path = Widen(Path("names", id));
        std::vector<uint64_t> block;
        const auto* list = ReadSizedRecord<_tagHMIMediaNameList>(
            &block, [&](_tagHMIMediaNameList* buffer, size_t bytes, size_t* required) {
                return HMIEnumMediaNamesFile(access_, path.c_str(), buffer, bytes, required);
            });
        if (!list) return names;
        for (uint64_t i = 0; i < list->count; ++i) {
            const _tagHMIMediaName& entry = list->names[i];
            names.push_back({WString(entry.language), true, WString(entry.name)});
        }
        return names;
    }

    MediumName Name(const std::string& id, const WString& language) const override {
        const WString path = Widen(Path("names", id));
        MediumName name{language, false, {}};
        name.found = ReadSizedText(
            [&](WCHAR* buffer, size_t chars, size_t* required) {
                return HMIGetMediaNameFile(access_, path.c_str(), language.c_str(), buffer, chars, required);
            },
            &name.name);
        return name;
    }

    // The caller owns the tree.
    Detail Filter(const std::string& id) const override {
        return Detail(HMIFilterMediaFile(access_, Widen(id).c_str(), Widen(Path("media", id)).c_str()),
                      DetailCloser{access_, true});
    }
    ExitCode ExplainUnloaded(const std::string& id, std::string* reason) const override {
        const std::string path = Path("media", id);
        MediumFile medium;
        const MediumFile::Outcome outcome = medium.Load(path);
        if (outcome != MediumFile::Outcome::kUnreadable) return medium.ExplainUnloaded(outcome, reason);
        *reason = medium.UnreadableMessage(path);
        return kUnreadable;
    }

private:
    // Concatenated, not appended: an id that reads as an absolute path stays inside the folder.
    std::string Path(const char* folder, const std::string& id) const {
        fs::path path = directory_ / folder;
        path += fs::path::preferred_separator;
        path += fs::u8path(id + ".xml");
        return path.u8string();
    }

    fs::path directory_;
    WString database_;
    HMIAccess* access_;
};

}  // namespace

std::unique_ptr<MediaSource> OpenFileSource(const std::string& directory) {
    std::error_code error;
    if (!fs::is_directory(fs::u8path(directory), error)) {
        std::fprintf(stderr, "hmitool: no directory '%s'\n", directory.c_str());
        return nullptr;
    }
    HMIAccess* access = HMIOpen(nullptr);
    if (!access) {
        std::fprintf(stderr, "hmitool: no access handle can be opened\n");
        return nullptr;
    }
    return std::make_unique<FileSource>(directory, access);
}

}  // namespace hmitool
