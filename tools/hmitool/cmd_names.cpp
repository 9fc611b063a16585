// hmitool names PRINTER MEDIA_ID [LANG]: a medium's names, in one language or in all stored ones.
#include <cstdio>
#include <string>
#include <vector>

#include "command.h"
#include "database.h"
#include "printerdata/printer_data_values.h"
#include "printerdata/printer_data_read.h"

namespace hmitool {
namespace {

// Through the export, as a driver asks: probe, then copy.
bool ReadName(const Database& db, const WString& id, const WString& language, WString* name) {
    size_t required = 0;
    if (HMIGetMediaName(db.access(), id.c_str(), language.c_str(), nullptr, 0, &required) || required == 0) {
        return false;
    }
    std::vector<WCHAR> buffer(required + 1, 0);
    if (!HMIGetMediaName(db.access(), id.c_str(), language.c_str(), buffer.data(), required, &required)) return false;
    *name = buffer.data();
    return true;
}

// The stored languages: the value names of the medium's name key.
std::vector<WString> Languages(const Database& db, DWORD mediaNumber) {
    std::vector<WString> languages;
    HMIPrinterDataValues values;
    WCHAR key[HMI_KEY_NAME_CAPACITY];
    if (!FormatMediumKey(key, mediaNumber, HMI_W("HMN")) || !EnumPrinterDataValues(db.printer(), key, &values)) {
        return languages;
    }
    for (DWORD i = 0; i < values.count; ++i) {
        if (values.entries()[i].pValueName) languages.emplace_back(values.entries()[i].pValueName);
    }
    return languages;
}

int RunNames(const std::vector<std::string>& args, const Options& options) {
    Database db;
    if (!db.Open(args[0])) return kUnreadable;
    const WString id = Widen(args[1]);
    _tagHMIMediaInfoHeader header;
    if (!HMIGetMediaInfoHeader(db.access(), id.c_str(), &header)) {
        std::fprintf(stderr, "hmitool: no medium '%s' in the database of '%s'\n", args[1].c_str(), args[0].c_str());
        return kUnreadable;
    }
    const std::vector<WString> languages =
        args.size() == 3 ? std::vector<WString>{Widen(args[2])} : Languages(db, header.media_number);
    int missing = 0;
    const char* separator = "";
    if (options.json) std::printf("{");
    for (const WString& language : languages) {
        WString name;
        const bool found = ReadName(db, id, language, &name);
        missing += !found;
        if (options.json) {
            std::printf("%s\n  %s: %s", separator, JsonQuote(Narrow(language.c_str())).c_str(),
                        found ? JsonQuote(Narrow(name.c_str())).c_str() : "null");
            separator = ",";
        } else if (found) {
            std::printf("%-4s %s\n", Narrow(language.c_str()).c_str(), Narrow(name.c_str()).c_str());
        } else {
            std::fprintf(stderr, "hmitool: no name in language '%s'\n", Narrow(language.c_str()).c_str());
        }
    }
    if (options.json) std::printf("\n}\n");
    if (languages.empty()) std::fprintf(stderr, "hmitool: no names stored for '%s'\n", args[1].c_str());
    return languages.empty() || missing ? kRejected : kOk;
}

}  // namespace

HMITOOL_COMMAND("names", "PRINTER MEDIA_ID [LANG]", "a medium's names, in one language or in every stored one",
                RunNames);

}  // namespace hmitool
