// hmitool: inspect, check, compare and pack the media databases of printers.
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "command.h"
#include "xrvhmi.h"

namespace hmitool {
namespace {

const char kExitCodes[] =
    "exit codes:\n"
    "  0   success; for check, coverage and diff: nothing found, the two are equal\n"
    "  1   read, but rejected, inconsistent, incomplete or (diff) different\n"
    "  2   cannot be read: no such printer, store, directory, file or medium\n"
    "  64  wrong usage\n"
    "  73  the store cannot be written (an existing store is left as it was)\n"
    "  70  internal error, such as memory exhausted\n"
    "  74  the output cannot be written\n";

std::vector<Command>& Commands() {
    static std::vector<Command> commands;
    return commands;
}

std::vector<std::string> UsageWords(const Command& command) {
    std::vector<std::string> words;
    std::string word;
    for (const char* p = command.usage;; ++p) {
        if (*p == ' ' || !*p) {
            if (!word.empty()) words.push_back(word);
            word.clear();
            if (!*p) return words;
        } else {
            word += *p;
        }
    }
}

// The argument counts a usage text allows: its words, the bracketed ones optional.
bool ArgumentCountFits(const Command& command, size_t count) {
    size_t required = 0, optional = 0;
    for (const std::string& word : UsageWords(command)) (word[0] == '[' ? optional : required) += 1;
    return count >= required && count <= required + optional;
}

// Where PRINTER stands among the usage words: the word so named, else the first.
size_t PrinterPosition(const Command& command) {
    const std::vector<std::string> words = UsageWords(command);
    const auto at = std::find(words.begin(), words.end(), "PRINTER");
    return at == words.end() ? 0 : static_cast<size_t>(at - words.begin());
}

// The usage with its PRINTER given as --from-files DIR.
std::string FilesUsage(const Command& command) {
    std::vector<std::string> words = UsageWords(command);
    words[PrinterPosition(command)] = "--from-files DIR";
    std::string usage;
    for (const std::string& word : words) usage += (usage.empty() ? "" : " ") + word;
    return usage;
}

std::string CommandUsage(const Command& c) {
    std::string usage = std::string("usage: hmitool ") + c.name + " " + c.usage + "\n";
    if (c.options & kFromFilesOption) usage += std::string("       hmitool ") + c.name + " " + FilesUsage(c) + "\n";
    return usage;
}

void PrintCommandUsage(const Command& c) { std::fputs(CommandUsage(c).c_str(), stderr); }

// The summary over the usage, as the command's --help shows it.
std::string CommandDescription(const Command& c) {
    std::string usage = CommandUsage(c);
    usage.pop_back();
    return std::string(c.summary) + "\n" + usage;
}

// Output lost to a full disk or a closed pipe is an error, not a success.
int FinishOutput(int code) {
    if (std::fflush(stdout) == 0 && !std::ferror(stdout)) return code;
    std::fprintf(stderr, "hmitool: writing the output failed: %s\n", std::strerror(errno));
    return kOutputFailed;
}

// A command's help shows the usage in its description (CLI11 would show every positional as optional).
class HelpFormatter final : public CLI::Formatter {
public:
    std::string make_usage(const CLI::App* app, std::string name) const override {
        return app->get_parent() ? std::string() : CLI::Formatter::make_usage(app, std::move(name));
    }
};

// One command's part of the command line: its positional words in order, and its options.
struct Invocation {
    const Command* command = nullptr;
    CLI::App* app = nullptr;
    std::vector<std::unique_ptr<std::string>> words;
    std::vector<CLI::Option*> positionals;
    std::string directory;
};

void DefineOptions(Invocation& in, Options& options) {
    const Command& c = *in.command;
    CLI::App& sub = *in.app;
    sub.add_flag("--json", options.json, "write JSON instead of text");
    if (c.options & kAllOption) sub.add_flag("--all", options.all, "every medium's option cascade");
    if (c.options & kFromFilesOption) {
        sub.add_option("--from-files", in.directory, "read database.xml, names/ and media/ in DIR instead of PRINTER")
            ->type_name("DIR");
    }
    if (c.options & kPackOptions) {
        sub.add_option("--chunk-bytes", options.chunkBytes, "bytes per document chunk")
            ->capture_default_str()
            ->check(CLI::Range(size_t{1}, size_t{1} << 20));
        sub.add_option("--printer-key", options.printerKey,
                       "write absolute key paths below the registry key of printer NAME (for regedit)")
            ->type_name("NAME");
        sub.add_flag("--keep-rejected", options.keepRejected,
                     "store media whose document the library rejects (reported, not refused)");
    }
    if (c.options & kExportOptions) {
        sub.add_option("-o,--output", options.outputFile, "write to FILE ('-': standard output)")
            ->type_name("FILE")
            ->capture_default_str();
        sub.add_option("--lang", options.language, "the base language of the texts")->capture_default_str();
        sub.add_option("--quality-variant", options.qualityVariant, "the quality list exported: rgb, cmyk4d, cmyk1d, index")
            ->capture_default_str();
        sub.add_flag("--strict", options.strict, "exit 1 when a medium's document is rejected");
        sub.add_option("--strings", options.stringsDirectory, "ipp: also write LANG.strings files of the media names into DIR")
            ->type_name("DIR");
    }
    if (c.options & kSvgOption) {
        sub.add_option("--svg", options.svgFile, "render the graph to FILE with Graphviz's dot")->type_name("FILE");
    }
    for (const std::string& word : UsageWords(c)) {
        const bool optional = word[0] == '[';
        const std::string name = optional ? word.substr(1, word.find(']') - 1) : word;
        in.words.push_back(std::make_unique<std::string>());
        in.positionals.push_back(sub.add_option(name, *in.words.back(), optional ? "(optional)" : "")->type_name(""));
    }
}

int Run(const Invocation& in, Options& options) {
    const Command& c = *in.command;
    std::vector<std::string> args;
    for (size_t i = 0; i < in.positionals.size(); ++i) {
        if (in.positionals[i]->count()) args.push_back(*in.words[i]);
    }
    options.fromFiles = (c.options & kFromFilesOption) && in.app->count("--from-files") != 0;
    if (options.fromFiles) {
        args.insert(args.begin() + static_cast<std::ptrdiff_t>(std::min(PrinterPosition(c), args.size())), in.directory);
    }
    if (!ArgumentCountFits(c, args.size())) {
        PrintCommandUsage(c);
        return kUsage;
    }
    return FinishOutput(c.run(args, options));
}

}  // namespace

bool RegisterCommand(const Command& command) {
    Commands().push_back(command);
    std::sort(Commands().begin(), Commands().end(),
              [](const Command& a, const Command& b) { return std::strcmp(a.name, b.name) < 0; });
    return true;
}

int Main(const std::vector<std::string>& args) {
    CLI::App app("hmitool: inspect, check, compare and pack the media databases of printers.\n"
                 "A PRINTER is a spooler printer on Windows, a store file or store name on Linux.",
                 "hmitool");
    app.footer(std::string(kExitCodes) + "\n'hmitool COMMAND --help' describes a command, with an example.");
    bool version = false;
    app.add_flag("--version", version, "print the version and exit");
    app.require_subcommand(0, 1);
    app.allow_windows_style_options(false);
    app.formatter(std::make_shared<HelpFormatter>());  // a path such as /tmp/x is an argument, not an option
    Options options;
    app.add_flag("--json", options.json, "write JSON instead of text (also after the command)");
    std::vector<Invocation> invocations(Commands().size());
    for (size_t i = 0; i < Commands().size(); ++i) {
        Invocation& in = invocations[i];
        in.command = &Commands()[i];
        in.app = app.add_subcommand(in.command->name, CommandDescription(*in.command));
        in.app->footer(std::string("example:\n  hmitool ") + in.command->example);
        DefineOptions(in, options);
    }
    std::vector<std::string> reversed(args.rbegin(), args.rend());
    try {
        app.parse(reversed);
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error);
        return code == 0 ? FinishOutput(kOk) : kUsage;
    }
    if (version) {
        std::printf("hmitool %s\n", XRVHMI_VERSION_STRING);
        return FinishOutput(kOk);
    }
    for (const Invocation& in : invocations) {
        if (!in.app->parsed()) continue;
        try {
            return Run(in, options);
        } catch (const std::exception& error) {
            std::fprintf(stderr, "hmitool: internal error: %s\n", error.what());
            return kInternal;
        }
    }
    std::fputs(app.help().c_str(), stderr);
    return kUsage;
}

}  // namespace hmitool
