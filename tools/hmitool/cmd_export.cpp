// hmitool export ppd|ipp PRINTER (or --from-files DIR): the printer's media for a CUPS queue, as a PPD or
// as IPP printer attributes (the format ippeveprinter -a reads), built from the library's answers alone.
// Media left out, names missing and languages without texts are warnings on stderr; --strict makes a
// rejected medium's document fail the export (exit 1) after writing what could be exported.
#include <cstdio>
#include <filesystem>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "command.h"
#include "database_entries.h"
#include "export_output.h"
#include "export_reader.h"
#include "ipp_writer.h"
#include "media_source.h"
#include "ppd_writer.h"
#include "text_catalogue.h"

namespace hmitool {
namespace {

int Fail(int code, const std::string& message) {
    std::fprintf(stderr, "hmitool: %s\n", message.c_str());
    return code;
}

int WriteStrings(const mediaexport::PrinterModel& model, const Options& options) {
    std::error_code code;
    std::filesystem::create_directories(std::filesystem::u8path(options.stringsDirectory), code);
    for (const std::string& language : mediaexport::ExportLanguages(model, options.language)) {
        std::ostringstream strings;
        mediaexport::WriteIppStrings(model, language, options.language, strings);
        std::string error;
        if (!WriteExport(options.stringsDirectory + "/" + language + ".strings", strings.str(), &error)) {
            return Fail(kOutputFailed, error);
        }
    }
    return kOk;
}

// database.xml's valid switches, for a sources directory; none for a printer.
std::map<std::string, bool> ValidSwitches(const std::string& source, const Options& options) {
    std::map<std::string, bool> switches;
    std::vector<DatabaseEntry> entries;
    WString common[3];
    if (!options.fromFiles || !ReadDatabaseEntries(source + "/database.xml", &entries, common)) return switches;
    for (const DatabaseEntry& entry : entries) switches[Narrow(entry.id.c_str())] = entry.valid == Widen("ON");
    return switches;
}

int RunExport(const std::vector<std::string>& args, const Options& options) {
    const std::string& format = args[0];
    if (format != "ppd" && format != "ipp") return Fail(kUsage, "unknown export format '" + format + "' (ppd or ipp)");
    mediaexport::QualityVariant variant;
    if (!mediaexport::ParseQualityVariant(options.qualityVariant, &variant)) {
        return Fail(kUsage, "unknown --quality-variant '" + options.qualityVariant + "' (rgb, cmyk4d, cmyk1d or index)");
    }
    if (options.language.size() != 2) return Fail(kUsage, "--lang '" + options.language + "' is not a two-letter language");
    const std::unique_ptr<MediaSource> source = OpenMediaSource(args[1], options);
    if (!source) return kUnreadable;
    mediaexport::PrinterModel model;
    const mediaexport::BuildResult built = mediaexport::BuildModel(ExportReader(*source, ValidSwitches(args[1], options)), variant, &model);
    if (!built.ok) return Fail(kUnreadable, built.error);
    for (const std::string& warning : model.warnings) std::fprintf(stderr, "hmitool: warning: %s\n", warning.c_str());
    if (model.media.empty()) return Fail(kRejected, "no exportable medium in " + source->DatabaseName());
    std::ostringstream out;
    std::vector<std::string> warnings;
    if (format == "ppd") {
        mediaexport::WritePpd(model, options.language, out, &warnings);
    } else {
        mediaexport::WriteIppAttributes(model, out, &warnings);
    }
    for (const std::string& warning : warnings) std::fprintf(stderr, "hmitool: warning: %s\n", warning.c_str());
    std::string error;
    if (!WriteExport(options.outputFile, out.str(), &error)) return Fail(kOutputFailed, error);
    if (format == "ipp" && !options.stringsDirectory.empty()) {
        const int code = WriteStrings(model, options);
        if (code != kOk) return code;
    }
    return options.strict && built.rejected > 0 ? kRejected : kOk;
}

}  // namespace

HMITOOL_COMMAND("export", "FORMAT PRINTER",
                "the printer's media for CUPS: FORMAT ppd writes a PPD, ipp the printer attributes ippeveprinter -a "
                "reads (--strings DIR adds the names as LANG.strings files)",
                "export ppd --from-files samples/sample-printer -o sample.ppd", RunExport,
                kFromFilesOption | kExportOptions);

}  // namespace hmitool
