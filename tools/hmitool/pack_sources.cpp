#include "pack_sources.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>

#include "database_entries.h"
#include "media_file.h"
#include "media_source.h"
#include "printerdata/printer_data_read.h"

namespace hmitool {
namespace {

namespace fs = std::filesystem;

bool ReadBytes(const fs::path& path, std::string* bytes) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return false;
    std::ifstream in(path, std::ios::binary);
    bytes->assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    return !in.bad();
}

bool IsHexNumber(const WString& text) {
    if (text.size() != 8) return false;
    for (WCHAR c : text) {
        if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'))) return false;
    }
    return true;
}

// ON or OFF as the header's 1 or 0; anything else is refused rather than guessed.
bool Switch(const WString& text, uint32_t* value) {
    if (text == HMI_W("ON") || text == HMI_W("OFF")) {
        *value = text == HMI_W("ON");
        return true;
    }
    return false;
}

class Packer {
public:
    Packer(const std::string& directory, const PackSettings& settings)
        : directory_(fs::u8path(directory)), settings_(settings) {}

    PackResult Run() {
        const std::string database = File("database.xml");
        std::unique_ptr<MediaSource> source = OpenFileSource(directory_.u8string());
        std::vector<DatabaseEntry> entries;
        WString common[3];
        _tagHMICommonInfo info;
        if (!source) {
            Error(directory_.u8string(), "no sources directory");
        } else if (!source->CommonInfo(&info) || !ReadDatabaseEntries(database, &entries, common)) {
            Error(database, "the library cannot read its common information (db_format_ver, product_id, "
                            "pop-db-time: present, and within 8 and 19 characters)");
        } else if (entries.empty()) {
            Error(database, "lists no medium");
        } else {
            PackDatabase(*source, entries, common);
        }
        if (!result_.errors.empty()) result_.image.clear();
        return std::move(result_);
    }

private:
    std::string File(const std::string& relative) const {
        return (directory_ / fs::u8path(relative)).make_preferred().u8string();
    }
    void Error(const std::string& file, const std::string& reason) { result_.errors.push_back(file + ": " + reason); }

    void PackDatabase(const MediaSource& source, const std::vector<DatabaseEntry>& entries, const WString* common) {
        const std::string database = File("database.xml");
        StoreKey media{HMI_MEDIA_KEY, {}};
        media.Text(HMI_W("db_format_ver"), common[0]);
        media.Text(HMI_W("product_id"), common[1]);
        media.Text(HMI_W("pop-db-time"), common[2]);
        media.Dword(HMI_W("papertype_info_list"), static_cast<uint32_t>(entries.size()));
        std::vector<WString> listed = source.MediaIds();
        std::set<WString> ids, numbers;
        StoreImage mediaKeys;
        for (size_t i = 0; i < entries.size(); ++i) {
            const DatabaseEntry& entry = entries[i];
            const std::string where = "medium '" + Narrow(entry.id.c_str()) + "'";
            _tagHMIMediaInfoHeader header;
            uint32_t valid = 0, visible = 0;
            if (i >= listed.size() || listed[i] != entry.id || !source.Header(entry.id, &header)) {
                Error(database, where + ": the library does not read its entry (an id of 1 to 64 characters, "
                                        "visible ON or OFF, a checksum of up to 32 characters)");
            } else if (!IsHexNumber(entry.number)) {
                Error(database, where + ": media_number '" + Narrow(entry.number.c_str()) + "' is not 8 hex digits");
            } else if (!Switch(entry.valid, &valid) || !Switch(entry.visible, &visible)) {
                Error(database, where + ": valid and visible must be ON or OFF");
            } else if (!ids.insert(AsciiUpper(entry.id)).second) {
                Error(database, where + ": listed twice (ids compare without case, as printer-data keys do)");
            } else if (!numbers.insert(AsciiUpper(entry.number)).second) {
                Error(database, where + ": media_number " + Narrow(entry.number.c_str()) + " is used twice");
            } else {
                const WString number = AsciiUpper(entry.number);
                media.Text(ListValueName(i), number);
                PackMedium(source, entry, number, valid, visible, &mediaKeys);
            }
        }
        result_.image.push_back(std::move(media));
        for (StoreKey& key : mediaKeys) result_.image.push_back(std::move(key));
        result_.media = entries.size();
    }

    void PackMedium(const MediaSource& source, const DatabaseEntry& entry, const WString& number, uint32_t valid,
                    uint32_t visible, StoreImage* keys) {
        const std::string id = Narrow(entry.id.c_str());
        const WString key = WString(HMI_MEDIA_KEY) + HMI_W("\\") + number;
        StoreKey header{key, {}};
        header.Text(HMI_W("id"), entry.id);
        header.Dword(HMI_W("valid"), valid);
        header.Dword(HMI_W("visible"), visible);
        header.Text(HMI_W("checksum"), entry.checksum);
        keys->push_back(std::move(header));
        StoreKey document{key + HMI_W("\\HMI"), {}};
        if (PackDocument(id, &document)) keys->push_back(std::move(document));
        StoreKey names{key + HMI_W("\\HMN"), {}};
        if (PackNames(source, id, &names)) keys->push_back(std::move(names));
    }

