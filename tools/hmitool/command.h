// hmitool subcommands register themselves; main parses the command line and dispatches.
#ifndef HMITOOL_COMMAND_H
#define HMITOOL_COMMAND_H

#include <cstddef>
#include <string>
#include <vector>

namespace hmitool {

// Exit codes: 0 success (for diff: equal), 1 the data was read but is rejected, inconsistent or (for
// diff) different, 2 it could not be read at all (no such printer, unloadable database or document),
// 64 wrong usage, 70 internal error (memory exhausted), 73 the store could not be written, 74 the output could not be written.
enum ExitCode { kOk = 0, kRejected = 1, kUnreadable = 2, kUsage = 64, kInternal = 70, kCannotCreate = 73, kOutputFailed = 74 };

// The options a command may take, beyond --json which every command takes.
enum OptionSet : unsigned {
    kAllOption = 1,            // --all
    kFromFilesOption = 2,      // --from-files DIR in place of the first argument, PRINTER
    kPackOptions = 4,          // --chunk-bytes N, --printer-key NAME, --keep-rejected
    kSvgOption = 8,            // --svg FILE
    kExportOptions = 16,       // -o FILE, --lang LL, --quality-variant V, --strict, --strings DIR
};

struct Options {
    bool json = false;
    bool all = false;             // media: every medium's cascade instead of the headers
    bool fromFiles = false;       // the first argument is a directory of files, not a printer
    size_t chunkBytes = 4096;     // pack: bytes per document chunk
    std::string printerKey;       // pack: write absolute key paths below this printer's registry key
    bool keepRejected = false;    // pack: store media whose document the library rejects
    std::string svgFile;          // graph: render to this file
    std::string outputFile = "-";          // export: where the PPD or attributes go
    std::string language = "en";           // export: the base language
    std::string qualityVariant = "rgb";    // export: the quality list exported
    bool strict = false;                   // export: a rejected medium fails the export
    std::string stringsDirectory;          // export ipp: where the .strings files go
};

struct Command {
    const char* name;
    const char* usage;    // arguments after the name, e.g. "PRINTER MEDIA_ID [LANG]"; counted from it
    const char* summary;  // one line
    const char* example;  // one invocation, shown by the command's --help
    int (*run)(const std::vector<std::string>& args, const Options& options);
    unsigned options = 0;  // OptionSet bits
};

// Adds a command at static-initialisation time; see HMITOOL_COMMAND.
bool RegisterCommand(const Command& command);

// The whole program on a UTF-8 command line (the platform's entry point converts it).
int Main(const std::vector<std::string>& args);

}  // namespace hmitool

#define HMITOOL_COMMAND_CAT2(a, b) a##b
#define HMITOOL_COMMAND_CAT(a, b) HMITOOL_COMMAND_CAT2(a, b)
#define HMITOOL_COMMAND(...) \
    static const bool HMITOOL_COMMAND_CAT(registered_, __LINE__) = ::hmitool::RegisterCommand({__VA_ARGS__})

#endif
