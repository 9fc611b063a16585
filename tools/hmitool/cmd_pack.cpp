// hmitool pack SOURCES STORE: readable sources made into the printer data a driver's setup writes,
// refused with the reasons when the library would not read every part of them.
#include <cstdio>
#include <filesystem>
#include <string>

#include "command.h"
#include "json_output.h"
#include "pack_sources.h"
#include "printer_store.h"
#include "reg_file.h"

namespace hmitool {
namespace {

int RunPack(const std::vector<std::string>& args, const Options& options) {
    const std::string& sources = args[0];
    const std::string& store = args[1];
    const PackResult packed = PackSources(sources, {options.chunkBytes, options.keepRejected});
    for (const std::string& warning : packed.warnings) std::fprintf(stderr, "hmitool: warning: %s\n", warning.c_str());
    for (const std::string& error : packed.errors) std::fprintf(stderr, "hmitool: %s\n", error.c_str());
    if (!packed.errors.empty()) {
        std::fprintf(stderr, "hmitool: nothing written: %zu error(s) in the sources\n", packed.errors.size());
        return kRejected;
    }
    const std::string origin = std::filesystem::u8path(sources).lexically_normal().filename().u8string();
    const std::string comment = "Made by hmitool pack from " + (origin.empty() ? sources : origin) +
                                "; edit the sources and pack again instead of this file.";
    const WString keyPrefix = options.printerKey.empty() ? WString() : PrinterRegistryKey(options.printerKey);
    std::string error;
    const bool written = IsStoreFileName(store)
                             ? WriteFileReplacing(store, RegFileBytes(packed.image, keyPrefix, comment), &error)
                             : WritePrinterStore(store, packed.image, comment, &error);
    if (!written) {
        std::fprintf(stderr, "hmitool: %s\n", error.c_str());
        return kCannotCreate;
    }
    if (options.json) {
        PrintJson({{"store", store}, {"media", packed.media}, {"chunks", packed.chunks}, {"warnings", packed.warnings}});
    } else {
        std::printf("%s: %zu media, %zu document chunks\n", store.c_str(), packed.media, packed.chunks);
    }
    return kOk;
}

}  // namespace

HMITOOL_COMMAND("pack", "SOURCES STORE",
                "make a printer-data store from a sources directory (database.xml, names/, media/): a .reg "
                "file, as regedit writes one, or (Windows) a printer",
                "pack samples/sample-printer /tmp/sample.reg", RunPack, kPackOptions);

}  // namespace hmitool
