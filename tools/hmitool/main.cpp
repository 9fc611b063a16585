// hmitool: inspect and validate the media databases of printers.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "command.h"
#include "xrvhmi.h"

namespace hmitool {
namespace {

std::vector<Command>& Commands() {
    static std::vector<Command> commands;
    return commands;
}

// The usage with its first word, PRINTER, given as --from-files DIR.
std::string FilesUsage(const Command& command) {
    const char* rest = std::strchr(command.usage, ' ');
    return std::string("--from-files DIR") + (rest ? rest : "");
}

void PrintUsage(FILE* out) {
    std::fprintf(out, "usage: hmitool [--json] [--all] [--from-files DIR] COMMAND ARGS...\n"
                      "       hmitool --version\n\ncommands:\n");
    for (const Command& c : Commands()) {
        std::fprintf(out, "  %s %s\n", c.name, c.usage);
        if (c.readsFiles) std::fprintf(out, "  %s %s\n", c.name, FilesUsage(c).c_str());
        std::fprintf(out, "      %s\n", c.summary);
    }
}

void PrintCommandUsage(const Command& c) {
    std::fprintf(stderr, "usage: hmitool %s %s\n", c.name, c.usage);
    if (c.readsFiles) std::fprintf(stderr, "       hmitool %s %s\n", c.name, FilesUsage(c).c_str());
}

// The argument counts a usage text allows: its words, the bracketed ones optional.
bool ArgumentCountFits(const Command& command, size_t count) {
    size_t required = 0, optional = 0;
    for (const char* p = command.usage; *p;) {
        while (*p == ' ') ++p;
        if (!*p) break;
        (*p == '[' ? optional : required) += 1;
        while (*p && *p != ' ') ++p;
    }
    return count >= required && count <= required + optional;
}

// Output lost to a full disk or a closed pipe is an error, not a success.
int FinishOutput(int code) {
    if (std::fflush(stdout) == 0 && !std::ferror(stdout)) return code;
    std::fprintf(stderr, "hmitool: writing the output failed: %s\n", std::strerror(errno));
    return kOutputFailed;
}

}  // namespace

bool RegisterCommand(const Command& command) {
    Commands().push_back(command);
    std::sort(Commands().begin(), Commands().end(),
              [](const Command& a, const Command& b) { return std::strcmp(a.name, b.name) < 0; });
    return true;
}

}  // namespace hmitool

int main(int argc, char** argv) {
    using namespace hmitool;
    Options options;
    std::vector<std::string> args;
    std::string directory;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--json") == 0) {
            options.json = true;
        } else if (std::strcmp(argv[i], "--from-files") == 0) {
            if (options.fromFiles || i + 1 == argc) {
                std::fprintf(stderr, "hmitool: --from-files takes one DIR\n");
                return kUsage;
            }
            options.fromFiles = true;
            directory = argv[++i];
        } else if (std::strcmp(argv[i], "--all") == 0) {
            options.all = true;
        } else if (std::strcmp(argv[i], "--version") == 0) {
            std::printf("hmitool %s\n", XRVHMI_VERSION_STRING);
            return FinishOutput(kOk);
        } else if (std::strcmp(argv[i], "--help") == 0 || std::strcmp(argv[i], "-h") == 0) {
            PrintUsage(stdout);
            return kOk;
        } else {
            args.emplace_back(argv[i]);
        }
    }
    if (args.empty()) {
        PrintUsage(stderr);
        return kUsage;
    }
    for (const Command& c : Commands()) {
        if (args[0] == c.name) {
            args.erase(args.begin());
            if (options.fromFiles) {
                if (!c.readsFiles) {
                    std::fprintf(stderr, "hmitool: %s does not take --from-files\n", c.name);
                    return kUsage;
                }
                args.insert(args.begin(), directory);
            }
            if (!ArgumentCountFits(c, args.size())) {
                PrintCommandUsage(c);
                return kUsage;
            }
            return FinishOutput(c.run(args, options));
        }
    }
    std::fprintf(stderr, "hmitool: unknown command '%s'\n", args[0].c_str());
    PrintUsage(stderr);
    return kUsage;
}
