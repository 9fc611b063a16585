// hmitool explain PRINTER MEDIA_ID [COLORMODE [BORDERLESS [PURPOSE [VARIANT QUALITY]]]]: the path the
// library takes for one request, asked through the exports as a driver asks it. A level not given is
// asked with its default. Each level is a node of the outline below the medium: named by the value
// asked, marked (default) when that value was not given, [all] when the level's "all" node served it
// and (no branch) when nothing did; its fields are
//   value      the number asked
//   available  the level's list and default
//   source     own, all or none
//   result     with none only: what the caller gets, and that the levels below are not reached
// The deepest node reached also carries the record a caller reads there: the print quality's, else
// the print purpose's. In JSON the marks are "all", "default" and "branch" as in show.
#include <cstdio>
#include <string>
#include <vector>

#include "cascade_walk.h"
#include "command.h"
#include "media_source.h"
#include "request_values.h"

namespace hmitool {
namespace {

template <typename E>
struct Asked {
    bool given = false;
    E value{};
};

struct Request {
    Asked<tagHMI_COLORMODE> colorMode;
    Asked<_tagHMI_ONOFF> borderless;
    Asked<tagHMI_PRINTPURPOSE> purpose;
    bool qualityGiven = false;
    DWORD variant = 0;
    tagHMI_PRINTQUALITY quality{};
};

// The arguments after PRINTER and MEDIA_ID, by their position in args.
enum Argument { kColorModeArg = 2, kBorderlessArg, kPurposeArg, kVariantArg, kQualityArg };
const char* const kArgumentNames[] = {"COLORMODE", "BORDERLESS", "PURPOSE", "VARIANT", "QUALITY"};

bool Refuse(const std::vector<std::string>& args, size_t index, const std::string& reason) {
    std::fprintf(stderr, "hmitool: %s '%s': %s\n", kArgumentNames[index - kColorModeArg], args[index].c_str(),
                 reason.c_str());
    return false;
}

template <typename E>
bool ParseLevel(const std::vector<std::string>& args, size_t index, const HMITagIDConverter<E>& words,
                Asked<E>* asked) {
    if (index >= args.size()) return true;
    std::string error;
    if (!ParseValue(args[index], words, &asked->value, &error)) return Refuse(args, index, error);
    asked->given = true;
    return true;
}

bool ParseRequest(const std::vector<std::string>& args, Request* request) {
    if (args.size() == kVariantArg + 1) {
        std::fprintf(stderr, "hmitool: VARIANT '%s': needs QUALITY after it\n", args[kVariantArg].c_str());
        return false;
    }
    if (!ParseLevel(args, kColorModeArg, HMIColorModeConverter, &request->colorMode) ||
        !ParseLevel(args, kBorderlessArg, HMIOnOffConverter, &request->borderless) ||
        !ParseLevel(args, kPurposeArg, HMIPrintPurposeConverter, &request->purpose)) {
        return false;
    }
    if (args.size() <= kQualityArg) return true;
    std::string error;
    if (!ParseVariant(args[kVariantArg], &request->variant, &error)) return Refuse(args, kVariantArg, error);
    if (!ParseValue(args[kQualityArg], HMIPrintQualityConverter, &request->quality, &error)) {
        return Refuse(args, kQualityArg, error);
    }
    request->qualityGiven = true;
    return true;
}

// Opens the level's node with the value asked, its list and where the answer came from; the node
// stays open for the levels below.
template <typename E, size_t N>
void OpenLevel(OutlineWriter& out, const char* kind, const HMITagIDConverter<E>& words,
               const HMITagListWithDefault<E, N>& available, E value, bool given, bool found, bool all) {
    out.Open(kind, Word(words, value), {all, !given, !found});
    out.Scalar("value", std::to_string(static_cast<uint32_t>(value)));
    WriteList(out, "available", words, available);
    out.Scalar("source", !found ? "none" : all ? "all" : "own");
}

// The level's node for the value asked, or its default; below(node) explains the levels under it.
template <typename Parent, typename Node, typename E, size_t N, typename Below>
void ExplainLevel(OutlineWriter& out, HMIAccess* access, const FilterLevel<Parent, Node, E, N>& level,
                  Parent* parent, const Asked<E>& asked, Below below) {
    typename FilterLevel<Parent, Node, E, N>::List available;
    if (!level.available(access, parent, &available)) {
        out.Open(level.kind, "", NodeMarks{false, false, true});
        out.Scalar("result", "its list cannot be read; the levels below are not reached");
        out.Close();
        return;
    }
    const E value = asked.given ? asked.value : available.defaultValue;
    const Reached<Node> reached = level.Reach(access, parent, value);
    OpenLevel(out, level.kind, *level.words, available, value, asked.given, reached.node != nullptr, reached.all);
    if (reached.node) {
        below(reached.node);
    } else {
        out.Scalar("result", std::string(level.filterName) + " returns null; the levels below are not reached");
    }
    out.Close();
}

// The record of the deepest node reached (the quality's, else the print purpose's), and the
// quality's level when one is asked.
void ExplainQuality(OutlineWriter& out, HMIAccess* access, HMIXMLMediaPrintPurpose* purpose, const Request& request) {
    _tagHMIAvailablePrintQuality available;
    const bool asked =
        request.qualityGiven && HMIGetAvailablePrintQuality(access, purpose, request.variant, &available);
    const QualityReached reached =
        asked ? ReachQuality(access, purpose, request.variant, request.quality) : QualityReached{};
    _tagHMIPrintPurposeInfo info;
    if (!reached.found && HMIGetPrintPurposeInfo(access, purpose, &info)) WritePrintPurposeFields(out, info);
    if (!asked) return;
    OpenLevel(out, kQualityVariants[request.variant], HMIPrintQualityConverter, available, request.quality, true,
              reached.found, reached.all);
    if (reached.found) {
        WritePrintQualityFields(out, reached.info);
    } else {
        out.Scalar("result", "HMIGetPrintQualityInfo returns FALSE: no record");
    }
    out.Close();
}

int RunExplain(const std::vector<std::string>& args, const Options& options) {
    Request request;
    if (!ParseRequest(args, &request)) return kUsage;
    const std::unique_ptr<MediaSource> source = OpenMediaSource(args[0], options);
    if (!source) return kUnreadable;
    int code = kOk;
    const Detail detail = LoadMedium(*source, args[1], &code);
    if (!detail) return code;

    HMIAccess* const access = source->access();
    OutlineWriter out(options.json);
    out.Open("medium", args[1], false);
    ExplainLevel(out, access, kColorModeLevel, detail.get(), request.colorMode, [&](HMIXMLMediaColorMode* mode) {
        ExplainLevel(out, access, kBorderlessLevel, mode, request.borderless, [&](HMIXMLMediaBorderlessMode* b) {
            ExplainLevel(out, access, kPrintPurposeLevel, b, request.purpose,
                         [&](HMIXMLMediaPrintPurpose* purpose) { ExplainQuality(out, access, purpose, request); });
        });
    });
    out.Close();
    std::fputs(out.str().c_str(), stdout);
    return kOk;
}

}  // namespace

HMITOOL_COMMAND("explain", "PRINTER MEDIA_ID [COLORMODE] [BORDERLESS] [PURPOSE] [VARIANT] [QUALITY]",
                "the path the library takes for one request, level by level: each level's list and default, and "
                "whether the value's own node, the \"all\" node or nothing answered (VARIANT needs QUALITY; a level "
                "not given is asked with its default; values by keyword or number, a keyword first)",
                "explain samples/sample-printer.reg TransparencyFilm monochrome OFF proof cmyk_4DLUT 3", RunExplain,
                kFromFilesOption);

}  // namespace hmitool
