// Media from a printer's data, through a handle opened on the printer.
#include "database.h"
#include "media_source.h"
#include "printerdata/printer_data_read.h"
#include "printerdata/printer_data_values.h"
#include "sized_read.h"
#include "stored_document.h"

namespace hmitool {
namespace {

class PrinterSource final : public MediaSource {
public:
    bool Open(const std::string& printerName) {
        name_ = printerName;
        return db_.Open(printerName);
    }

    HMIAccess* access() const override { return db_.access(); }
    std::string DatabaseName() const override { return name_; }

    bool CommonInfo(_tagHMICommonInfo* info) const override { return HMIGetCommonInfo(db_.access(), info); }
    std::vector<WString> MediaIds() const override { return db_.MediaIds(); }
    bool Header(const WString& id, _tagHMIMediaInfoHeader* header) const override {
        return HMIGetMediaInfoHeader(db_.access(), id.c_str(), header);
    }

    bool NamesReadable(const std::string& id, std::string* error) const override {
        _tagHMIMediaInfoHeader header;
        if (Header(Widen(id), &header)) return true;
        *error = "no medium '" + id + "' in the database of '" + name_ + "'";
        return false;
    }

    // The stored languages are the value names of the medium's name key.
    std::vector<MediumName> AllNames(const std::string& id) const override {
        std::vector<MediumName> names;
        _tagHMIMediaInfoHeader header;
        HMIPrinterDataValues values;
        WCHAR key[HMI_KEY_NAME_CAPACITY];
        if (!Header(Widen(id), &header) || !FormatMediumKey(key, header.media_number, HMI_W("HMN")) ||
            !EnumPrinterDataValues(db_.printer(), key, &values)) {
            return names;
        }
        for (DWORD i = 0; i < values.count; ++i) {
            if (values.entries()[i].pValueName) names.push_back(Name(id, values.entries()[i].pValueName));
        }
        return names;
    }

    MediumName Name(const std::string& id, const WString& language) const override {
        const WString wideId = Widen(id);
        MediumName name{language, false, {}};
        name.found = ReadSizedText(
            [&](WCHAR* buffer, size_t chars, size_t* required) {
                return HMIGetMediaName(db_.access(), wideId.c_str(), language.c_str(), buffer, chars, required);
            },
            &name.name);
        return name;
    }

    // The handle's cache owns the tree.
    Detail Filter(const std::string& id) const override {
        return Detail(HMIFilterMedia(db_.access(), Widen(id).c_str()), DetailCloser{db_.access(), false});
    }
    ExitCode ExplainUnloaded(const std::string& id, std::string* reason) const override {
        return ExplainUnloadedMedium(db_, id, reason);
    }

private:
    Database db_;
    std::string name_;
};

}  // namespace

std::unique_ptr<MediaSource> OpenPrinterSource(const std::string& printerName) {
    auto source = std::make_unique<PrinterSource>();
    if (!source->Open(printerName)) return nullptr;
    return source;
}

}  // namespace hmitool