    bool PackDocument(const std::string& id, StoreKey* key) {
        const std::string path = File("media/" + id + ".xml");
        std::string bytes, error;
        std::vector<uint8_t> text;
        MediumFile file;
        const MediumFile::Outcome outcome = file.Load(path);
        if (outcome == MediumFile::Outcome::kUnreadable) {
            result_.errors.push_back(file.UnreadableMessage(path));
            return false;
        }
        if (outcome == MediumFile::Outcome::kRejected) {
            const std::string message = path + ": rejected by the library: " + file.Rejection();
            if (!settings_.keepRejected) {
                result_.errors.push_back(message + " (--keep-rejected stores it anyway)");
                return false;
            }
            result_.warnings.push_back(message);
        }
        if (!ReadBytes(fs::u8path(path), &bytes) || !DocumentUtf16(bytes, &text, &error)) {
            Error(path, error.empty() ? "cannot be read" : error);
            return false;
        }
        const size_t count = (text.size() + settings_.chunkBytes - 1) / settings_.chunkBytes;
        key->Dword(HMI_W(""), static_cast<uint32_t>(count));
        for (size_t i = 0; i < count; ++i) {
            const auto begin = text.begin() + static_cast<std::ptrdiff_t>(i * settings_.chunkBytes);
            const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(text.size(), (i + 1) * settings_.chunkBytes));
            key->Binary(ListValueName(i), std::vector<uint8_t>(begin, end));
        }
        result_.chunks += count;
        return true;
    }

    // The names the list reader reads (in no namespace) must be those the single-name reader reads.
    bool PackNames(const MediaSource& source, const std::string& id, StoreKey* key) {
        const std::string path = File("names/" + id + ".xml");
        std::string error;
        if (!source.NamesReadable(id, &error)) {
            result_.errors.push_back(error);
            return false;
        }
        const std::vector<MediumName> names = source.AllNames(id);
        if (names.empty()) Error(path, "no medianame_item (in no namespace) with a language and a name");
        std::set<WString> languages;
        for (const MediumName& name : names) {
            const std::string language = Narrow(name.language.c_str());
            const MediumName single = source.Name(id, name.language);
            if (!languages.insert(AsciiUpper(name.language)).second) {
                Error(path, "language '" + language + "' twice");
            } else if (!single.found || single.name != name.name) {
                Error(path, "the name in '" + language + "' differs between iv:medianame_item and medianame_item");
            } else {
                key->Text(name.language, name.name);
            }
        }
        return !names.empty();
    }

    fs::path directory_;
    PackSettings settings_;
    PackResult result_;
};

}  // namespace

bool DocumentUtf16(const std::string& bytes, std::vector<uint8_t>* utf16, std::string* error) {
    WString text;
    if (bytes.size() >= 2 && bytes[0] == '\xFF' && bytes[1] == '\xFE') {
        if (bytes.size() % 2) {
            *error = "UTF-16 text ends in the middle of a character";
            return false;
        }
        text = FromUtf16Le(reinterpret_cast<const uint8_t*>(bytes.data()) + 2, bytes.size() / 2 - 1);
    } else {
        const bool bom = bytes.compare(0, 3, "\xEF\xBB\xBF") == 0;
        const std::string utf8 = bytes.substr(bom ? 3 : 0);
        std::smatch declared;
        static const std::regex kEncoding(R"(^<\?xml[^>]*encoding\s*=\s*["']([^"']*)["'])", std::regex::icase);
        static const std::regex kUtf8("utf-?8", std::regex::icase);
        const std::string head = utf8.substr(0, 200);
        if (std::regex_search(head, declared, kEncoding) && !std::regex_match(declared[1].str(), kUtf8)) {
            *error = "encoding '" + declared[1].str() + "': pack takes UTF-8 or UTF-16 sources";
            return false;
        }
        if (!IsUtf8(utf8)) {
            *error = "not valid UTF-8";
            return false;
        }
        text = Widen(utf8);
    }
    static const std::basic_regex<char> kDeclaration(R"(^<\?xml[^>]*\?>)");
    const std::string head = Narrow(text.substr(0, std::min<size_t>(text.size(), 200)).c_str());
    std::smatch declaration;
    if (std::regex_search(head, declaration, kDeclaration)) {
        text = Widen("<?xml version=\"1.0\" encoding=\"UTF-16\"?>") + text.substr(Widen(declaration[0].str()).size());
    }
    const std::string bytesLe = Utf16LeBytes(text);
    utf16->assign(bytesLe.begin(), bytesLe.end());
    return true;
}

PackResult PackSources(const std::string& directory, const PackSettings& settings) {
    return Packer(directory, settings).Run();
}

}  // namespace hmitool
