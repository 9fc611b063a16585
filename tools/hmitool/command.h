// hmitool subcommands register themselves; main dispatches on the first argument.
#ifndef HMITOOL_COMMAND_H
#define HMITOOL_COMMAND_H

#include <string>
#include <vector>

namespace hmitool {

// Exit codes: 0 success, 1 the data was read but is rejected or inconsistent, 2 it could not be
// read at all (no such printer, unloadable database or document), 64 wrong usage, 74 the output
// could not be written.
enum ExitCode { kOk = 0, kRejected = 1, kUnreadable = 2, kUsage = 64, kOutputFailed = 74 };

struct Options {
    bool json = false;
    bool all = false;        // media: every medium's cascade instead of the headers
    bool fromFiles = false;  // the first argument is a directory of files, not a printer
};

struct Command {
    const char* name;
    const char* usage;    // arguments after the name, e.g. "PRINTER MEDIA_ID [LANG]"; counted from it
    const char* summary;  // one line
    int (*run)(const std::vector<std::string>& args, const Options& options);
    bool readsFiles = false;  // "--from-files DIR" may stand for the first argument, PRINTER
};

// Adds a command at static-initialisation time; see HMITOOL_COMMAND.
bool RegisterCommand(const Command& command);

}  // namespace hmitool

#define HMITOOL_COMMAND_CAT2(a, b) a##b
#define HMITOOL_COMMAND_CAT(a, b) HMITOOL_COMMAND_CAT2(a, b)
#define HMITOOL_COMMAND(...) \
    static const bool HMITOOL_COMMAND_CAT(registered_, __LINE__) = ::hmitool::RegisterCommand({__VA_ARGS__})

#endif
