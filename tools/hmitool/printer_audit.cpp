// The whole-printer check of a printer's data: the list and the media keys read as the library reads
// them, then every listed medium through the exports, with the parser's account of its document.
#include <cstring>
#include <map>
#include <set>

#include "audit.h"
#include "database.h"
#include "printerdata/printer_data_read.h"
#include "printerdata/printer_data_values.h"
#include "store_image.h"
#include "stored_document.h"

namespace hmitool {
namespace {

std::string ValueName(int64_t index) { return Narrow(ListValueName(static_cast<size_t>(index)).c_str()); }

std::string ListEntry(int64_t index) { return "list entry " + ValueName(index); }

class PrinterAuditor {
public:
    PrinterAuditor(const Database& db, Audit* audit) : db_(db), printer_(db.printer()), audit_(audit) {}

    void Run() {
        const std::string mediaKey = Narrow(HMI_MEDIA_KEY);
        DWORD count = 0;
        HMIPrinterDataValues values;
        ReadPrinterDataFixed(printer_, HMI_MEDIA_KEY, HMI_W("papertype_info_list"), &count, sizeof count);
        if (count > 0 && !EnumPrinterDataValues(printer_, HMI_MEDIA_KEY, &values)) return;
        std::map<int64_t, WString> listed;  // index -> number text
        for (DWORD i = 0; i < values.count; ++i) {
            const int64_t index = HMIListIndexOf(values.entries()[i].pValueName);
            if (index < 0) continue;
            if (index >= count) {
                DatabaseFinding(mediaKey, ListEntry(index) + " is beyond papertype_info_list (" + std::to_string(count) +
                                       "): not read");
            } else {
                listed.emplace(index, StoredText(values.entries()[i]));
            }
        }
        for (DWORD i = 0; i < count; ++i) {
            if (!listed.count(i)) DatabaseFinding(mediaKey, ListEntry(i) + " is missing (papertype_info_list is " + std::to_string(count) + ")");
        }
        CheckEntries(listed);
        CheckUnusedKeys(mediaKey);
        for (const WString& id : db_.MediaIds()) CheckMedium(Narrow(id.c_str()));
    }

private:
    void DatabaseFinding(const std::string& path, const std::string& message) {
        audit_->findings.push_back({"database", "database", path, message});
    }

    void CheckEntries(const std::map<int64_t, WString>& listed) {
        std::map<WString, int64_t> ids;
        for (const auto& [index, number] : listed) {
            const WString key = WString(HMI_MEDIA_KEY) + HMI_W("\\") + number;
            const auto first = numbers_.emplace(AsciiUpper(number), index);
            if (!first.second) {
                DatabaseFinding(Narrow(key.c_str()), ListEntry(index) + " repeats the number of " + ListEntry(first.first->second));
                continue;
            }
            const std::unique_ptr<WCHAR[]> id = ReadPrinterDataText(printer_, key.c_str(), HMI_W("id"));
            if (!id) {
                DatabaseFinding(Narrow(key.c_str()), ListEntry(index) + " has no readable header (id, valid, visible, checksum)");
                continue;
            }
            const auto repeated = ids.emplace(id.get(), index);
            if (!repeated.second) {
                DatabaseFinding(Narrow(key.c_str()), ListEntry(index) + " repeats the id '" + Narrow(id.get()) + "' of " +
                                                  ListEntry(repeated.first->second) + ": the library keeps the first");
            }
        }
    }

    // Media keys that no list entry names: their documents and names are never read.
    void CheckUnusedKeys(const std::string& mediaKey) {
        DWORD needed = 0;
        DWORD status = EnumPrinterKeyW(printer_, HMI_MEDIA_KEY, nullptr, 0, &needed);
        std::vector<WCHAR> names(needed / sizeof(WCHAR) + 1, 0);
        if (status == ERROR_MORE_DATA) status = EnumPrinterKeyW(printer_, HMI_MEDIA_KEY, names.data(), needed, &needed);
        if (status != ERROR_SUCCESS) {
            audit_->notes.push_back("the spooler does not list the subkeys of " + mediaKey + " (error " +
                                    std::to_string(status) + "): media keys that no entry lists were not looked for");
            return;
        }
        for (const WCHAR* name = names.data(); *name; name += WString(name).size() + 1) {
            if (!numbers_.count(AsciiUpper(name))) {
                DatabaseFinding(mediaKey + "\\" + Narrow(name), "no list entry names it: its document and names are never read");
            }
        }
    }

    void CheckMedium(const std::string& id) {
        ++audit_->media;
        _tagHMIMediaInfoHeader header;
        WCHAR documentKey[HMI_KEY_NAME_CAPACITY], namesKey[HMI_KEY_NAME_CAPACITY];
        if (!HMIGetMediaInfoHeader(db_.access(), Widen(id).c_str(), &header) ||
            !FormatMediumKey(documentKey, header.media_number, HMI_W("HMI")) ||
            !FormatMediumKey(namesKey, header.media_number, HMI_W("HMN"))) {
            return;
        }
        HMIPrinterDataValues names;
        if (!EnumPrinterDataValues(printer_, namesKey, &names)) {
            audit_->findings.push_back({"names", id, Narrow(namesKey), "no names: the key is missing or empty"});
        }
        StoredDocument document;
        std::string error;
        if (document.Load(db_, id, &error) != kOk) {
            audit_->findings.push_back({"document", id, Narrow(documentKey), WhyNoDocument(documentKey)});
            return;
        }
        MediumFile file;
        const MediumFile::Outcome outcome = file.Parse(document.get());
        for (Finding& finding : DocumentFindings(file, outcome, id, Narrow(documentKey))) {
            audit_->findings.push_back(std::move(finding));
        }
    }

    // Why a document does not join: its key, its chunk count or a chunk is missing, or the text is not XML.
    std::string WhyNoDocument(const WCHAR* key) const {
        HMIPrinterDataValues values;
        if (!EnumPrinterDataValues(printer_, key, &values)) return "no document: the key is missing or empty";
        const PRINTER_ENUM_VALUESW* countValue = FindPrinterDataValue(values, HMI_W(""));
        DWORD count = 0;
        if (!countValue || countValue->cbData == 0 || countValue->cbData > sizeof count) {
            return "no chunk count (the unnamed value, 1 to 4 bytes)";
        }
        std::memcpy(&count, countValue->pData, countValue->cbData);
        std::set<int64_t> present;
        for (DWORD i = 0; i < values.count; ++i) present.insert(HMIListIndexOf(values.entries()[i].pValueName));
        std::string missing;
        size_t missingCount = 0;
        for (DWORD i = 0; i < count; ++i) {
            if (present.count(i)) continue;
            if (++missingCount <= 5) missing += (missing.empty() ? "" : ", ") + ValueName(i);
        }
        if (missingCount) {
            return "chunk" + std::string(missingCount > 1 ? "s " : " ") + missing + (missingCount > 5 ? ", ..." : "") +
                   " of " + std::to_string(count) + " missing";
        }
        return "the joined chunks are not well-formed XML";
    }

    const Database& db_;
    HANDLE printer_;
    Audit* audit_;
    std::map<WString, int64_t> numbers_;  // folded number text -> its first list entry
};

}  // namespace

Audit AuditPrinter(const std::string& printer) {
    Audit audit;
    Database db;
    if (!db.Open(printer)) return audit;  // Open said why
    audit.readable = true;
    PrinterAuditor(db, &audit).Run();
    return audit;
}

}  // namespace hmitool
