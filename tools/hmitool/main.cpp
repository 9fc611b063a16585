// hmitool: inspect and validate the media databases of printers.
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "command.h"

namespace hmitool {
namespace {

std::vector<Command>& Commands() {
    static std::vector<Command> commands;
    return commands;
}

void PrintUsage(FILE* out) {
    std::fprintf(out, "usage: hmitool [--json] [--all] COMMAND ARGS...\n\ncommands:\n");
    for (const Command& c : Commands()) std::fprintf(out, "  %s %s\n      %s\n", c.name, c.usage, c.summary);
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
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--json") == 0) {
            options.json = true;
        } else if (std::strcmp(argv[i], "--all") == 0) {
            options.all = true;
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
            if (!ArgumentCountFits(c, args.size())) {
                std::fprintf(stderr, "usage: hmitool %s %s\n", c.name, c.usage);
                return kUsage;
            }
            return c.run(args, options);
        }
    }
    std::fprintf(stderr, "hmitool: unknown command '%s'\n", args[0].c_str());
    PrintUsage(stderr);
    return kUsage;
}
